// Every record as hand-written JSON: its fields in wire order, with a value each, and a document
// that holds it. Doubles are written with a fraction and whole numbers without one.
#pragma once

#include <gmock/gmock.h>

#include <functional>
#include <string>
#include <vector>

#include "records/json.hpp"

namespace vellix::test {

enum class Presence { required, optional };

struct Field {
  std::string key;
  Presence presence;
  std::string value;
};

using Fields = std::vector<Field>;

std::string objectOf(const Fields& fields);
Fields requiredOf(const Fields& fields);
Fields without(const Fields& fields, const std::string& key);
Fields with(const Fields& fields, const std::string& key, const std::string& value);

using Recoded = std::expected<std::string, DecodeFailure>;

struct RecordCase {
  std::string name;
  std::string path;      // to the record, in its document
  std::string document;  // with @@ in the place of the record
  Fields fields;
  std::function<Recoded(std::string_view)> recode;  // decodes the document and encodes it again

  std::string documentWith(const std::string& record) const;
  std::string documentWith(const Fields& record) const { return documentWith(objectOf(record)); }
  std::string pathTo(const std::string& key) const { return path.empty() ? key : path + "." + key; }
};
BOOST_DESCRIBE_STRUCT(RecordCase, (), (name))

template <class T>
Recoded recode(std::string_view json) {
  auto value = decode<T>(json);
  if (!value) return std::unexpected(value.error());
  auto text = encode(*value);
  if (!text) return std::unexpected(DecodeFailure{"encode", text.error().why});
  return *text;
}

std::vector<RecordCase> boardCases();
std::vector<RecordCase> ticketCases();
std::vector<RecordCase> jobCases();
std::vector<RecordCase> detailCases();
std::vector<RecordCase> statsCases();
std::vector<RecordCase> allCases();

// The document of the named record with all its fields.
std::string fullDocument(const std::string& name);

// The decoded document; a failure fails the test.
template <class T>
T decoded(std::string_view json) {
  auto value = decode<T>(json);
  if (value) return *std::move(value);
  ADD_FAILURE() << "at '" << value.error().where << "': " << value.error().why;
  return {};
}

}  // namespace vellix::test
