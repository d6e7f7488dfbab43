#include "cleaning/url_scan.h"

#include <algorithm>
#include <bit>
#include <cstring>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace wh {

namespace {

constexpr unsigned window_chunk = 30;

std::string tidy(std::string text, size_t leading) {
  if (!text.empty() && text.front() == '/') text.erase(0, std::min(leading, text.size()));
  // One pass is enough: a blank put in never makes a new "%20".
  std::string out;
  out.reserve(text.size());
  for (size_t i = 0; i < text.size(); ++i) {
    if (text.compare(i, 3, "%20") == 0) {
      out += ' ';
      i += 2;
    } else {
      out += text[i];
    }
  }
  if (!out.empty() && out.back() == '/') out.pop_back();
  return out;
}

// Inside an address three bytes matter: ":" for the scheme test and the
// scanner's terminators (Firefox has one, so ")" stands twice).
struct ScannerKind {
  char stops[3];
  std::string (*tidy)(std::string);
};

const ScannerKind& kind_of(UrlScanner scanner) {
  static const ScannerKind index{{':', ' ', 0}, clean_url_text};
  static const ScannerKind opera{{':', 10, 4}, clean_url_text2};
  static const ScannerKind firefox{{':', ')', ')'}, clean_url_text};
  switch (scanner) {
    case UrlScanner::opera_file: return opera;
    case UrlScanner::firefox_history: return firefox;
    default: return index;
  }
}

// The next colon at or after `from` that may close a scheme word: every
// word ends in "e", "E" or "p" before its colon, so no other colon does
// anything outside an address. At 0 the byte before is in the last piece.
size_t next_scheme_colon(const char* p, size_t from, size_t n) {
  size_t j = from;
  if (j == 0) {
    if (n > 0 && p[0] == ':') return 0;
    j = 1;
  }
#if defined(__SSE2__)
  const __m128i colon = _mm_set1_epi8(':');
  const __m128i e = _mm_set1_epi8('e');
  const __m128i big_e = _mm_set1_epi8('E');
  const __m128i letter_p = _mm_set1_epi8('p');
  for (; j + 16 <= n; j += 16) {
    const __m128i cur = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p + j));
    const __m128i prev = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p + j - 1));
    const __m128i ends = _mm_or_si128(_mm_or_si128(_mm_cmpeq_epi8(prev, e), _mm_cmpeq_epi8(prev, big_e)),
                                      _mm_cmpeq_epi8(prev, letter_p));
    const auto bits = static_cast<unsigned>(_mm_movemask_epi8(_mm_and_si128(_mm_cmpeq_epi8(cur, colon), ends)));
    if (bits) return j + static_cast<size_t>(std::countr_zero(bits));
  }
#endif
  for (; j < n; ++j)
    if (p[j] == ':' && (p[j - 1] == 'e' || p[j - 1] == 'E' || p[j - 1] == 'p')) return j;
  return n;
}

// The next byte at or after `from` that stops a run of an address.
size_t next_stop(const ScannerKind& kind, const char* p, size_t from, size_t n) {
  size_t j = from;
#if defined(__SSE2__)
  const __m128i a = _mm_set1_epi8(kind.stops[0]);
  const __m128i b = _mm_set1_epi8(kind.stops[1]);
  const __m128i c = _mm_set1_epi8(kind.stops[2]);
  for (; j + 16 <= n; j += 16) {
    const __m128i cur = _mm_loadu_si128(reinterpret_cast<const __m128i*>(p + j));
    const __m128i hit = _mm_or_si128(_mm_or_si128(_mm_cmpeq_epi8(cur, a), _mm_cmpeq_epi8(cur, b)),
                                     _mm_cmpeq_epi8(cur, c));
    const auto bits = static_cast<unsigned>(_mm_movemask_epi8(hit));
    if (bits) return j + static_cast<size_t>(std::countr_zero(bits));
  }
#endif
  for (; j < n; ++j)
    if (p[j] == kind.stops[0] || p[j] == kind.stops[1] || p[j] == kind.stops[2]) return j;
  return n;
}

bool upper_equals(const char* text, const char* upper, size_t n) {
  for (size_t i = 0; i < n; ++i) {
    char c = text[i];
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    if (c != upper[i]) return false;
  }
  return true;
}

