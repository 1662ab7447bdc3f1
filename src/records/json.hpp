// The JSON codec of described values. Keys are the fields' names; nothing is transformed.
// Decoding: a required field missing, null or of the wrong type, an integer out of range, a
// repeated key of a known field, nesting beyond 1,024 levels, or more than the bounds below fails
// the whole document; unknown keys are skipped; an optional that is missing or null is none.
// Encoding: fields in declared order, absent optionals left out; fails on numbers and text that
// JSON cannot hold.
#pragma once

#include <charconv>
#include <cmath>
#include <expected>
#include <string>
#include <string_view>
#include <variant>

#include "records/described.hpp"
#include "records/records.hpp"

namespace vellix {

// A value whose shape the caller does not know beforehand.
struct Json {
  using List = std::vector<Json>;
  using Object = std::map<std::string, Json>;
  std::variant<std::nullptr_t, bool, Int, double, std::string, List, Object> value = nullptr;
  const std::string* text() const { return std::get_if<std::string>(&value); }
  const Object* object() const { return std::get_if<Object>(&value); }
  const Json* find(const std::string& key) const;  // null unless an object that has the key
  bool operator==(const Json&) const = default;
};

// A document may be a list of nothing much that decodes to hundreds of times its size, so what it
// decodes to is bounded: in bytes, with each text, list and entry of a map on the heap counted for
// 64 more, and in values, which bounds what parsing takes.
// 10,000 tickets with all that is known of them take 4/5 of the one and an eighth of the other.
inline constexpr std::size_t kMostDecoded = std::size_t{40} << 20;
inline constexpr std::size_t kMostValues = 4'000'000;

struct DecodeFailure {
  std::string where;  // the path to the value, such as "files[3].status"
  std::string why;
};
struct EncodeFailure {
  std::string why;
};

// Instantiated for Json, BoardState, FileDetail, Stats, VersionInfo and SignInAnswer, and the
// records below them. Any thread.
template <class T>
std::expected<T, DecodeFailure> decode(std::string_view json);

std::expected<Json, DecodeFailure> decodeJson(std::string_view json);

template <class T>
std::expected<std::string, EncodeFailure> encode(const T& value);

namespace detail {

class Encoder {
 public:
  std::string out;
  std::string failure;

  template <class T>
  void write(const T& value) {
    if constexpr (Described<T>) {
      bool first = true;
      out += '{';
      forEachMember<T>(
          [&](auto member) { writeMember(member.name, value.*member.pointer, first); });
      out += '}';
    } else if constexpr (isList<T>) {
      out += '[';
      for (std::size_t i = 0; i < value.size(); ++i) {
        if (i > 0) out += ',';
        write(value[i]);
      }
      out += ']';
    } else if constexpr (isA<T, std::map>) {
      bool first = true;
      out += '{';
      for (const auto& [key, entry] : value) writeMember(key, entry, first);
      out += '}';
    } else {
      writeScalar(value);
    }
  }

 private:
  template <class T>
  void writeMember(std::string_view key, const T& value, bool& first) {
    if constexpr (isA<T, std::optional>) {
      if (value) writeMember(key, *value, first);
    } else {
      if (!first) out += ',';
      first = false;
      writeScalar(key);
      out += ':';
      write(value);
    }
  }
  void writeScalar(bool value) { out += value ? "true" : "false"; }
  void writeScalar(Int value) { out += std::to_string(value); }
  void writeScalar(double value);
  void writeScalar(std::string_view value);
};

}  // namespace detail

template <class T>
std::expected<std::string, EncodeFailure> encode(const T& value) {
  detail::Encoder encoder;
  encoder.write(value);
  if (!encoder.failure.empty()) return std::unexpected(EncodeFailure{encoder.failure});
  return std::move(encoder.out);
}

// The largest are compiled once, since each brings the code of all the records below it.
extern template std::expected<std::string, EncodeFailure> encode(const BoardState&);
extern template std::expected<std::string, EncodeFailure> encode(const FileDetail&);

}  // namespace vellix
