// Keeps the shapes of a long paragraph from where it is laid out to where it is drawn. At each key
// a TextEdit lays its paragraph out anew, and would work all of the shapes out twice.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>
#include <QPointer>
#include <QQuickTextDocument>

namespace vellix {

class LongText : public QObject {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(
      QQuickTextDocument* document READ document WRITE setDocument NOTIFY documentChanged REQUIRED)

 public:
  // In characters. What is shorter costs nothing that is felt, and holds no memory for it.
  static constexpr int kLong = 2'000;

  using QObject::QObject;

  QQuickTextDocument* document() const { return document_; }
  void setDocument(QQuickTextDocument* document);

 signals:
  void documentChanged();

 private:
  QPointer<QQuickTextDocument> document_;
};

}  // namespace vellix
