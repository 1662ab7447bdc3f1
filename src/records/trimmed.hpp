// Texts without the blanks around them.
#pragma once

#include <string_view>

namespace vellix {

// Without white space and line ends, Unicode's as well, at either end. A view into `text`.
std::string_view trimmed(std::string_view text);

}  // namespace vellix
