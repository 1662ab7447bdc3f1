// What the user can see of the program.
#pragma once

namespace vellix {

class Windows {
 public:
  virtual ~Windows() = default;
  // The application is the active one and at least one of its windows is visible, not occluded.
  virtual bool seen() const = 0;
};

}  // namespace vellix
