#import <AppKit/AppKit.h>

#include <QProcess>
#include <QWindow>

#include "platform/macos/grab_window.hpp"

namespace vellix {

void grabWindow(QWindow& window, const QString& path) {
  NSView* view = reinterpret_cast<NSView*>(window.winId());
  const auto number = QString::number(view.window.windowNumber);
  QProcess::execute("/usr/sbin/screencapture", {"-x", "-o", "-l" + number, path});
}

}  // namespace vellix
