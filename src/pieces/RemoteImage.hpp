// Shows the picture of one blob key, with a plain ground until it is here. A new key's picture
// takes the old one's place when it is ready, so stepping through pages never shows a gap; one
// that cannot be had leaves the ground, as does no key.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QColor>
#include <QPointer>

#include "pieces/FollowedPicture.hpp"
#include "pieces/PictureItem.hpp"

namespace vellix {

class RemoteImage : public vellix::PictureItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(vellix::PictureSource* pictures READ pictures WRITE setPictures NOTIFY picturesChanged)
  Q_PROPERTY(QString key READ key WRITE setKey NOTIFY keyChanged)   // empty for none
  Q_PROPERTY(bool fill READ fill WRITE setFill NOTIFY fillChanged)  // fills and crops, or fits
  // The picture fills the ellipse that fits in; the ground stays as it is.
  Q_PROPERTY(bool round READ round WRITE setRound NOTIFY roundChanged)
  // Of a page: the room that a page of any shape would be fitted into, in logical pixels. The
  // pages beside it are made ready for it.
  Q_PROPERTY(QSizeF pageRoom READ pageRoom WRITE setPageRoom NOTIFY pageRoomChanged)
  // While set, a place that shows nothing asks for nothing; what is on show goes on as ever.
  Q_PROPERTY(bool waits READ waits WRITE setWaits NOTIFY waitsChanged)
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
  QSizeF pageRoom() const { return pageRoom_; }
  void setPageRoom(QSizeF room);
  bool waits() const { return waits_; }
  void setWaits(bool waits);
  QColor placeholder() const { return placeholder_; }
  void setPlaceholder(const QColor& colour);
  bool ready() const { return ready_; }

 signals:
  void picturesChanged();
  void keyChanged();
  void fillChanged();
  void roundChanged();
  void pageRoomChanged();
  void waitsChanged();
  void placeholderChanged();
  void readyChanged();

 protected:
  void componentComplete() override;
  void resized() override;
  void updatePolish() override;

 private:
  void lookAgain();  // at the next polish
  PictureRoom room() const;
  QImage cutRound(const QRectF& part) const;

  QPointer<PictureSource> pictures_;
  QString key_;
  bool fill_ = false;
  bool round_ = false;
  QSizeF pageRoom_;
  bool waits_ = false;
  QColor placeholder_;
  FollowedPicture picture_{this};
  bool ready_ = false;
  QImage cut_;  // round, of the image with this key
  qint64 cutFrom_ = 0;
};

}  // namespace vellix
