#include "HelpTip.hpp"

#include <QGuiApplication>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickWindow>

namespace vellix {
namespace {

constexpr int kRest = 600;

}  // namespace

HelpTip::HelpTip(QObject* parent) : QObject(parent) {
  rest_.setSingleShot(true);
  rest_.setInterval(kRest);
  connect(&rest_, &QTimer::timeout, this, &HelpTip::appear);
}

HelpTip* HelpTip::only() {
  static QPointer<HelpTip> tip;
  if (!tip) tip = new HelpTip(qApp);
  return tip;
}

void HelpTip::show(QQuickItem* owner, const QString& text, const QRectF& part) {
  if (text.isEmpty()) return;
  HelpTip* tip = only();
  tip->vanish();
  tip->owner_ = owner;
  tip->text_ = text;
  tip->part_ = part;
  tip->rest_.start();
}

void HelpTip::reword(QQuickItem* owner, const QString& text, const QRectF& part) {
  HelpTip* tip = only();
  if (tip->owner_ != owner) return;
  tip->text_ = text;
  tip->part_ = part;
  if (text.isEmpty()) {
    hide(owner);
  } else if (tip->bubble_) {
    tip->bubble_->setProperty("text", text);
  }
}

void HelpTip::hide(QQuickItem* owner) {
  HelpTip* tip = only();
  if (tip->owner_ != owner) return;
  tip->rest_.stop();
  tip->owner_.clear();
  tip->vanish();
}

void HelpTip::appear() {
  if (!owner_ || !owner_->isVisible() || !owner_->window()) return;
  QQmlEngine* engine = qmlEngine(owner_);
  for (QQuickItem* item = owner_; !engine && item; item = item->parentItem()) {
    engine = qmlEngine(item);
  }
  if (!engine) return;
  QQmlComponent component(engine, QUrl(QStringLiteral("qrc:/qt/qml/Vellix/Pieces/HelpBubble.qml")));
  QQuickItem* scene = owner_->window()->contentItem();
  const QRectF target = owner_->mapRectToScene(part_.isNull() ? owner_->boundingRect() : part_);
  QObject* made = component.createWithInitialProperties(
      {{QStringLiteral("text"), text_}, {QStringLiteral("target"), target}});
  auto* bubble = qobject_cast<QQuickItem*>(made);
  if (!bubble) {
    delete made;
    qWarning("%s", qPrintable(component.errorString()));
    return;
  }
  bubble->setParent(scene);
  bubble->setParentItem(scene);
  bubble_ = bubble;
  connect(owner_, &QObject::destroyed, bubble, &QObject::deleteLater);
}

void HelpTip::vanish() {
  if (bubble_) bubble_->deleteLater();
  bubble_.clear();
}

}  // namespace vellix
