// The first letter of a text in the other case.
#pragma once

#include <string>
#include <string_view>

namespace vellix {

// "renny" as "Renny", "élan" as "Élan". What begins with no letter stays as it is.
std::string capitalised(std::string_view text);
// "Marked reviewed" as "marked reviewed"; the rest as it is.
std::string lowered(std::string_view text);

}  // namespace vellix
