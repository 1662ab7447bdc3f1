// The program in this process, with its window and everything a measurement looks at.
#pragma once

#include <QAbstractItemModel>
#include <QQuickWindow>

#include "Scene.hpp"
#include "SteppedLoop.hpp"
#include "pictures/RemoteImage.hpp"
#include "platform/ports/token_store.hpp"
#include "shell/Program.hpp"

namespace vellix::bench {

class MemoryTokens : public TokenStore {
 public:
  explicit MemoryTokens(std::string token) : token_(std::move(token)) {}
  std::optional<std::string> read() override { return token_; }
  void remove() override { token_.reset(); }
  void add(const std::string& token) override { token_ = token; }

 private:
  std::optional<std::string> token_;
};

// Counts every signal of the objects that it watches.
class SignalCount : public QObject {
  Q_OBJECT

 public:
  void watch(QObject* object);
  int count() const { return count_; }

 public slots:
  void told() { ++count_; }

 private:
  int count_ = 0;
};

// Main thread, one in a process.
class Desk {
 public:
  enum class Board { polled, staged };  // a staged one is set by hand, and nothing is polled
  Desk(std::string token, Board board);

  bool shown() const { return window_ != nullptr; }
  SteppedLoop& loop() { return loop_; }
  Store& store() { return program_.store(); }
  QQuickWindow* window() { return window_; }
  Frames& frames() { return *frames_; }
  // The models, under the names that the window gives them.
  BoardModel& board() { return *part<BoardModel>("board"); }
  CompareModel& compare() { return *part<CompareModel>("compare"); }
  InspectorModel& inspector() { return *part<InspectorModel>("inspector"); }
  PictureSource& pictures() { return *part<PictureSource>("pictures"); }
  void setPictures(PictureSource& pictures);
  void watchModels(SignalCount& count);
  // The page's picture on the canvas; null while there is none.
  RemoteImage* page();

 private:
  template <class T>
  T* part(const char* name) {
    return qobject_cast<T*>(window_->property(name).value<QObject*>());
  }

  SteppedLoop loop_;
  QtDefaults defaults_;
  MemoryTokens tokens_;
  Program program_;
  QQuickWindow* window_ = nullptr;
  std::optional<Frames> frames_;
};

// Not a thumbnail: it tells the room that pages are shown in.
inline bool isPage(const RemoteImage& image) { return !image.pageRoom().isEmpty(); }

}  // namespace vellix::bench
