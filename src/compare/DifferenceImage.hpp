// Shows the difference of two pictures, each fitted into the item: black where they are equal.
// Until both are here it shows the one that is; what was shown before stays that long.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QImage>
#include <QPointer>
#include <QQuickItem>

#include "pieces/PictureSource.hpp"

namespace vellix {

class DifferenceImage : public QQuickItem {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(vellix::PictureSource* pictures READ pictures WRITE setPictures NOTIFY picturesChanged)
  Q_PROPERTY(QString key READ key WRITE setKey NOTIFY keyChanged)
  Q_PROPERTY(QString under READ under WRITE setUnder NOTIFY underChanged)

 public:
  explicit DifferenceImage(QQuickItem* parent = nullptr);

  PictureSource* pictures() const { return pictures_; }
  void setPictures(PictureSource* pictures);
  QString key() const { return sides_[0].key; }
  void setKey(const QString& key);
  QString under() const { return sides_[1].key; }
  void setUnder(const QString& key);

 signals:
  void picturesChanged();
  void keyChanged();
  void underChanged();

 protected:
  void geometryChange(const QRectF& now, const QRectF& before) override;
  void updatePolish() override;
  QSGNode* updatePaintNode(QSGNode* node, UpdatePaintNodeData* data) override;

 private:
  struct Side {
    QString key;
    QImage image;
    quint64 asking = 0;
  };
  void ask(Side& side, QSize size);
  QSize shownPixels() const;

  QPointer<PictureSource> pictures_;
  Side sides_[2];
  QImage image_;
  bool fresh_ = false;
  QSize asked_;
};

}  // namespace vellix
