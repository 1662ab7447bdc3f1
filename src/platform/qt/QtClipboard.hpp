// The desktop's clipboard.
#pragma once

#include "platform/ports/clipboard.hpp"

namespace vellix {

// Needs a QGuiApplication. Main thread.
class QtClipboard : public Clipboard {
 public:
  void put(const std::string& text) override;
};

}  // namespace vellix
