#include "records/record_cases.hpp"

#include <algorithm>

namespace vellix::test {

std::string objectOf(const Fields& fields) {
  std::string text;
  for (const auto& field : fields) {
    text += (text.empty() ? "\"" : ",\"") + field.key + "\":" + field.value;
  }
  return "{" + text + "}";
}

Fields requiredOf(const Fields& fields) {
  Fields kept;
  std::ranges::copy_if(fields, std::back_inserter(kept),
                       [](const auto& field) { return field.presence == Presence::required; });
  return kept;
}

Fields without(const Fields& fields, const std::string& key) {
  Fields kept;
  std::ranges::copy_if(fields, std::back_inserter(kept),
                       [&](const auto& field) { return field.key != key; });
  return kept;
}

Fields with(const Fields& fields, const std::string& key, const std::string& value) {
  Fields changed = fields;
  for (auto& field : changed) {
    if (field.key == key) field.value = value;
  }
  return changed;
}

std::string RecordCase::documentWith(const std::string& record) const {
  std::string text = document;
  return text.replace(text.find("@@"), 2, record);
}

std::vector<RecordCase> allCases() {
  std::vector<RecordCase> all;
  for (const auto& part : {boardCases(), ticketCases(), jobCases(), detailCases(), statsCases()}) {
    all.insert(all.end(), part.begin(), part.end());
  }
  return all;
}

std::string fullDocument(const std::string& name) {
  for (const auto& each : allCases()) {
    if (each.name == name) return each.documentWith(each.fields);
  }
  ADD_FAILURE() << "there is no record " << name;
  return "";
}

}  // namespace vellix::test
