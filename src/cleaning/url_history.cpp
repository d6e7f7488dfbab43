#include "cleaning/url_history.h"

#include "platform/rt_error.h"
#include "platform/url_history.h"

namespace wh {

namespace {

std::wstring widen(const std::string& text) {
  if (text.empty()) return {};
  std::wstring out(text.size(), L'\0');
  const int n = MultiByteToWideChar(CP_ACP, 0, text.data(), static_cast<int>(text.size()),
                                    out.data(), static_cast<int>(out.size()));
  out.resize(static_cast<size_t>(n > 0 ? n : 0));
  return out;
}

std::string narrow(const wchar_t* text) {
  if (!text) return {};
  const int length = lstrlenW(text);
  if (length == 0) return {};
  std::string out(static_cast<size_t>(length) * 2, '\0');
  const int n = WideCharToMultiByte(CP_ACP, 0, text, length, out.data(),
                                    static_cast<int>(out.size()), nullptr, nullptr);
  out.resize(static_cast<size_t>(n > 0 ? n : 0));
  return out;
}

}  // namespace

URLHistoryItem::~URLHistoryItem() {
  CoTaskMemFree(record_.pwcsTitle);
  CoTaskMemFree(record_.pwcsUrl);
}

void URLHistoryItem::Init(const STATURL& record) { record_ = record; }

std::string URLHistoryItem::URL() const { return narrow(record_.pwcsUrl); }

std::string URLHistoryItem::Title() const {
  std::string title = narrow(record_.pwcsTitle);
  return title.empty() ? "     (No Title Given)" : title;
}

CURLHistory::CURLHistory() : CURLHistory(create_url_history_store()) {}

CURLHistory::CURLHistory(IUrlHistoryStg2* store) : store_(store) { Refresh("", 0); }

CURLHistory::~CURLHistory() {
  items_.clear();
  if (store_) store_->Release();
}

void CURLHistory::Refresh(const std::string& filter, uint32_t flags) {
  IEnumSTATURL* urls = nullptr;
  if (store_) store_->EnumUrls(&urls);
  items_.clear();
  // Wine's store has no enumerator: the collection stays empty.
  if (!urls) return;
  const std::wstring wide = widen(filter);
  urls->SetFilter(wide.c_str(), flags);
  for (;;) {
    STATURL record{};
    record.cbSize = sizeof record;
    ULONG fetched = 0;
    urls->Next(1, &record, &fetched);
    if (fetched == 0) break;
    auto item = std::make_unique<URLHistoryItem>();
    item->Init(record);
    items_.push_back(std::move(item));
  }
  urls->Release();
}

void CURLHistory::Clear() {
  ignore_errors([&] {
    if (store_) store_->ClearHistory();
  });
  ignore_errors([&] { Refresh("", 0); });
}

URLHistoryItem& CURLHistory::Item(int32_t index) const {
  if (index < 1 || index > Count()) raise(rt_subscript);
  return *items_[static_cast<size_t>(index) - 1];
}

void CURLHistory::Remove(int32_t index) {
  const std::wstring url = widen(Item(index).URL());
  if (store_) store_->DeleteUrl(url.c_str(), 0);
  items_.erase(items_.begin() + (index - 1));
}

void CURLHistory::DeleteURL(int32_t number, uint32_t flags) {
  const std::wstring text = std::to_wstring(number);
  if (store_) store_->DeleteUrl(text.c_str(), flags);
  Refresh("", 0);
}

}  // namespace wh
