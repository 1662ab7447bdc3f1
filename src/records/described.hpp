// What a description gives for free: the concept of a described value, and its hash.
#pragma once

#include <boost/describe.hpp>
#include <boost/mp11.hpp>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <type_traits>
#include <vector>

#include "records/shared_list.hpp"

namespace vellix {

template <class T>
concept Described = std::is_class_v<T> && boost::describe::has_describe_members<T>::value;

// Visits the members of a described type in declared order: f(descriptor).
template <Described T, class F>
constexpr void forEachMember(F&& f) {
  using Members = boost::describe::describe_members<T, boost::describe::mod_public>;
  boost::mp11::mp_for_each<Members>(std::forward<F>(f));
}

inline std::size_t mixHash(std::size_t seed, std::size_t value) {
  return seed ^ (value + 0x9e3779b97f4a7c15ULL + (seed << 6) + (seed >> 2));
}

template <class T, template <class...> class Template>
inline constexpr bool isA = false;
template <class... Args, template <class...> class Template>
inline constexpr bool isA<Template<Args...>, Template> = true;

template <class T>
inline constexpr bool isList = isA<T, std::vector> || isA<T, SharedList>;

// Hash of a described value, over all its fields, through optionals, vectors and maps.
template <class T>
std::size_t hashOf(const T& value) {
  if constexpr (Described<T>) {
    std::size_t seed = 0;
    forEachMember<T>([&](auto member) { seed = mixHash(seed, hashOf(value.*member.pointer)); });
    return seed;
  } else if constexpr (isA<T, std::optional>) {
    return value ? mixHash(1, hashOf(*value)) : 0;
  } else if constexpr (isList<T>) {
    std::size_t seed = value.size();
    for (const auto& entry : value) seed = mixHash(seed, hashOf(entry));
    return seed;
  } else if constexpr (isA<T, std::map>) {
    std::size_t seed = value.size();
    for (const auto& [key, entry] : value)
      seed = mixHash(mixHash(seed, hashOf(key)), hashOf(entry));
    return seed;
  } else {
    return std::hash<T>{}(value);
  }
}

}  // namespace vellix

template <vellix::Described T>
struct std::hash<T> {
  std::size_t operator()(const T& value) const { return vellix::hashOf(value); }
};
