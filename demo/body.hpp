// Reading a request's JSON body: none for a key that is missing or of another type.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "records/json.hpp"

namespace vellix::demo {

std::optional<double> numberAt(const Json& body, const std::string& key);
std::optional<bool> flagAt(const Json& body, const std::string& key);
std::optional<std::string> textAt(const Json& body, const std::string& key);
// The texts of a list; entries of other types are passed over.
std::vector<std::string> textsAt(const Json& body, const std::string& key);

}  // namespace vellix::demo
