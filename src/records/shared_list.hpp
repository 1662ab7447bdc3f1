// A list of records that have ids, whose copies share them: a copy is one pointer, and comparing or
// freeing a list costs what is not shared. What is shared is copied when it is written to, so ask a
// constant list where nothing is to be written. Any thread may read a copy of its own, but only one
// may look for ids.
#pragma once

#include <algorithm>
#include <atomic>
#include <bit>
#include <compare>
#include <cstdint>
#include <initializer_list>
#include <iterator>
#include <memory>
#include <string_view>
#include <type_traits>
#include <vector>

namespace vellix {

template <class T>
class SharedList {
  template <bool writes>
  class Iterator {
    using List = std::conditional_t<writes, SharedList, const SharedList>;

   public:
    using iterator_category = std::random_access_iterator_tag;
    using value_type = T;
    using difference_type = std::ptrdiff_t;
    using pointer = std::conditional_t<writes, T, const T>*;
    using reference = std::conditional_t<writes, T, const T>&;

    Iterator() = default;
    Iterator(List* list, difference_type at) : list_(list), at_(at) {}
    reference operator*() const { return (*list_)[static_cast<std::size_t>(at_)]; }
    pointer operator->() const { return &**this; }
    reference operator[](difference_type by) const { return *(*this + by); }
    Iterator& operator+=(difference_type by) { return at_ += by, *this; }
    Iterator& operator-=(difference_type by) { return at_ -= by, *this; }
    Iterator& operator++() { return *this += 1; }
    Iterator& operator--() { return *this -= 1; }
    Iterator operator++(int) { return {list_, at_++}; }
    Iterator operator--(int) { return {list_, at_--}; }
    friend Iterator operator+(Iterator from, difference_type by) { return from += by; }
    friend Iterator operator+(difference_type by, Iterator from) { return from += by; }
    friend Iterator operator-(Iterator from, difference_type by) { return from -= by; }
    friend difference_type operator-(Iterator one, Iterator other) { return one.at_ - other.at_; }
    friend bool operator==(Iterator one, Iterator other) { return one.at_ == other.at_; }
    friend auto operator<=>(Iterator one, Iterator other) { return one.at_ <=> other.at_; }

   private:
    List* list_ = nullptr;
    difference_type at_ = 0;
  };

 public:
  using value_type = T;
  using reference = T&;
  using const_reference = const T&;
  using size_type = std::size_t;
  using difference_type = std::ptrdiff_t;
  using iterator = Iterator<true>;
  using const_iterator = Iterator<false>;

  SharedList() = default;
  SharedList(std::initializer_list<T> records) : SharedList(std::vector<T>(records)) {}
  SharedList(std::vector<T> records) {
    reserve(records.size());
    for (T& record : records) push_back(std::move(record));
  }

  std::size_t size() const { return entries().size(); }
  bool empty() const { return entries().empty(); }

  const T& operator[](std::size_t at) const { return *entries()[at]; }
  const T& front() const { return (*this)[0]; }
  const T& back() const { return (*this)[size() - 1]; }
  const_iterator begin() const { return {this, 0}; }
  const_iterator end() const { return {this, static_cast<difference_type>(size())}; }

  T& operator[](std::size_t at) {
    Entry& entry = own().entries[at];
    if (isShared(entry)) entry = std::make_shared<T>(*entry);
    return *entry;
  }
  T& front() { return (*this)[0]; }
  T& back() { return (*this)[size() - 1]; }
  iterator begin() { return {this, 0}; }
  iterator end() { return {this, static_cast<difference_type>(size())}; }

  void reserve(std::size_t count) { own().entries.reserve(count); }
  void clear() { held_.reset(); }
  void pop_back() { own().entries.pop_back(); }
  void push_back(T record) { emplace_back() = std::move(record); }
  T& emplace_back() { return *own().entries.emplace_back(std::make_shared<T>()); }
  void resize(std::size_t count) {
    if (count < size()) own().entries.resize(count);
    while (size() < count) emplace_back();
  }
  void erase(iterator first, iterator last) {
    auto& entries = own().entries;
    entries.erase(entries.begin() + (first - begin()), entries.begin() + (last - begin()));
  }
  void erase(iterator at) { erase(at, at + 1); }
  template <class Condition>
  void eraseIf(Condition condition) {
    std::erase_if(own().entries,
                  [&](const Entry& entry) { return condition(static_cast<const T&>(*entry)); });
  }

  // The first with that id; null when there is none. The ids are looked up at the first call.
  const T* find(std::string_view id) const {
    const std::size_t at = placeOf(id);
    return at < size() ? entries()[at].get() : nullptr;
  }
  // Its place in the list; `size()` or more when there is none.
  std::size_t placeOf(std::string_view id) const {
    if (empty()) return 0;
    if (held_->places.empty()) held_->places = placesOf(entries());
    return placeOf(id, entries(), held_->places);
  }

  // Takes the other's records in place of equal ones, and looks the ids up ahead.
  void shareWith(const SharedList& other) {
    if (empty()) return;
    const Places known = placesOf(other.entries());
    Held& held = own();
    for (Entry& entry : held.entries) {
      const std::size_t at = placeOf(entry->id, other.entries(), known);
      if (at < other.size() && *other.entries()[at] == *entry) entry = other.entries()[at];
    }
    held.places = held.entries == other.entries() ? known : placesOf(held.entries);
  }

  bool operator==(const SharedList& other) const {
    return held_ == other.held_ ||
           std::ranges::equal(entries(), other.entries(), [](const Entry& one, const Entry& two) {
             return one == two || *one == *two;
           });
  }

 private:
  using Entry = std::shared_ptr<T>;
  using Entries = std::vector<Entry>;
  using Places = std::vector<std::uint32_t>;  // a table by hashes: 0, or one more than an index
  struct Held {
    Entries entries;
    mutable Places places;  // empty until they are asked for
  };

  const Entries& entries() const {
    static const Entries none;
    return held_ ? held_->entries : none;
  }

  // Another thread may have read its copy until a moment ago.
  template <class Kept>
  static bool isShared(const std::shared_ptr<Kept>& kept) {
    if (kept.use_count() != 1) return true;
    std::atomic_thread_fence(std::memory_order_acquire);
    return false;
  }

  Held& own() {
    if (!held_) held_ = std::make_shared<Held>();
    if (isShared(held_)) held_ = std::make_shared<Held>(Held{held_->entries, {}});
    held_->places.clear();
    return *held_;
  }

  // Where that id is in the table, or would be.
  static std::size_t slotOf(std::string_view id, const Entries& entries, const Places& places) {
    const std::size_t last = places.size() - 1;
    std::size_t slot = std::hash<std::string_view>{}(id)&last;
    while (places[slot] != 0 && entries[places[slot] - 1]->id != id) slot = (slot + 1) & last;
    return slot;
  }

  static std::size_t placeOf(std::string_view id, const Entries& entries, const Places& places) {
    return std::size_t{places[slotOf(id, entries, places)]} - 1;
  }

  static Places placesOf(const Entries& entries) {
    Places places(std::bit_ceil(2 * entries.size() + 1));
    for (std::size_t at = 0; at < entries.size(); ++at) {
      std::uint32_t& place = places[slotOf(entries[at]->id, entries, places)];
      if (place == 0) place = static_cast<std::uint32_t>(at + 1);
    }
    return places;
  }

  std::shared_ptr<Held> held_;
};

}  // namespace vellix
