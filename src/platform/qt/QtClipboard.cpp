#include "platform/qt/QtClipboard.hpp"

#include <QClipboard>
#include <QGuiApplication>

namespace vellix {

void QtClipboard::put(const std::string& text) {
  QGuiApplication::clipboard()->setText(QString::fromStdString(text));
}

}  // namespace vellix
