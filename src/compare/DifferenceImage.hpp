// Shows the difference of two pictures: black where they are equal. The first is fitted into the
// item, the second lies exactly over it, also when its shape is another.
// Until both are here it shows the one that is; what was on show before stays until then, and while
// the item's size changes it is scaled. Without either it shows nothing. One that could not be had
// is asked for again when the source says that it is worth it, once it is in sight.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QFutureWatcher>
#include <QPointer>
#include <array>
#include <optional>

#include "compare/Difference.hpp"
#include "pictures/FollowedPicture.hpp"
#include "pictures/PictureItem.hpp"

namespace vellix {

class DifferenceImage : public vellix::PictureItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(vellix::PictureSource* pictures READ pictures WRITE setPictures NOTIFY picturesChanged)
  Q_PROPERTY(QString key READ key WRITE setKey NOTIFY keyChanged)
  Q_PROPERTY(QString under READ under WRITE setUnder NOTIFY underChanged)
  // The second could not be had.
  Q_PROPERTY(bool missing READ missing NOTIFY missingChanged)

 public:
  explicit DifferenceImage(QQuickItem* parent = nullptr);

  PictureSource* pictures() const { return pictures_; }
  void setPictures(PictureSource* pictures);
  QString key() const { return sides_[0].key; }
  void setKey(const QString& key);
  QString under() const { return sides_[1].key; }
  void setUnder(const QString& key);
  bool missing() const { return missing_; }

 signals:
  void picturesChanged();
  void keyChanged();
  void underChanged();
  void missingChanged();

 protected:
  void resized() override;
  void framed() override;
  void updatePolish() override;

 private:
  struct Side {
    explicit Side(QObject* item) : picture(item) {}
    QString key;
    FollowedPicture picture;
  };
  // Everything that a difference is made of.
  struct Inputs {
    std::array<LaidPicture, 2> pictures;
    QSize ground;
    bool operator==(const Inputs& other) const;
  };

  // Where the first lies, in the device's pixels; all of the item while it is not here.
  QRect place() const;
  bool isHere(const Side& side) const;
  bool isMissing(const Side& side) const;
  std::optional<Inputs> inputs() const;  // none while something better is on its way
  void make(const Inputs& inputs);
  void dropImage();

  QPointer<PictureSource> pictures_;
  Side sides_[2]{Side{this}, Side{this}};
  std::optional<Inputs> made_;  // or being made
  QFutureWatcher<QImage> making_;
  QImage image_;
  bool missing_ = false;
};

}  // namespace vellix
