// Shows the picture of one blob key, with a plain ground, or what stands in for it, until it is
// here. A new key's picture that is at hand takes the old one's place in the next frame, so
// stepping through pages shows no gap then; the old one never stays. One that cannot be had leaves
// the ground, as does no key. It is asked for again when the source says that it is worth it, once
// it is in sight.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QColor>
#include <QPointer>

#include "pictures/FollowedPicture.hpp"
#include "pictures/PictureItem.hpp"

namespace vellix {

class RemoteImage : public vellix::PictureItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(vellix::PictureSource* pictures READ pictures WRITE setPictures NOTIFY picturesChanged)
  Q_PROPERTY(QString key READ key WRITE setKey NOTIFY keyChanged)  // empty for none
  // Of a small picture of the same, which is shown, if it is at hand, until the key's own is here.
  Q_PROPERTY(QString standIn READ standIn WRITE setStandIn NOTIFY standInChanged)
  Q_PROPERTY(bool fill READ fill WRITE setFill NOTIFY fillChanged)  // fills and crops, or fits
  // The picture takes the item's own size, whatever its shape.
  Q_PROPERTY(bool stretched READ stretched WRITE setStretched NOTIFY stretchedChanged)
  // The picture fills the ellipse that fits in; the ground stays as it is.
  Q_PROPERTY(bool round READ round WRITE setRound NOTIFY roundChanged)
  // Of a page: the room that a page of any shape would be fitted into, in logical pixels. The
  // pages beside it are made ready for it.
  Q_PROPERTY(QSizeF pageRoom READ pageRoom WRITE setPageRoom NOTIFY pageRoomChanged)
  // While set, a place that shows nothing asks for nothing; what is on show goes on as ever.
  Q_PROPERTY(bool waits READ waits WRITE setWaits NOTIFY waitsChanged)
  Q_PROPERTY(QColor placeholder READ placeholder WRITE setPlaceholder NOTIFY placeholderChanged)
  Q_PROPERTY(bool ready READ ready NOTIFY readyChanged)  // the picture is on show
  // The key whose picture, or what stands in for it, is on show; empty for none. Where it is not
  // the key, the key's turn to be painted is still to come.
  Q_PROPERTY(QString shown READ shown NOTIFY shownChanged)
  // The picture could not be had. Stays so until it is here.
  Q_PROPERTY(bool missing READ missing NOTIFY missingChanged)
  // Where the picture lies in the item, in logical pixels; all of it while there is none.
  Q_PROPERTY(QRectF painted READ painted NOTIFY paintedChanged)

 public:
  explicit RemoteImage(QQuickItem* parent = nullptr);

  PictureSource* pictures() const { return pictures_; }
  void setPictures(PictureSource* pictures);
  QString key() const { return key_; }
  void setKey(const QString& key);
  QString standIn() const { return standIn_; }
  void setStandIn(const QString& key);
  bool fill() const { return fill_; }
  void setFill(bool fill);
  bool stretched() const { return stretched_; }
  void setStretched(bool stretched);
  bool round() const { return round_; }
  void setRound(bool round);
  QSizeF pageRoom() const { return pageRoom_; }
  void setPageRoom(QSizeF room);
  bool waits() const { return waits_; }
  void setWaits(bool waits);
  QColor placeholder() const { return placeholder_; }
  void setPlaceholder(const QColor& colour);
  bool ready() const { return ready_; }
  QString shown() const { return shown_; }
  bool missing() const { return missing_; }
  QRectF painted() const { return painted_; }

 signals:
  void picturesChanged();
  void keyChanged();
  void standInChanged();
  void fillChanged();
  void stretchedChanged();
  void roundChanged();
  void pageRoomChanged();
  void waitsChanged();
  void placeholderChanged();
  void readyChanged();
  void shownChanged();
  void missingChanged();
  void paintedChanged();

 protected:
  void componentComplete() override;
  void resized() override;
  void framed() override;
  void updatePolish() override;

 private:
  void lookAgain();  // at the next polish
  PictureRoom room() const;
  Pixels toPaint(const PictureRoom& room) const;
  QImage cutRound(const QImage& image, const QRectF& part) const;
  void notePainted(const QRect& place);  // in the device's pixels

  QPointer<PictureSource> pictures_;
  QString key_;
  QString standIn_;
  bool fill_ = false;
  bool stretched_ = false;
  bool round_ = false;
  QSizeF pageRoom_;
  bool waits_ = false;
  QColor placeholder_;
  FollowedPicture picture_{this};
  bool ready_ = false;
  QString shown_;
  bool missing_ = false;
  QRectF painted_;
  QImage cut_;  // round, of the image with this key
  qint64 cutFrom_ = 0;
};

}  // namespace vellix
