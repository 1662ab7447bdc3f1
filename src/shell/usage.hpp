// What the program says of itself on the command line, instead of starting.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "shell/staging.hpp"

namespace vellix {

struct Flag {
  std::string_view name;
  std::string_view value;  // what follows it; empty when nothing does
  std::string_view effect;
};

// Every flag that the program knows, in the order in which they are told.
std::span<const Flag> flags();

// The text that "--help" or "--version" asks for, lines and all; none when the program is to start.
std::optional<std::string> usage(const Arguments& arguments);

}  // namespace vellix
