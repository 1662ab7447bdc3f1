// The one file that knows simdjson: a walk over the parsed document, told by the descriptions.
#include <simdjson.h>

#include <array>
#include <bit>

#include "records/json.hpp"
#include "records/json_text.hpp"
#include "records/sample.hpp"

namespace vellix {
namespace {

namespace dom = simdjson::dom;

// A block of the heap costs its keeper, and the time to give it back, whatever it holds.
constexpr std::size_t kBlock = 64;

// What a text takes beside its own object: a short one lies inside.
std::size_t costOf(std::string_view text) {
  return text.size() <= std::string{}.capacity() ? 0 : text.size() + kBlock;
}

// Every reader returns an empty text, or why the value was refused; the path is put together only
// on the way back from a refusal.
class Walk {
 public:
  std::string where;
  std::string why;

  template <class T>
  bool read(dom::element from, T& to) {
    if constexpr (isA<T, std::optional>) {
      if (from.is_null()) {
        to.reset();
        return true;
      }
      return read(from, to.emplace());
    } else if constexpr (Described<T>) {
      return readRecord(from, to);
    } else if constexpr (isList<T>) {
      return readList(from, to);
    } else if constexpr (isA<T, std::map>) {
      return readMap(from, to);
    } else {
      return readScalar(from, to);
    }
  }

 private:
  bool refuse(std::string reason) {
    why = std::move(reason);
    return false;
  }
  bool take(std::size_t bytes) {
    if (bytes > left_) return refuse("the document is too large");
    left_ -= bytes;
    return true;
  }
  void under(std::string_view key) {
    where = where.empty() || where.front() == '[' ? std::string{key} + where
                                                  : std::string{key} + "." + where;
  }

  // The service writes a record's keys in the order of its fields: the walk expects the next
  // member and looks a key up by name only where that guess fails.
  template <class T>
  bool readRecord(dom::element from, T& to) {
    dom::object object;
    if (from.get_object().get(object)) return refuse("an object was expected");
    using Members = boost::describe::describe_members<T, boost::describe::mod_public>;
    constexpr std::size_t count = boost::mp11::mp_size<Members>::value;
    std::uint64_t seen = 0;
    static_assert(count <= 64);
    std::size_t next = 0;
    for (const auto field : object) {
      std::size_t at = next;
      if (at >= count || namesOf<T>()[at] != field.key) at = indexOf<T>(field.key);
      if (at == count) continue;
      next = at + 1;
      if (seen & (1ULL << at)) {
        under(field.key);
        return refuse("the key is repeated");
      }
      seen |= 1ULL << at;
      const bool taken = boost::mp11::mp_with_index<count>(at, [&](auto index) {
        return read(field.value, to.*boost::mp11::mp_at_c<Members, index.value>::pointer);
      });
      if (!taken) {
        under(field.key);
        return false;
      }
    }
    return requireAll<T>(seen);
  }

  template <class T>
  bool requireAll(std::uint64_t seen) {
    const std::uint64_t missing = requiredOf<T>() & ~seen;
    if (missing == 0) return true;
    under(namesOf<T>()[static_cast<std::size_t>(std::countr_zero(missing))]);
    return refuse("the value is missing");
  }

  template <class T>
  static const auto& namesOf() {
    using Members = boost::describe::describe_members<T, boost::describe::mod_public>;
    static const auto names = [] {
      std::array<std::string_view, boost::mp11::mp_size<Members>::value> all;
      std::size_t at = 0;
      forEachMember<T>([&](auto member) { all[at++] = member.name; });
      return all;
    }();
    return names;
  }

  template <class T>
  static std::size_t indexOf(std::string_view key) {
    const auto& names = namesOf<T>();
    return static_cast<std::size_t>(std::find(names.begin(), names.end(), key) - names.begin());
  }

  template <class T>
  static std::uint64_t requiredOf() {
    static const std::uint64_t required = [] {
      std::uint64_t bits = 0;
      std::uint64_t bit = 1;
      forEachMember<T>([&](auto member) {
        using Field = std::remove_cvref_t<decltype(std::declval<T>().*member.pointer)>;
        if constexpr (!isA<Field, std::optional>) bits |= bit;
        bit <<= 1;
      });
      return bits;
    }();
    return required;
  }

  template <class List>
  bool readList(dom::element from, List& to) {
    constexpr std::size_t each =
        sizeof(typename List::value_type) + (isA<List, SharedList> ? kBlock : 0);
    dom::array array;
    if (from.get_array().get(array)) return refuse("a list was expected");
    to.clear();
    // Two bytes of a hostile list would claim a record's worth of memory each.
    if (!take(array.size() * each + kBlock)) return false;
    to.reserve(array.size());
    for (const auto entry : array) {
      if (!read(entry, to.emplace_back())) {
        under("[" + std::to_string(to.size() - 1) + "]");
        return false;
      }
    }
    return true;
  }

