// The one help bubble of the program. It appears under an item that the pointer rests on, and is
// built when first needed. Main thread only.
#pragma once

#include <QPointer>
#include <QQuickItem>
#include <QString>
#include <QTimer>

namespace vellix {

class HelpTip : public QObject {
 public:
  // Shows `text` after a rest of the pointer; nothing for an empty text. It is about all of the
  // item, or this part of it.
  static void show(QQuickItem* owner, const QString& text, const QRectF& part = {});
  static void reword(QQuickItem* owner, const QString& text, const QRectF& part = {});
  static void hide(QQuickItem* owner);

 private:
  explicit HelpTip(QObject* parent);
  static HelpTip* only();
  void appear();
  void vanish();

  QTimer rest_;
  QPointer<QQuickItem> owner_;
  QPointer<QQuickItem> bubble_;
  QString text_;
  QRectF part_;  // of the owner; null for all of it
};

}  // namespace vellix
