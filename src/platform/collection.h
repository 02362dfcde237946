#pragma once

/// @file
/// The keyed ordered collection that holds children everywhere.

#include "zelnor/platform/failure.h"
#include "zelnor/platform/text.h"
#include "zelnor/platform/values.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace zelnor {

/// Items in the order in which they were added, reached by position (from 1) or by an optional key, which is
/// unique and compared ignoring case.
///
/// @code
/// Collection<Ref<clsEmployee>> employees;
/// employees.Add(employee);
/// for (const Ref<clsEmployee>& each : employees) std::cout << each->EmployeeCode() << "\n";
/// @endcode
template <class T>
class Collection {
 public:
  /// Appends an item; an empty key means none. A key that is already there raises error 457, and nothing is
  /// added.
  void Add(T item, std::string_view key = {}) {
    if (key.empty() && tags_.empty()) {
      items_.push_back(std::move(item));
      return;
    }
    AddTagged(std::move(item), LowerCase(key));
  }

  /// The item at a position from 1. Any other position raises error 9.
  const T& Item(Long position) const { return items_[Index(position)]; }
  T& Item(Long position) { return items_[Index(position)]; }

  /// The item of a key. An absent key raises error 5.
  const T& Item(std::string_view key) const { return items_[Index(key)]; }
  T& Item(std::string_view key) { return items_[Index(key)]; }
  const T& Item(const char* key) const { return Item(std::string_view(key)); }
  T& Item(const char* key) { return Item(std::string_view(key)); }

  /// Whether an item has this key.
  bool Contains(std::string_view key) const { return stamps_.contains(LowerCase(key)); }

  /// Removes the item at a position (error 9 when there is none) or of a key (error 5).
  void Remove(Long position) { RemoveAt(Index(position)); }
  void Remove(std::string_view key) { RemoveAt(Index(key)); }
  void Remove(const char* key) { Remove(std::string_view(key)); }

  /// The number of items.
  Long Count() const { return static_cast<Long>(items_.size()); }

  auto begin() const { return items_.begin(); }
  auto end() const { return items_.end(); }

 private:
  std::size_t Index(Long position) const {
    if (position < 1 || static_cast<std::size_t>(position) > items_.size()) ThrowOutOfSubscript();
    return static_cast<std::size_t>(position) - 1;
  }

  std::size_t Index(std::string_view key) const {
    const auto found = stamps_.find(LowerCase(key));
    if (found == stamps_.end()) ThrowInvalidArgument();
    const auto tag = std::lower_bound(tags_.begin(), tags_.end(), found->second,
                                      [](const Tag& each, std::size_t stamp) { return each.stamp < stamp; });
    return static_cast<std::size_t>(tag - tags_.begin());
  }

  /// Appends an item with its tag. Whatever fails on the way, the collection is as it was.
  void AddTagged(T item, String folded) {
    if (!folded.empty() && stamps_.contains(folded)) ThrowDuplicateKey();
    items_.reserve(Grown(items_));
    tags_.reserve(std::max(Grown(tags_), items_.size() + 1));
    while (tags_.size() < items_.size()) tags_.push_back({String(), next_stamp_++});
    if (!folded.empty()) stamps_.emplace(folded, next_stamp_);
    tags_.push_back({std::move(folded), next_stamp_++});
    items_.push_back(std::move(item));
  }

  /// A capacity that holds one more element, growing by half as vectors do.
  template <class Elements>
  static std::size_t Grown(const Elements& elements) {
    const std::size_t needed = elements.size() + 1;
    return needed <= elements.capacity() ? needed : std::max(needed, elements.capacity() * 3 / 2);
  }

  void RemoveAt(std::size_t index) {
    items_.erase(items_.begin() + static_cast<std::ptrdiff_t>(index));
    if (tags_.empty()) return;
    stamps_.erase(tags_[index].key);
    tags_.erase(tags_.begin() + static_cast<std::ptrdiff_t>(index));
  }

  /// The key of an item, and a number that rises from item to item, so that a removal leaves the stamps of
  /// the items behind it as they are.
  struct Tag {
    String key;
    std::size_t stamp;
  };

  std::vector<T> items_;
  std::vector<Tag> tags_;  // empty until the first key comes, from then on one for each item
  std::unordered_map<String, std::size_t> stamps_;
  std::size_t next_stamp_ = 0;
};

/// A collection of records, shared by reference.
template <class T>
using CollectionRef = std::shared_ptr<Collection<Ref<T>>>;

/// A new empty collection of records.
template <class T>
CollectionRef<T> MakeCollection() {
  return std::make_shared<Collection<Ref<T>>>();
}

}  // namespace zelnor
