// Tells views what is a web or mail address, as the logic has it.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>
#include <QUrl>

#include "gateway/url.hpp"

namespace vellix {

class LinkTarget : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_SINGLETON

 public:
  using QObject::QObject;

  Q_INVOKABLE static bool opens(const QUrl& url) {
    return isLinkTarget(url.toString(QUrl::FullyEncoded).toStdString());
  }
};

}  // namespace vellix
