// Where a bundle stands.
#pragma once

#include <string>

namespace vellix {

struct Place {
  std::string parent;  // the folder that holds it
  std::string name;
};

// Of a path without an end: both are empty for one that has no folder.
Place placeOf(std::string path);

}  // namespace vellix
