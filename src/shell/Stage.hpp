// A program that stages itself: its Store filled from a folder instead of the service, and a
// picture taken of its window. Exit codes: 0 done, 2 no window, 3 no bitmap.
#pragma once

#include <QString>

#include "pictures/images.hpp"
#include "shell/staging.hpp"
#include "store/store.hpp"

namespace vellix {

// Main thread. What is passed must outlive it.
class Stage {
 public:
  Stage(Arguments arguments, Store& store, Images& images, const PictureDecoder& decoder,
        MainLoop& loop)
      : arguments_(std::move(arguments)),
        store_(store),
        images_(images),
        decoder_(decoder),
        loop_(loop) {}

  // Nothing is staged without a path for the picture.
  bool on() const { return shotPath(arguments_).has_value(); }
  QString appearance() const;

  // Sets the Store up, before the first view looks at it.
  void setUp();
  // Sizes the window that has come up, and ends the program with its picture soon after.
  void present();

 private:
  void loadSample(const QString& folder);
  void loadPictures(const QString& folder);
  Task<> capture();

  const Arguments arguments_;
  Store& store_;
  Images& images_;
  const PictureDecoder& decoder_;
  MainLoop& loop_;
  TaskScope tasks_;
};

}  // namespace vellix
