// What the command line asks of a program that stages itself without its service and takes a
// picture of its own window.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vellix {

using Arguments = std::vector<std::string>;  // the program's name among them

// What follows the first `name`; none when it is not there or comes last.
std::optional<std::string> argument(const Arguments& arguments, std::string_view name);
bool hasFlag(const Arguments& arguments, std::string_view name);

// Where the picture goes. None: nothing is staged, whatever else is asked for.
inline std::optional<std::string> shotPath(const Arguments& arguments) {
  return argument(arguments, "--shot");
}

// The panel that stands alone in the window; empty for the whole program.
std::string panelAlone(const Arguments& arguments);

// Taking pictures or showing one panel, it is nobody's application: it polls no board, and neither
// meets a running one nor stands in its way.
inline bool standsApart(const Arguments& arguments) {
  return shotPath(arguments) || !panelAlone(arguments).empty();
}

// A finite number and nothing else.
std::optional<double> numberIn(std::string_view text);

struct ContentSize {
  int width = 0;  // logical pixels
  int height = 0;
  bool operator==(const ContentSize&) const = default;
};
// "800x600". Parts that are no numbers are passed over; none unless two are left.
std::optional<ContentSize> contentSize(std::string_view text);

// The key of a sample's picture by its file name; none when the file is no picture.
std::optional<std::string> sampleKey(std::string_view fileName);

}  // namespace vellix
