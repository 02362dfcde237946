#pragma once

/// @file
/// The keyed ordered collection that holds children everywhere.

#include "zelnor/platform/failure.h"
#include "zelnor/platform/text.h"
#include "zelnor/platform/values.h"

#include <algorithm>
#include <cstddef>
#include <unordered_map>
#include <vector>

namespace zelnor {

/// Items in the order in which they were added, reached by position (from 1) or by an optional key, which is
/// unique and compared ignoring case.
///
/// @code
/// Collection<Ref<clsEmployee>> employees;
/// employees.Add(employee);
/// for (const Ref<clsEmployee>& each : employees) ...
/// @endcode
template <class T>
class Collection {
 public:
  /// Appends an item. A key that is already there raises error 457, and nothing is added.
  void Add(T item, std::string_view key = {}) {
    String folded = LowerCase(key);
    if (!folded.empty()) {
      if (keys_.contains(folded)) ThrowDuplicateKey();
      keys_.emplace(folded, items_.size());
    }
    items_.push_back(std::move(item));
    if (!folded.empty() || !item_keys_.empty()) {
      item_keys_.resize(items_.size());
      item_keys_.back() = std::move(folded);
    }
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
  bool Contains(std::string_view key) const { return keys_.contains(LowerCase(key)); }

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
    const auto found = keys_.find(LowerCase(key));
    if (found == keys_.end()) ThrowInvalidArgument();
    return found->second;
  }

  void RemoveAt(std::size_t index) {
    items_.erase(items_.begin() + static_cast<std::ptrdiff_t>(index));
    if (item_keys_.empty()) return;
    keys_.erase(item_keys_[index]);
    item_keys_.erase(item_keys_.begin() + static_cast<std::ptrdiff_t>(index));
    for (auto& [key, position] : keys_) {
      if (position > index) --position;
    }
  }

  std::vector<T> items_;
  std::vector<String> item_keys_;  // empty until the first key comes
  std::unordered_map<String, std::size_t> keys_;
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
