// What is asked of a JSON text before it is parsed.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace vellix {

// At least as many as there are values: all but the first follow a comma or open something. Those
// that stand in texts are counted too.
std::size_t mostValues(std::string_view json);

// The parser refuses whole numbers of more than 64 bits, which others may well write, if only under
// a key that nobody reads here. With an exponent they are doubles. None when there are no such.
std::optional<std::string> withExponents(std::string_view json);

}  // namespace vellix
