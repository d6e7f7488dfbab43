#pragma once
// The browser's history store seen as a collection. Complete, though the
// program itself reads the history through the URL cache instead.
#include <windows.h>
#include <urlhist.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace wh {

// One record as the store returned it; owns its two strings.
class URLHistoryItem {
public:
  URLHistoryItem() = default;
  URLHistoryItem(const URLHistoryItem&) = delete;
  URLHistoryItem& operator=(const URLHistoryItem&) = delete;
  ~URLHistoryItem();

  std::string URL() const;
  // "     (No Title Given)" when the store has no title.
  std::string Title() const;

  void Init(const STATURL& record);

private:
  STATURL record_{};
};

class CURLHistory {
public:
  using Items = std::vector<std::unique_ptr<URLHistoryItem>>;

  // The system's store.
  CURLHistory();
  // A store made elsewhere; the history takes over the reference.
  explicit CURLHistory(IUrlHistoryStg2* store);
  CURLHistory(const CURLHistory&) = delete;
  CURLHistory& operator=(const CURLHistory&) = delete;
  ~CURLHistory();

  // Errors ignored: empties the store, then reads it again.
  void Clear();
  void Refresh(const std::string& filter, uint32_t flags);
  // From 1; raises 9 outside the collection.
  URLHistoryItem& Item(int32_t index) const;
  // Removes the item's URL from the store and the item from the collection.
  void Remove(int32_t index);
  // Hands the store the decimal text of a number, not a URL.
  void DeleteURL(int32_t number, uint32_t flags);
  const Items& NewEnum() const { return items_; }
  int Count() const { return static_cast<int>(items_.size()); }

private:
  IUrlHistoryStg2* store_ = nullptr;
  Items items_;
};

}  // namespace wh
