// The address finder on bytes: pieces of any size against the plain reading
// of one byte at a time, and the two tidying routines.
#include <gtest/gtest.h>

#include <random>
#include <string>
#include <tuple>
#include <vector>

#include "cleaning/url_scan.h"

using namespace wh;
using Lines = std::vector<std::string>;

namespace {

// The scanners as they read: one byte per step, the window a growing string.
struct ByteAtATime {
  std::string window;
  int window_length = 0;
  bool capturing = false;
  std::string url;

  static std::string upper(std::string s) {
    for (char& c : s)
      if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 32);
    return s;
  }
  std::string right(size_t n) const {
    return window.size() <= n ? window : window.substr(window.size() - n);
  }
  static bool terminator(UrlScanner k, char c) {
    if (k == UrlScanner::index_file) return c == ' ' || c == 0;
    if (k == UrlScanner::opera_file) return c == 10 || c == 4;
    return c == ')';
  }

  void read(UrlScanner k, const std::string& bytes, Lines& lines) {
    for (char c : bytes) {
      window += c;
      if (++window_length == 30) {
        window.clear();
        window_length = 0;
      }
      if (c == ':') {
        const bool cookie = upper(right(7)) == "COOKIE:";
        if (cookie) url = "cookie:";
        if (!cookie && right(5) == "file:") url = "";
        if (!cookie && right(5) == "http:") url = "http:";
        if (!cookie && right(4) == "hcp:") url = "hcp:";
        if (cookie || right(5) == "file:" || right(5) == "http:" || right(4) == "hcp:" ||
            right(4) == "ftp:") {
          capturing = true;
          continue;
        }
      } else if (terminator(k, c)) {
        if (capturing) {
          capturing = false;
          window.clear();
          lines.push_back(k == UrlScanner::opera_file ? clean_url_text2(url) : clean_url_text(url));
        }
        continue;
      }
      if (capturing) url += c;
    }
  }
};

// Bytes rich in scheme words, terminators and colons, with noise between.
std::string random_stream(std::mt19937& rng) {
  static const std::vector<std::string> parts = {
      "http:", "ftp:", "file:", "hcp:", "CoOkIe:", "cookie:", ":", " ", std::string(1, '\0'),
      ")",     "\n",   "\x04",  "%20",  "/",       "///",     "x", "www.a.ro"};
  std::string s;
  const size_t length = rng() % 600;
  while (s.size() < length) {
    if (rng() % 2)
      s += parts[rng() % parts.size()];
    else
      s += static_cast<char>(rng() % 256);
  }
  return s;
}

TEST(UrlScan, PiecesOfAnySizeFindWhatOneByteAtATimeFinds) {
  std::mt19937 rng(20061);
  for (int round = 0; round < 3000; ++round) {
    const auto scanner = static_cast<UrlScanner>(round % 3);
    // Two streams in a row: the state goes on from one to the next.
    ByteAtATime plain;
    UrlScanState state;
    Lines expected, found;
    for (int stream = 0; stream < 2; ++stream) {
      const std::string bytes = random_stream(rng);
      plain.read(scanner, bytes, expected);
      for (size_t at = 0; at < bytes.size();) {
        const size_t n = std::min<size_t>(rng() % 3 ? rng() % 80 : 1, bytes.size() - at);
        url_scan_feed(state, scanner, std::string_view(bytes).substr(at, n), found);
        at += n;
      }
      ASSERT_EQ(expected, found) << "round " << round;
      ASSERT_EQ(std::tie(plain.window, plain.window_length, plain.capturing, plain.url),
                std::tie(state.window, state.window_length, state.capturing, state.url))
          << "round " << round;
    }
  }
}

TEST(UrlScan, Tidying) {
  EXPECT_EQ("C:/My Docs", clean_url_text("///C:/My%20Docs/"));
  EXPECT_EQ("/C:/My Docs", clean_url_text2("///C:/My%20Docs/"));
  // Only one slash goes at the end, and "%%2020" leaves "% 20".
  EXPECT_EQ("http://a.ro/", clean_url_text("http://a.ro//"));
  EXPECT_EQ("a% 20", clean_url_text("a%%2020"));
  EXPECT_EQ("", clean_url_text("//"));
  EXPECT_EQ("", clean_url_text(""));
  EXPECT_EQ("", clean_url_text2("/"));
}

}  // namespace
