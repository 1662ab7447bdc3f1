#include "platform/qt/QtUrlOpener.hpp"

#include <QDesktopServices>
#include <QUrl>

namespace vellix {

bool QtUrlOpener::open(const std::string& url) {
  return QDesktopServices::openUrl(QUrl::fromEncoded(QByteArray::fromStdString(url)));
}

}  // namespace vellix