// The window, seen as the bytes from `begin` up to the current position of
// the piece being fed; a negative begin reaches back into what the previous
// piece left in the window.
class Window {
public:
  Window(const std::string& carried, const char* piece)
      : carried_(carried), piece_(piece), begin_(-static_cast<std::ptrdiff_t>(carried.size())) {}

  void clear_at(std::ptrdiff_t position) { begin_ = position; }

  // The last up to 7 bytes before `end`, into `out`; their number.
  size_t tail(std::ptrdiff_t end, char* out) const {
    const auto size = static_cast<size_t>(std::max<std::ptrdiff_t>(end - begin_, 0));
    const size_t m = std::min<size_t>(size, 7);
    for (size_t t = 0; t < m; ++t) {
      const std::ptrdiff_t pos = end - static_cast<std::ptrdiff_t>(m) + static_cast<std::ptrdiff_t>(t);
      out[t] = pos >= 0 ? piece_[pos]
                        : carried_[carried_.size() - static_cast<size_t>(-pos)];
    }
    return m;
  }

  // What stays in the window at the end of a piece of `n` bytes.
  std::string rest(size_t n) const {
    if (begin_ >= 0)
      return std::string(piece_ + begin_, n - static_cast<size_t>(begin_));
    return carried_.substr(carried_.size() - static_cast<size_t>(-begin_)) + std::string(piece_, n);
  }

private:
  const std::string& carried_;
  const char* piece_;
  std::ptrdiff_t begin_;
};

}  // namespace

std::string clean_url_text(std::string text) { return tidy(std::move(text), 3); }
std::string clean_url_text2(std::string text) { return tidy(std::move(text), 2); }

void url_scan_feed(UrlScanState& state, UrlScanner scanner, std::string_view bytes,
                   std::vector<std::string>& lines) {
  const ScannerKind& kind = kind_of(scanner);
  const char* p = bytes.data();
  const size_t n = bytes.size();
  const std::string carried = std::move(state.window);
  Window window(carried, p);
  unsigned counted = state.window_length % window_chunk;
  size_t i = 0;

  // Bytes i..to-1 hold nothing but the window's count: it may reach 30 on
  // some of them, and the last such clear is where the window starts again.
  auto count_to = [&](size_t to) {
    const size_t k = to - i;
    if (counted + k >= window_chunk) {
      const size_t first = i + (window_chunk - 1 - counted);
      const size_t last = first + (to - 1 - first) / window_chunk * window_chunk;
      window.clear_at(static_cast<std::ptrdiff_t>(last + 1));
    }
    counted = static_cast<unsigned>((counted + k) % window_chunk);
    i = to;
  };

  while (i < n) {
    size_t j;
    if (!state.capturing) {
      j = next_scheme_colon(p, i, n);
    } else {
      j = next_stop(kind, p, i, n);
      state.url.append(p + i, j - i);
    }
    count_to(j);
    if (j == n) break;

    const char c = p[j];
    i = j + 1;
    if (++counted == window_chunk) {
      counted = 0;
      window.clear_at(static_cast<std::ptrdiff_t>(i));
    }
    if (c == ':') {
      char end[7];
      const size_t m = window.tail(static_cast<std::ptrdiff_t>(i), end);
      const char* e = end + m;
      if (m >= 7 && upper_equals(e - 7, "COOKIE:", 7)) {
        state.url = "cookie:";
        state.capturing = true;
      } else if (m >= 5 && std::memcmp(e - 5, "file:", 5) == 0) {
        state.url.clear();  // the scheme word is dropped for files
        state.capturing = true;
      } else if (m >= 5 && std::memcmp(e - 5, "http:", 5) == 0) {
        state.url = "http:";
        state.capturing = true;
      } else if (m >= 4 && std::memcmp(e - 4, "hcp:", 4) == 0) {
        state.url = "hcp:";
        state.capturing = true;
      } else if (m >= 4 && std::memcmp(e - 4, "ftp:", 4) == 0) {
        // The address goes on from whatever url held, without the word.
        state.capturing = true;
      } else if (state.capturing) {
        state.url += ':';
      }
      continue;
    }
    // A terminator ends the address: the count of the window goes on.
    state.capturing = false;
    window.clear_at(static_cast<std::ptrdiff_t>(i));
    lines.push_back(kind.tidy(state.url));
  }

  state.window = window.rest(n);
  state.window_length = static_cast<uint8_t>(counted);
}

}  // namespace wh
