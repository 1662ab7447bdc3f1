// How a described value reads in the name of a test and where one fails: {name: "late", ahead: 3},
// with what is none left out. It stands in front of all logic and view tests, so that no two of
// their files print a type in different ways.
#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <concepts>
#include <ostream>
#include <ranges>
#include <string_view>

#include "records/records.hpp"

namespace vellix::test {

template <class T>
inline constexpr bool isTime = false;
template <class... Args>
inline constexpr bool isTime<std::chrono::time_point<Args...>> = true;

template <class Time>
void writeTime(Time time, std::ostream& out) {
  const auto day = std::chrono::floor<std::chrono::days>(time);
  const std::chrono::year_month_day date{day};
  const std::chrono::hh_mm_ss clock{std::chrono::floor<std::chrono::seconds>(time - day)};
  out << int{date.year()} << '-' << unsigned{date.month()} << '-' << unsigned{date.day()} << ' '
      << clock.hours().count() << ':' << clock.minutes().count() << ':' << clock.seconds().count();
}

// In one line, whatever is in it.
inline void writeText(std::string_view text, std::ostream& out) {
  out << '"';
  for (const char c : text) {
    if (static_cast<unsigned char>(c) >= 0x20 && c != 0x7f)
      out << c;
    else
      out << "\\x" << "0123456789abcdef"[c >> 4] << "0123456789abcdef"[c & 15];
  }
  out << '"';
}

template <class T>
void writeWords(const T& value, std::ostream& out);

// f(entry) for each, with commas between.
template <class Entries, class F>
void writeEach(const Entries& entries, std::ostream& out, F f) {
  out << '{';
  const char* between = "";
  for (const auto& entry : entries) {
    out << between;
    f(entry);
    between = ", ";
  }
  out << '}';
}

template <Described T>
void writeFields(const T& value, std::ostream& out) {
  out << '{';
  const char* between = "";
  forEachMember<T>([&](auto member) {
    const auto& field = value.*member.pointer;
    if constexpr (isA<std::remove_cvref_t<decltype(field)>, std::optional>)
      if (!field) return;
    out << between << member.name << ": ";
    writeWords(field, out);
    between = ", ";
  });
  out << '}';
}

// What has no words here does not compile: a table's description leaves it out.
template <class T>
void writeWords(const T& value, std::ostream& out) {
  if constexpr (std::convertible_to<T, std::string_view>) {
    writeText(value, out);
  } else if constexpr (std::same_as<T, bool>) {
    out << (value ? "true" : "false");
  } else if constexpr (std::is_arithmetic_v<T>) {
    out << value;
  } else if constexpr (isTime<T>) {
    writeTime(value, out);
  } else if constexpr (isA<T, std::optional>) {
    if (value)
      writeWords(*value, out);
    else
      out << "none";
  } else if constexpr (isA<T, std::pair>) {
    writeWords(value.first, out);
    out << ": ";
    writeWords(value.second, out);
  } else if constexpr (std::ranges::range<T>) {
    writeEach(value, out, [&](const auto& entry) { writeWords(entry, out); });
  } else {
    writeFields(value, out);
  }
}

// The largest are compiled once, since each brings the code of all the records below it.
extern template void writeWords(const BoardState&, std::ostream&);
extern template void writeWords(const FileDetail&, std::ostream&);
extern template void writeWords(const FileItem&, std::ostream&);

}  // namespace vellix::test

// A table's rows are types of an unnamed namespace, where no other function would be looked up.
template <vellix::Described T>
  requires(!std::is_const_v<T>)
class testing::internal::UniversalPrinter<T> {
 public:
  static void Print(const T& value, std::ostream* out) { vellix::test::writeWords(value, *out); }
};
