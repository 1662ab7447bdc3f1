#include "body.hpp"

namespace vellix::demo {

std::optional<double> numberAt(const Json& body, const std::string& key) {
  const Json* found = body.find(key);
  if (found == nullptr) return std::nullopt;
  if (const auto* whole = std::get_if<Int>(&found->value)) return static_cast<double>(*whole);
  if (const auto* number = std::get_if<double>(&found->value)) return *number;
  return std::nullopt;
}

std::optional<bool> flagAt(const Json& body, const std::string& key) {
  const Json* found = body.find(key);
  if (found == nullptr) return std::nullopt;
  if (const auto* flag = std::get_if<bool>(&found->value)) return *flag;
  return std::nullopt;
}

std::optional<std::string> textAt(const Json& body, const std::string& key) {
  const Json* found = body.find(key);
  return found != nullptr && found->text() != nullptr ? std::optional(*found->text())
                                                      : std::nullopt;
}

std::vector<std::string> textsAt(const Json& body, const std::string& key) {
  std::vector<std::string> texts;
  const Json* found = body.find(key);
  if (found == nullptr) return texts;
  if (const auto* list = std::get_if<Json::List>(&found->value)) {
    for (const Json& entry : *list) {
      if (entry.text() != nullptr) texts.push_back(*entry.text());
    }
  }
  return texts;
}

}  // namespace vellix::demo
