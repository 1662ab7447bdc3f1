// Names that nobody else has and nobody can guess.
#pragma once

#include <string>

namespace vellix {

class Uuids {
 public:
  virtual ~Uuids() = default;
  virtual std::string fresh() = 0;  // a random UUID in text form, 32 hexadecimal digits and "-"
};

}  // namespace vellix
