// How the person wants programs to look, as far as the desktop says.
#pragma once

namespace vellix {

enum class Scheme { unset, light, dark };

struct Look {
  Scheme scheme = Scheme::unset;
  bool reducedMotion = false;
  bool operator==(const Look&) const = default;
};

}  // namespace vellix
