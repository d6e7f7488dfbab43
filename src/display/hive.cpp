#include "display/hive.h"

#include <windows.h>
#include <objbase.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace wh {

namespace {

const char* message_of(std::uint32_t code) {
  switch (code) {
    case CHive::InvalidIndex: return "Invalid Index.";
    case CHive::KeyNotFound: return "Key not Found in the Hive.";
    case CHive::NumericKey:
      return "Key cannot be Integer or Long or Byte or any kind of Fixed Digit.";
    case CHive::DuplicateKey: return "Duplicate Key.";
    case CHive::InvalidParameter: return "Invalid Parameter.";
    default: return "";
  }
}

// Lower case as the ANSI code page has it, one table for the whole run.
unsigned char lower(unsigned char c) {
  static const std::array<unsigned char, 256> table = [] {
    std::array<unsigned char, 256> t{};
    for (int i = 0; i < 256; ++i) t[i] = static_cast<unsigned char>(i);
    CharLowerBuffA(reinterpret_cast<char*>(t.data() + 1), 255);  // not the NUL
    return t;
  }();
  return table[c];
}

bool is_position(const HiveVariant& v) { return std::holds_alternative<std::int32_t>(v); }

bool is_comparable_key(const HiveVariant& v) {
  return std::holds_alternative<std::string>(v) || std::holds_alternative<double>(v);
}

}  // namespace

// ---- CNode ------------------------------------------------------------

void CNode::Init(std::int32_t size, float factor) {
  links_.assign(static_cast<std::size_t>(size) + 1, 0);
  factor_ = factor;
  chain(1, size);
  head_ = size >= 1 ? 1 : 0;
}

void CNode::chain(std::int32_t from, std::int32_t to) {
  for (std::int32_t i = from; i < to; ++i) links_[i] = i + 1;
  if (to >= from) links_[to] = 0;
}

std::int32_t CNode::Alloc() {
  if (head_ == 0) {
    std::int32_t old_ub = UpperBound();
    // Rounded half to even, as the platform converts; at least one new slot.
    auto new_ub = static_cast<std::int32_t>(
        std::lrint(static_cast<double>(old_ub) * static_cast<double>(factor_)));
    new_ub = std::max(new_ub, old_ub + 1);
    links_.resize(static_cast<std::size_t>(new_ub) + 1, 0);
    chain(old_ub + 1, new_ub);
    head_ = old_ub + 1;
  }
  std::int32_t slot = head_;
  head_ = links_[slot];
  return slot;
}

void CNode::free(std::int32_t index) {
  links_[index] = head_;
  head_ = index;
}

// ---- CHive ------------------------------------------------------------

void CHive::Init(std::int32_t size, double grow) {
  if (size < 1 || !(grow > 1.0)) raise(rt_invalid_call);
  size_ = size;
  grow_ = grow;
  nodes_.assign(static_cast<std::size_t>(size) + 1, HiveNode{});
  order_.assign(static_cast<std::size_t>(size) + 2, 0);
  alloc_.Init(size, static_cast<float>(grow));
  root_ = 0;
  count_ = 0;
  initialised_ = true;
}

std::string CHive::CreateGUIDKey() {
  GUID guid{};
  if (FAILED(CoCreateGuid(&guid))) return {};
  wchar_t wide[39] = {};
  int n = StringFromGUID2(guid, wide, 39);  // counts the terminator
  std::string text;
  for (int i = 0; i + 1 < n; ++i) text.push_back(static_cast<char>(wide[i]));
  return text;
}

void CHive::report(std::uint32_t code, const char* operation) {
  HiveErrorRecord record{ErrorNumber(code), std::string(operation) + ".CHive", message_of(code)};
  if (!errors_) errors_ = std::make_unique<CErrorCollection>();
  errors_->Add(record);
  if (raise_errors) throw HiveError(record.number, record.description, record.source);
}

// Numbers sort before text; text compares by byte, lowered when ignore_case.
int CHive::compare(const HiveVariant& a, const HiveVariant& b) const {
  const auto* sa = std::get_if<std::string>(&a);
  const auto* sb = std::get_if<std::string>(&b);
  if (sa && sb) {
    std::size_t n = std::min(sa->size(), sb->size());
    for (std::size_t i = 0; i < n; ++i) {
      unsigned char ca = static_cast<unsigned char>((*sa)[i]);
      unsigned char cb = static_cast<unsigned char>((*sb)[i]);
      if (ignore_case) {
        ca = lower(ca);
        cb = lower(cb);
      }
      if (ca != cb) return ca < cb ? -1 : 1;
    }
    return sa->size() == sb->size() ? 0 : (sa->size() < sb->size() ? -1 : 1);
  }
  if (sa) return 1;
  if (sb) return -1;
  double da = std::get<double>(a);
  double db = std::get<double>(b);
  return da == db ? 0 : (da < db ? -1 : 1);
}

