// Opens what is somewhere else.
#pragma once

#include <string>

namespace vellix {

class UrlOpener {
 public:
  virtual ~UrlOpener() = default;
  // Hands the URL to the program that the person uses for it. False when there is none to start.
  virtual bool open(const std::string& url) = 0;
};

}  // namespace vellix
