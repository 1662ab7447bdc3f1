// Which of two texts wants more room, where no face is known.
#pragma once

#include <string_view>

namespace vellix {

// About how wide a line is, in tenths of a digit. What is far too long for a bar counts alike.
int roughWidth(std::string_view text);

}  // namespace vellix
