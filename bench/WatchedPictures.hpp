// The program's pictures, with a note of what the pages were given and when they had to wait.
#pragma once

#include "pictures/PictureSource.hpp"

namespace vellix::bench {

class WatchedPictures : public PictureSource {
  Q_OBJECT

 public:
  explicit WatchedPictures(PictureSource& pictures) : pictures_(pictures) {}

  Pixels atHand(const QString& key, const PictureRoom& room) override;
  void bring(const QString& key, const PictureRoom& room, QObject* context,
             std::function<void(Pixels)> done) override;

  // Of the page that was last given exactly its pixels; thumbnails are not looked at.
  const QString& given() const { return given_; }
  QSize pixels() const { return pixels_; }  // the size of that picture
  QSize shown() const { return shown_; }    // the size it was asked for
  int waits() const { return waits_; }      // pages that were not at hand
  // Whether the picture of a page could be painted in the next frame, exactly as it is to be shown.
  bool isAtHand(const QString& key);

 private:
  void note(const QString& key, const PictureRoom& room, const Pixels& pixels);

  PictureSource& pictures_;
  QString given_;
  QSize pixels_;
  QSize shown_;
  QSizeF room_;  // of pages of any shape
  int waits_ = 0;
};

}  // namespace vellix::bench
