// The desktop's own choice of program.
#pragma once

#include "platform/ports/url_opener.hpp"

namespace vellix {

// Needs a QGuiApplication. Main thread.
class QtUrlOpener : public UrlOpener {
 public:
  bool open(const std::string& url) override;
};

}  // namespace vellix