  template <class T>
  bool readMap(dom::element from, std::map<std::string, T>& to) {
    dom::object object;
    if (from.get_object().get(object)) return refuse("an object was expected");
    to.clear();
    for (const auto field : object) {
      if (!take(sizeof(typename std::map<std::string, T>::value_type) + costOf(field.key) +
                kBlock)) {
        return false;
      }
      const auto [place, fresh] = to.try_emplace(std::string{field.key});
      if (!fresh) {
        under(field.key);
        return refuse("the key is repeated");
      }
      if (!read(field.value, place->second)) {
        under(field.key);
        return false;
      }
    }
    return true;
  }

  bool readScalar(dom::element from, std::string& to) {
    std::string_view text;
    if (from.get_string().get(text)) return refuse("a text was expected");
    if (!take(costOf(text))) return false;
    to.assign(text);
    return true;
  }
  bool readScalar(dom::element from, bool& to) {
    return from.get_bool().get(to) ? refuse("true or false was expected") : true;
  }
  bool readScalar(dom::element from, double& to) {
    return from.get_double().get(to) ? refuse("a number was expected") : true;
  }
  // A whole number may come with a fraction of zero, as 3.0.
  bool readScalar(dom::element from, Int& to) {
    if (!from.get_int64().get(to)) return true;
    double number = 0;
    if (from.is_uint64() || from.get_double().get(number)) {
      return refuse(from.is_number() ? "the number is out of range"
                                     : "a whole number was expected");
    }
    if (number != std::floor(number)) return refuse("a whole number was expected");
    // 2^63 itself is the first double that no longer fits.
    if (!(number >= -0x1p63 && number < 0x1p63)) return refuse("the number is out of range");
    to = static_cast<Int>(number);
    return true;
  }
  bool readScalar(dom::element from, Json& to) {
    switch (from.type()) {
      case dom::element_type::NULL_VALUE:
        to.value = nullptr;
        return true;
      case dom::element_type::BOOL:
        return read(from, to.value.emplace<bool>());
      case dom::element_type::INT64:
        return read(from, to.value.emplace<Int>());
      case dom::element_type::UINT64:
      case dom::element_type::DOUBLE:
        return read(from, to.value.emplace<double>());
      case dom::element_type::STRING:
        return read(from, to.value.emplace<std::string>());
      case dom::element_type::ARRAY:
        return read(from, to.value.emplace<Json::List>());
      case dom::element_type::OBJECT:
        return read(from, to.value.emplace<Json::Object>());
    }
    return refuse("no such kind of value");
  }

  std::size_t left_ = kMostDecoded;
};

}  // namespace

template <class T>
std::expected<T, DecodeFailure> decode(std::string_view json) {
  // The parser would copy from the null address of a view of nothing.
  if (json.empty()) return std::unexpected(DecodeFailure{"", "the document is empty"});
  // The parser takes up to 32 bytes a value before anything is refused.
  if (mostValues(json) > kMostValues)
    return std::unexpected(DecodeFailure{"", "it holds too many values"});
  dom::parser parser;
  dom::element root;
  auto error = parser.parse(json.data(), json.size()).get(root);
  if (error == simdjson::NUMBER_ERROR) {
    if (const auto other = withExponents(json)) error = parser.parse(*other).get(root);
  }
  if (error) {
    return std::unexpected(DecodeFailure{"", simdjson::error_message(error)});
  }
  T value;
  Walk walk;
  if (!walk.read(root, value)) {
    return std::unexpected(DecodeFailure{std::move(walk.where), std::move(walk.why)});
  }
  return value;
}

std::expected<Json, DecodeFailure> decodeJson(std::string_view json) { return decode<Json>(json); }

template std::expected<Json, DecodeFailure> decode(std::string_view);
template std::expected<BoardState, DecodeFailure> decode(std::string_view);
template std::expected<FileItem, DecodeFailure> decode(std::string_view);
template std::expected<Job, DecodeFailure> decode(std::string_view);
template std::expected<FileDetail, DecodeFailure> decode(std::string_view);
template std::expected<Sample, DecodeFailure> decode(std::string_view);
template std::expected<Stats, DecodeFailure> decode(std::string_view);
template std::expected<VersionInfo, DecodeFailure> decode(std::string_view);
template std::expected<SignInAnswer, DecodeFailure> decode(std::string_view);

}  // namespace vellix
