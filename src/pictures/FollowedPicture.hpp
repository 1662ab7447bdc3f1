// The pixels of one picture for one view: at once the best there is, then exactly what is shown.
// While the room changes from frame to frame nothing is made for the sizes in between. Main thread
// only.
#pragma once

#include <QObject>
#include <QPointer>
#include <QString>
#include <QTimer>
#include <memory>

#include "pictures/PictureSource.hpp"

namespace vellix {

class FollowedPicture : public QObject {
  Q_OBJECT

 public:
  explicit FollowedPicture(QObject* parent);

  // What is to be shown now, and where; to be told before each frame. Another key or source asks
  // at once, and what was is dropped; without a key there is nothing to show.
  void follow(PictureSource* source, const QString& key, const PictureRoom& room);

  // Null while they are awaited, and when they cannot be had.
  const Pixels& pixels() const { return pixels_; }
  bool isMissing() const { return settled_ && pixels_.isNull(); }
  // They will not become better in this room, unless another try brings them.
  bool isFinal() const;
  // They could not be had, or not as many as are shown, and the source has more hope since.
  bool isWorthAnotherTry() const { return worthTrying_ && isLacking(); }
  void tryAgain();  // once for each time that it is worth it

 signals:
  void changed();

 private:
  void look();
  void ask();
  void answer(Pixels pixels);
  void show(Pixels pixels);
  bool hasAll() const;
  bool isLacking() const;
  bool isMuchTooSmall() const;

  QPointer<PictureSource> source_;
  QString key_;
  PictureRoom room_;
  Pixels pixels_;
  bool settled_ = false;             // pixels_ are here, or null because they cannot be had
  quint64 turn_ = 0;                 // of keys and sources; answers of earlier ones are dropped
  int awaited_ = 0;                  // answers of this turn
  bool failed_ = false;              // the last of these was none
  bool worthTrying_ = false;         // the source has said so since
  std::unique_ptr<QObject> asking_;  // lives for one turn: what it asked for ends with it
  QTimer resting_{this};             // runs while the room has just changed
};

}  // namespace vellix
