#include "update/place.hpp"

#include <utility>

namespace vellix {

Place placeOf(std::string path) {
  while (path.size() > 1 && path.ends_with('/')) path.pop_back();
  const auto slash = path.rfind('/');
  if (slash == std::string::npos || slash + 1 == path.size()) return {};
  return {.parent = path.substr(0, slash), .name = path.substr(slash + 1)};
}

}  // namespace vellix
