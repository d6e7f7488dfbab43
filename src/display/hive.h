#pragma once
// CHive: values reached by a text key or by position, in insertion order.
// A red-black tree lives inside one array of nodes linked by index (0 = no
// node), so an entry costs no allocation of its own; an order list of node
// indices gives the positions, numbered from 1.
#include <cstdint>
#include <memory>
#include <string>
#include <variant>
#include <vector>

#include "platform/rt_error.h"

namespace wh {

// The variant of keys, positions and values.
//   monostate      missing argument / empty value
//   std::string    text (a key)
//   std::int32_t   whole number: a position, never a key
//   double         floating number: a key
//   shared_ptr     object reference; stored by reference, never copied
using HiveVariant = std::variant<std::monostate, std::string, std::int32_t, double,
                                 std::shared_ptr<void>>;

struct HiveNode {
  std::int32_t left = 0;
  std::int32_t right = 0;
  std::int32_t parent = 0;
  std::int32_t colour = 0;  // 1 red, 0 black
  HiveVariant key;          // kept in its original case
  HiveVariant value;
};

// Hands out and takes back slots 1..UpperBound of the node array.
class CNode {
public:
  void Init(std::int32_t size, float factor);
  std::int32_t Alloc();
  void free(std::int32_t index);
  std::int32_t UpperBound() const { return static_cast<std::int32_t>(links_.size()) - 1; }

private:
  void chain(std::int32_t from, std::int32_t to);

  std::vector<std::int32_t> links_{0};  // next-free links; [0] unused
  std::int32_t head_ = 0;
  float factor_ = 1.5f;
};

struct HiveErrorRecord {
  int number = 0;
  std::string source;
  std::string description;
};

// Failures kept when the hive does not raise them.
class CErrorCollection {
public:
  void Clear() { items_.clear(); }
  void Add(HiveErrorRecord record) { items_.push_back(std::move(record)); }
  std::int32_t Count() const { return static_cast<std::int32_t>(items_.size()); }
  // 1-based, like the hive.
  const HiveErrorRecord& Item(std::int32_t index) const { return items_.at(index - 1); }

private:
  std::vector<HiveErrorRecord> items_;
};

// What the hive raises when raise_errors is on; a RuntimeError with a source.
class HiveError : public RuntimeError {
public:
  HiveError(int number, std::string description, std::string source)
      : RuntimeError(number, std::move(description)), source_(std::move(source)) {}
  const std::string& source() const noexcept { return source_; }

private:
  std::string source_;
};

class CHive {
public:
  enum Code : std::uint32_t {
    InvalidIndex = 1,
    KeyNotFound = 2,
    NumericKey = 4,
    DuplicateKey = 8,
    InvalidParameter = 256,
    EmptyKey = 4096,
  };
  static constexpr std::uint32_t ErrorBase = 0x80041388u;
  static int ErrorNumber(std::uint32_t code) { return static_cast<int>(ErrorBase + code); }

  bool ignore_case = true;
  bool allow_duplicates = false;
  bool raise_errors = false;

  // Makes the node array (1..size), the allocator and the order list.
  void Init(std::int32_t size = 100, double grow = 1.5);
  static std::string CreateGUIDKey();

  // A missing key gets a GUID key. `before` and `after` name an entry by
  // key or position; the new one goes in front of or behind it.
  void Add(HiveVariant value, HiveVariant key = {}, HiveVariant before = {},
           HiveVariant after = {});
  // A whole number is a position, anything else a key.
  void Remove(const HiveVariant& key_or_position);
  void Clear();
  void Item(const HiveVariant& key_or_position, HiveVariant value);
  std::int32_t Count() const { return count_; }

  // Reads; empty variant (and a reported failure) when not found.
  HiveVariant Value(const HiveVariant& key_or_position);
  HiveVariant Key(const HiveVariant& key_or_position);

  // Nullptr until the first failure.
  const CErrorCollection* Errors() const { return errors_.get(); }

  // The tree itself, for checks.
  std::int32_t Root() const { return root_; }
  const HiveNode& Node(std::int32_t index) const { return nodes_.at(index); }
  std::int32_t NodeCapacity() const { return static_cast<std::int32_t>(nodes_.size()) - 1; }
  std::int32_t size() const { return size_; }
  double grow() const { return grow_; }

private:
  // 0 when a failure was reported.
  std::int32_t GetIndex(const HiveVariant& key_or_position);
  std::int32_t FindNode(const HiveVariant& key);
  int compare(const HiveVariant& a, const HiveVariant& b) const;
  std::int32_t position_of(std::int32_t node) const;
  void report(std::uint32_t code, const char* operation);

  void rotate_left(std::int32_t x);
  void rotate_right(std::int32_t x);
  void insert_fixup(std::int32_t x);
  void delete_fixup(std::int32_t x);

  // nodes_[0] is the nil node: black, and its parent is scratch during removal.
  std::vector<HiveNode> nodes_;
  std::vector<std::int32_t> order_;  // [1..count_] node indices; [0] unused
  std::int32_t root_ = 0;
  std::int32_t count_ = 0;
  CNode alloc_;
  std::int32_t size_ = 100;
  double grow_ = 1.5;
  bool initialised_ = false;
  std::unique_ptr<CErrorCollection> errors_;
};

}  // namespace wh
