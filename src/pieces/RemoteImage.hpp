// Shows the picture of one blob key, with a plain ground until it is here. A new key's picture
// takes the old one's place when it is ready, so stepping through pages never shows a gap; one
// that cannot be had leaves the ground. No key asks for nothing and leaves what is on show.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QColor>
#include <QPointer>
#include <QQuickItem>

#include "pieces/PictureSource.hpp"

namespace vellix {

class RemoteImage : public QQuickItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(vellix::PictureSource* pictures READ pictures WRITE setPictures NOTIFY picturesChanged)
  Q_PROPERTY(QString key READ key WRITE setKey NOTIFY keyChanged)   // empty for none
  Q_PROPERTY(bool fill READ fill WRITE setFill NOTIFY fillChanged)  // fills and crops, or fits
  // The picture fills the ellipse that fits in; the ground stays as it is.
  Q_PROPERTY(bool round READ round WRITE setRound NOTIFY roundChanged)
  Q_PROPERTY(QColor placeholder READ placeholder WRITE setPlaceholder NOTIFY placeholderChanged)
  Q_PROPERTY(bool ready READ ready NOTIFY readyChanged)  // a picture is on show

 public:
  explicit RemoteImage(QQuickItem* parent = nullptr);

  PictureSource* pictures() const { return pictures_; }
  void setPictures(PictureSource* pictures);
  QString key() const { return key_; }
  void setKey(const QString& key);
  bool fill() const { return fill_; }
  void setFill(bool fill);
  bool round() const { return round_; }
  void setRound(bool round);
  QColor placeholder() const { return placeholder_; }
  void setPlaceholder(const QColor& colour);
  bool ready() const { return !image_.isNull(); }

 signals:
  void picturesChanged();
  void keyChanged();
  void fillChanged();
  void roundChanged();
  void placeholderChanged();
  void readyChanged();

 protected:
  void componentComplete() override;
  void geometryChange(const QRectF& now, const QRectF& before) override;
  void itemChange(ItemChange change, const ItemChangeData& data) override;
  void updatePolish() override;
  QSGNode* updatePaintNode(QSGNode* node, UpdatePaintNodeData* data) override;

 private:
  void ask();  // looks again for the right pixels at the next polish
  void answer(QImage image);
  void show(QImage image);
  QSize shownPixels() const;
  QImage cutRound() const;

  QPointer<PictureSource> pictures_;
  QString key_;
  bool fill_ = false;
  bool round_ = false;
  QColor placeholder_;
  QImage image_;
  bool fresh_ = false;    // image_ is not in the texture yet
  bool settled_ = false;  // image_ is the asked key's, or null because it cannot be had
  quint64 asking_ = 0;    // the last request; answers of earlier ones are dropped
  QString askedKey_;
  QSize askedSize_;
};

}  // namespace vellix
