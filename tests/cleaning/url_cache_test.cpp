// The URL cache reader and the history cleaner against the prefix's real
// URL cache (filled with CommitUrlCacheEntryA); the history store classes
// against a small store of our own, since Wine's answers E_NOTIMPL to all.
#include <windows.h>
#include <urlhist.h>
#include <wininet.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "cleaning/junk_state.h"
#include "cleaning/traces.h"
#include "cleaning/url_cache.h"
#include "cleaning/url_history.h"
#include "platform/rt_error.h"
#include "support/scratch.h"
#include "support/test_form.h"

using namespace wh;
using wh::test::path_exists;
using wh::test::ScratchDir;
using wh::test::TestForm;

namespace {

using wh::test::rows;

using Lines = std::vector<std::string>;

// What the cache holds, walked directly.
Lines cache_urls() {
  Lines urls;
  alignas(8) char buffer[16384];
  auto* entry = reinterpret_cast<INTERNET_CACHE_ENTRY_INFOA*>(buffer);
  DWORD size = sizeof buffer;
  HANDLE search = FindFirstUrlCacheEntryA(nullptr, entry, &size);
  if (!search) return urls;
  do {
    urls.push_back(entry->lpszSourceUrlName ? entry->lpszSourceUrlName : "");
    size = sizeof buffer;
  } while (FindNextUrlCacheEntryA(search, entry, &size));
  FindCloseUrlCache(search);
  return urls;
}

bool cached(const std::string& url) {
  DWORD size = 0;
  GetUrlCacheEntryInfoA(url.c_str(), nullptr, &size);
  return GetLastError() == ERROR_INSUFFICIENT_BUFFER;
}

// Entries this test puts in the cache, taken out again at its end.
class CacheEntries {
public:
  explicit CacheEntries(Lines urls) : urls_(std::move(urls)) {
    FILETIME ft{};
    for (const std::string& url : urls_) {
      const DWORD type = url.rfind("Visited:", 0) == 0
                             ? URLHISTORY_CACHE_ENTRY | NORMAL_CACHE_ENTRY
                             : url.rfind("Cookie:", 0) == 0 ? COOKIE_CACHE_ENTRY | NORMAL_CACHE_ENTRY
                                                            : NORMAL_CACHE_ENTRY;
      CommitUrlCacheEntryA(url.c_str(), nullptr, ft, ft, type, nullptr, 0, nullptr, nullptr);
    }
  }
  ~CacheEntries() {
    for (const std::string& url : urls_) DeleteUrlCacheEntryA(url.c_str());
  }
  CacheEntries(const CacheEntries&) = delete;
  CacheEntries& operator=(const CacheEntries&) = delete;

private:
  Lines urls_;
};

const Lines kUrls = {"http://www.example.com/page.html", "https://secure.example.net/x?y=1",
                     "Visited: user@http://www.example.com/page.html",
                     "Cookie:user@example.com/"};

TEST(UrlCache, ListGainsEveryEntryInWalkOrderAfterWhatItHeld) {
  TestForm form;
  ListBox& list = form.add<ListBox>("junk_files", Place{0, 0, 200, 200});
  if (cache_urls().empty()) {  // a fresh prefix: the size query fails at once
    load_url_cache_list(list);
    EXPECT_EQ(0, list.ListCount());
  }
  // An entry larger than the first block (long headers: Wine's cache takes
  // no address of 2 KB) is read whole, and the walk goes on.
  const std::string big = "http://www.example.com/big.html";
  const std::string headers = "X-Pad: " + std::string(6000, 'q') + "\r\n";
  FILETIME ft{};
  ASSERT_TRUE(CommitUrlCacheEntryA(big.c_str(), nullptr, ft, ft, NORMAL_CACHE_ENTRY,
                                   reinterpret_cast<BYTE*>(const_cast<char*>(headers.data())),
                                   static_cast<DWORD>(headers.size()), nullptr, nullptr));
  DWORD need = 0;
  GetUrlCacheEntryInfoA(big.c_str(), nullptr, &need);
  EXPECT_GT(need, 4096u) << "the entry must outgrow the first block";
  CacheEntries entries(kUrls);
  list.AddItem("earlier line");
  load_url_cache_list(list);
  const Lines walked = cache_urls();
  EXPECT_GE(walked.size(), kUrls.size() + 1);
  EXPECT_EQ("earlier line", list.List(0));
  EXPECT_EQ(walked, rows(list, 1));
  // Doubles are not weeded out: a second walk appends everything again.
  load_url_cache_list(list);
  EXPECT_EQ(static_cast<int>(1 + 2 * walked.size()), list.ListCount());
  DeleteUrlCacheEntryA(big.c_str());
}

TEST(BrowserHistory, DeletesTheNewLinesFromTheCacheAndClearsAll) {
  ScratchDir dir("history");
  opera_folder = dir / "Opera";
  firefox_folder = dir / "Mozilla Firefox";
  firefox_profile = dir / "profile\\";
  std::vector<std::string> gone, kept;
  for (const char* f : {"Opera\\Profile\\Sessions\\autosave.win", "Opera\\Profile\\Sessions\\x.tmp",
                        "Opera\\Profile\\opera.dir", "Opera\\Profile\\global.dat",
                        "Opera\\Profile\\download.dat", "profile\\history.dat", "profile\\downloads.rdf"})
    gone.push_back(dir.file(f, "g"));
  for (const char* f : {"Opera\\Profile\\Sessions\\keep.win", "profile\\signons.txt", "profile\\cookies.txt"})
    kept.push_back(dir.file(f, "k"));
  const std::string signons = dir / "profile\\signons.txt";
  SetFileAttributesA((dir / "Opera\\Profile\\opera.dir").c_str(), FILE_ATTRIBUTE_READONLY);  // Opera's go with force
  SetFileAttributesA(signons.c_str(), FILE_ATTRIBUTE_READONLY);  // Firefox's without

  TestForm form;
  ListBox& list = form.add<ListBox>("junk_files", Place{0, 0, 200, 200});
  list.AddItem("shown before");
  list.AddItem("shown too");
  CacheEntries entries(kUrls);
  clean_browser_history(list);

  EXPECT_EQ(0, list.ListCount());
  for (const std::string& url : kUrls) EXPECT_FALSE(cached(url)) << url;
  for (const std::string& path : gone) EXPECT_FALSE(path_exists(path)) << path;
  for (const std::string& path : kept) EXPECT_TRUE(path_exists(path)) << path;
  SetFileAttributesA(signons.c_str(), FILE_ATTRIBUTE_NORMAL);
  opera_folder.clear();
  firefox_folder.clear();
  firefox_profile.clear();
}

// --- the history store

wchar_t* co_string(const wchar_t* text) {
  if (!text) return nullptr;
  const size_t bytes = (wcslen(text) + 1) * sizeof(wchar_t);
  auto* copy = static_cast<wchar_t*>(CoTaskMemAlloc(bytes));
  memcpy(copy, text, bytes);
  return copy;
}

struct Entry {
  std::wstring url;
  std::wstring title;  // empty: no title at all
};

// A store of a few entries that records what it is asked.
class FakeStore : public IUrlHistoryStg2, public IEnumSTATURL {
public:
  std::vector<Entry> entries;
  std::vector<std::wstring> deleted;
  std::wstring filter;
  int clears = 0;
  ULONG refs = 1;