std::int32_t CHive::FindNode(const HiveVariant& key) {
  if (!is_comparable_key(key)) {
    report(InvalidParameter, "FindNode");
    return 0;
  }
  std::int32_t x = root_;
  while (x != 0) {
    int c = compare(key, nodes_[x].key);
    if (c == 0) return x;
    x = c > 0 ? nodes_[x].right : nodes_[x].left;
  }
  return 0;
}

std::int32_t CHive::GetIndex(const HiveVariant& key_or_position) {
  if (is_position(key_or_position)) {
    std::int32_t pos = std::get<std::int32_t>(key_or_position);
    if (pos < 1 || pos > count_) {
      report(InvalidIndex, "GetIndex");
      return 0;
    }
    return order_[pos];
  }
  if (!is_comparable_key(key_or_position)) return FindNode(key_or_position);
  std::int32_t x = FindNode(key_or_position);
  if (x == 0) report(KeyNotFound, "GetIndex");
  return x;
}

std::int32_t CHive::position_of(std::int32_t node) const {
  for (std::int32_t i = 1; i <= count_; ++i)
    if (order_[i] == node) return i;
  return 0;
}

void CHive::Add(HiveVariant value, HiveVariant key, HiveVariant before, HiveVariant after) {
  if (std::holds_alternative<std::monostate>(key)) {
    key = CreateGUIDKey();
  } else if (is_position(key)) {
    return report(NumericKey, "Add");
  } else if (const auto* s = std::get_if<std::string>(&key); s && s->empty()) {
    return report(EmptyKey, "Add");
  } else if (!is_comparable_key(key)) {
    return report(InvalidParameter, "Add");
  }
  if (!initialised_) Init();

  std::int32_t parent = 0;
  int last = 0;
  for (std::int32_t x = root_; x != 0;) {
    parent = x;
    last = compare(key, nodes_[x].key);
    if (last == 0 && !allow_duplicates) return report(DuplicateKey, "Add");
    x = last > 0 ? nodes_[x].right : nodes_[x].left;
  }

  // The neighbour is found before anything changes, so a miss leaves the hive whole.
  bool has_before = !std::holds_alternative<std::monostate>(before);
  bool has_after = !std::holds_alternative<std::monostate>(after);
  if (has_before && has_after) return report(InvalidParameter, "Add");
  std::int32_t insert_at = count_ + 1;
  if (has_before || has_after) {
    const HiveVariant& neighbour = has_before ? before : after;
    std::int32_t n = 0;
    if (is_position(neighbour)) {
      std::int32_t pos = std::get<std::int32_t>(neighbour);
      if (pos >= 1 && pos <= count_) n = order_[pos];
    } else if (is_comparable_key(neighbour)) {
      std::int32_t x = root_;
      while (x != 0) {
        int c = compare(neighbour, nodes_[x].key);
        if (c == 0) break;
        x = c > 0 ? nodes_[x].right : nodes_[x].left;
      }
      n = x;
    }
    if (n == 0) return report(KeyNotFound, "Add");
    insert_at = position_of(n) + (has_after ? 1 : 0);
  }

  std::int32_t z = alloc_.Alloc();
  if (z > NodeCapacity()) {
    auto old_size = static_cast<double>(NodeCapacity());
    nodes_.resize(static_cast<std::size_t>(alloc_.UpperBound()) + 1);
    auto order_len = static_cast<std::size_t>(std::lrint(old_size * grow_)) + 2;
    order_.resize(std::max(order_len, nodes_.size()) + 1, 0);
  }
  HiveNode& node = nodes_[z];
  node = HiveNode{0, 0, parent, 1, std::move(key), std::move(value)};
  if (parent == 0)
    root_ = z;
  else if (last > 0)
    nodes_[parent].right = z;
  else
    nodes_[parent].left = z;

  std::copy_backward(order_.begin() + insert_at, order_.begin() + count_ + 1,
                     order_.begin() + count_ + 2);
  order_[insert_at] = z;
  ++count_;
  insert_fixup(z);
}

void CHive::Remove(const HiveVariant& key_or_position) {
  if (std::holds_alternative<std::monostate>(key_or_position))
    return report(InvalidParameter, "Remove");
  std::int32_t z = GetIndex(key_or_position);
  if (z == 0) return;

  std::int32_t pos = position_of(z);
  std::copy(order_.begin() + pos + 1, order_.begin() + count_ + 1, order_.begin() + pos);
  order_[count_] = 0;

  // With two children the successor's slot goes; its entry moves into z.
  std::int32_t y = z;
  if (nodes_[z].left != 0 && nodes_[z].right != 0) {
    y = nodes_[z].right;
    while (nodes_[y].left != 0) y = nodes_[y].left;
  }
  std::int32_t x = nodes_[y].left != 0 ? nodes_[y].left : nodes_[y].right;
  std::int32_t yp = nodes_[y].parent;
  nodes_[x].parent = yp;  // on nil too: the fix-up climbs from it
  if (yp == 0)
    root_ = x;
  else if (nodes_[yp].left == y)
    nodes_[yp].left = x;
  else
    nodes_[yp].right = x;

  if (y != z) {
    nodes_[z].key = std::move(nodes_[y].key);
    nodes_[z].value = std::move(nodes_[y].value);
    order_[position_of(y)] = z;
  }
  if (nodes_[y].colour == 0) delete_fixup(x);

  nodes_[y] = HiveNode{};
  alloc_.free(y);
  --count_;
  nodes_[0] = HiveNode{};
}

