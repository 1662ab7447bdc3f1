// What a start of the program asks for, this one's or a later one's.
#pragma once

#include <QByteArray>
#include <QStringList>

namespace vellix {

// The window in front, and what there is to open.
struct StartRequest {
  QStringList urls;
  // Lets the window come to the front where the desktop guards it; empty without one.
  QByteArray activationToken;
  bool operator==(const StartRequest&) const = default;
};

}  // namespace vellix