  // IUnknown, shared by both faces: the test owns the object.
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void** out) override {
    *out = nullptr;
    return E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++refs; }
  ULONG STDMETHODCALLTYPE Release() override { return --refs; }

  HRESULT STDMETHODCALLTYPE AddUrl(LPCOLESTR, LPCOLESTR, DWORD) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE DeleteUrl(LPCOLESTR url, DWORD) override {
    deleted.push_back(url);
    std::erase_if(entries, [&](const Entry& e) { return e.url == url; });
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE QueryUrl(LPCOLESTR, DWORD, LPSTATURL) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE BindToObject(LPCOLESTR, REFIID, void**) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE EnumUrls(IEnumSTATURL** out) override {
    next_ = 0;
    AddRef();
    *out = this;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE AddUrlAndNotify(LPCOLESTR, LPCOLESTR, DWORD, WINBOOL,
                                            IOleCommandTarget*, IUnknown*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE ClearHistory() override {
    ++clears;
    entries.clear();
    return S_OK;
  }

  HRESULT STDMETHODCALLTYPE Next(ULONG, LPSTATURL record, ULONG* fetched) override {
    *fetched = 0;
    while (next_ < entries.size()) {
      const Entry& e = entries[next_++];
      if (!filter.empty() && e.url.rfind(filter, 0) != 0) continue;
      record->pwcsUrl = co_string(e.url.c_str());
      record->pwcsTitle = e.title.empty() ? nullptr : co_string(e.title.c_str());
      *fetched = 1;
      return S_OK;
    }
    return S_FALSE;
  }
  HRESULT STDMETHODCALLTYPE Skip(ULONG) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Reset() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Clone(IEnumSTATURL**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE SetFilter(LPCOLESTR text, DWORD) override {
    filter = text ? text : L"";
    return S_OK;
  }

private:
  size_t next_ = 0;
};

// IUnknown is reached through both bases; pick the store's.
IUrlHistoryStg2* as_store(FakeStore& s) { return static_cast<IUrlHistoryStg2*>(&s); }

TEST(UrlHistory, ReadsTheStoreIntoAOneBasedCollection) {
  FakeStore store;
  store.entries = {{L"http://a.example/", L"Page A"}, {L"http://b.example/", L""},
                   {L"http://c.example/", L"Page C"}};
  {
    CURLHistory history(as_store(store));
    store.AddRef();  // the history releases its reference at the end
    ASSERT_EQ(3, history.Count());
    EXPECT_EQ("http://a.example/", history.Item(1).URL());
    EXPECT_EQ("Page A", history.Item(1).Title());
    EXPECT_EQ("     (No Title Given)", history.Item(2).Title());
    EXPECT_THROW(history.Item(0), RuntimeError);
    EXPECT_THROW(history.Item(4), RuntimeError);

    history.Remove(2);
    EXPECT_EQ(std::vector<std::wstring>{L"http://b.example/"}, store.deleted);
    ASSERT_EQ(2, history.Count());
    EXPECT_EQ("http://c.example/", history.Item(2).URL());
    try {
      history.Remove(3);
      ADD_FAILURE() << "no error beyond the collection";
    } catch (const RuntimeError& e) {
      EXPECT_EQ(rt_subscript, e.number());
    }
    EXPECT_EQ(1u, store.deleted.size());

    // The number goes to the store as its text, then the list is read anew.
    history.DeleteURL(42, 0);
    EXPECT_EQ(L"42", store.deleted.back());
    EXPECT_EQ(2, history.Count());

    history.Refresh("http://c", 0);
    ASSERT_EQ(1, history.Count());
    EXPECT_EQ("Page C", history.Item(1).Title());

    history.Clear();
    EXPECT_EQ(1, store.clears);
    EXPECT_EQ(0, history.Count());
    EXPECT_TRUE(store.filter.empty());
  }
  EXPECT_EQ(1u, store.refs);
}

TEST(UrlHistory, WinesStoreReadsEmpty) {
  CURLHistory history;
  EXPECT_EQ(0, history.Count());
  history.Clear();
  EXPECT_EQ(0, history.Count());
}

}  // namespace