void CHive::Clear() {
  std::int32_t size = size_;
  double grow = grow_;
  Init(size, grow);
}

void CHive::Item(const HiveVariant& key_or_position, HiveVariant value) {
  if (std::int32_t x = GetIndex(key_or_position)) nodes_[x].value = std::move(value);
}

HiveVariant CHive::Value(const HiveVariant& key_or_position) {
  std::int32_t x = GetIndex(key_or_position);
  return x ? nodes_[x].value : HiveVariant{};
}

HiveVariant CHive::Key(const HiveVariant& key_or_position) {
  std::int32_t x = GetIndex(key_or_position);
  return x ? nodes_[x].key : HiveVariant{};
}

// ---- red-black balance --------------------------------------------------

void CHive::rotate_left(std::int32_t x) {
  std::int32_t y = nodes_[x].right;
  nodes_[x].right = nodes_[y].left;
  if (nodes_[y].left != 0) nodes_[nodes_[y].left].parent = x;
  std::int32_t p = nodes_[x].parent;
  nodes_[y].parent = p;
  if (p == 0)
    root_ = y;
  else if (nodes_[p].left == x)
    nodes_[p].left = y;
  else
    nodes_[p].right = y;
  nodes_[y].left = x;
  nodes_[x].parent = y;
}

void CHive::rotate_right(std::int32_t x) {
  std::int32_t y = nodes_[x].left;
  nodes_[x].left = nodes_[y].right;
  if (nodes_[y].right != 0) nodes_[nodes_[y].right].parent = x;
  std::int32_t p = nodes_[x].parent;
  nodes_[y].parent = p;
  if (p == 0)
    root_ = y;
  else if (nodes_[p].right == x)
    nodes_[p].right = y;
  else
    nodes_[p].left = y;
  nodes_[y].right = x;
  nodes_[x].parent = y;
}

void CHive::insert_fixup(std::int32_t x) {
  auto& n = nodes_;
  while (x != root_ && n[n[x].parent].colour == 1) {
    std::int32_t p = n[x].parent;
    std::int32_t g = n[p].parent;
    if (p == n[g].left) {
      std::int32_t y = n[g].right;
      if (n[y].colour == 1) {
        n[p].colour = 0;
        n[y].colour = 0;
        n[g].colour = 1;
        x = g;
      } else {
        if (x == n[p].right) {
          x = p;
          rotate_left(x);
        }
        p = n[x].parent;
        g = n[p].parent;
        n[p].colour = 0;
        n[g].colour = 1;
        rotate_right(g);
      }
    } else {
      std::int32_t y = n[g].left;
      if (n[y].colour == 1) {
        n[p].colour = 0;
        n[y].colour = 0;
        n[g].colour = 1;
        x = g;
      } else {
        if (x == n[p].left) {
          x = p;
          rotate_right(x);
        }
        p = n[x].parent;
        g = n[p].parent;
        n[p].colour = 0;
        n[g].colour = 1;
        rotate_left(g);
      }
    }
  }
  n[root_].colour = 0;
}

void CHive::delete_fixup(std::int32_t x) {
  auto& n = nodes_;
  while (x != root_ && n[x].colour == 0) {
    std::int32_t p = n[x].parent;
    if (x == n[p].left) {
      std::int32_t w = n[p].right;
      if (n[w].colour == 1) {
        n[w].colour = 0;
        n[p].colour = 1;
        rotate_left(p);
        w = n[p].right;
      }
      if (n[n[w].left].colour == 0 && n[n[w].right].colour == 0) {
        n[w].colour = 1;
        x = p;
      } else {
        if (n[n[w].right].colour == 0) {
          n[n[w].left].colour = 0;
          n[w].colour = 1;
          rotate_right(w);
          w = n[p].right;
        }
        n[w].colour = n[p].colour;
        n[p].colour = 0;
        n[n[w].right].colour = 0;
        rotate_left(p);
        x = root_;
      }
    } else {
      std::int32_t w = n[p].left;
      if (n[w].colour == 1) {
        n[w].colour = 0;
        n[p].colour = 1;
        rotate_right(p);
        w = n[p].left;
      }
      if (n[n[w].right].colour == 0 && n[n[w].left].colour == 0) {
        n[w].colour = 1;
        x = p;
      } else {
        if (n[n[w].left].colour == 0) {
          n[n[w].right].colour = 0;
          n[w].colour = 1;
          rotate_left(w);
          w = n[p].left;
        }
        n[w].colour = n[p].colour;
        n[p].colour = 0;
        n[n[w].left].colour = 0;
        rotate_right(p);
        x = root_;
      }
    }
  }
  n[x].colour = 0;
}

}  // namespace wh
