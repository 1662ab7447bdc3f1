// The program as it starts, up to its first painted board and page and on to its rest.
#include <QFile>
#include <QGuiApplication>
#include <cstdio>
#include <cstdlib>

#include "Desk.hpp"
#include "ShownScene.hpp"
#include "children.hpp"
#include "measure.hpp"
#include "platform/linux/TokenStores.hpp"
#include "report.hpp"
#include "resting.hpp"
#include "shell/Program.hpp"
#include "shell/allocator.hpp"
#include "shell/renderer.hpp"

namespace vellix::bench {
namespace {

// As a person would call it painted: there, and not still fading from nothing.
bool isPainted(QQuickItem* item) {
  double opacity = 1;
  for (QQuickItem* at = item; at; at = at->parentItem()) opacity *= at->opacity();
  return item->isVisible() && item->height() > 0 && opacity > 0;
}

bool isPaintedRow(QQuickItem* item) {
  return QByteArrayView(item->metaObject()->className()).startsWith("FileRow") && isPainted(item);
}

bool isPaintedPage(QQuickItem* item) {
  const auto* image = qobject_cast<RemoteImage*>(item);
  return image && isPage(*image) && !image->key().isEmpty() && isPainted(item);
}

// Its own picture, and not the small one that stands in for it.
bool isPageToCome(QQuickItem* item) {
  const auto* image = qobject_cast<RemoteImage*>(item);
  return isPaintedPage(item) && image->shown() != image->key();
}

bool isUp(QQuickItem* all) {
  return findItem(all, isPaintedPage) && !findItem(all, isPageToCome) &&
         findItem(all, isPaintedRow);
}

class Launch {
 public:
  Launch() { tasks_.start(start()); }

  QQuickWindow* window() { return window_; }

 private:
  Task<> start() {
    const auto opening = openTokenStore(configFolder());
    tokens_ = co_await opening;
    program_.emplace(loop_, defaults_, *tokens_);
    program_->begin();
    auto loading = program_->load();
    co_await std::move(loading);
    if (!program_->show()) std::_Exit(1);
    window_ = qobject_cast<QQuickWindow*>(QGuiApplication::topLevelWindows().constFirst());
  }

  QtMainLoop loop_;
  QtDefaults defaults_;
  std::shared_ptr<DurableTokenStore> tokens_;
  std::optional<Program> program_;
  QQuickWindow* window_ = nullptr;
  TaskScope tasks_;
};

}  // namespace

int launchChild(int argc, char** argv, double start, double seconds, const char* scene) {
  giveFreedPicturesBack();
  QGuiApplication application(argc, argv);
  chooseRenderer();
  Launch launch;
  if (!waitUntil([&] { return launch.window() != nullptr; })) return 1;
  QQuickWindow& window = *launch.window();
  Frames frames(&window);
  double painted = 0;
  frames.onFrame = [&] {
    if (painted > 0 || !isUp(window.contentItem())) return;
    painted = frames.lastAt();
    tellFigure("cpu to it", cpuOfProcess());
  };
  if (!waitUntil([&] { return painted > 0; })) {
    tellFault("the board and its page were never painted");
    return 1;
  }
  tellFigure("first", painted - start);
  frames.settle(600);
  tellRest(frames, application, seconds);
  QFile file(scene);
  if (scene && !(file.open(QIODevice::WriteOnly) && file.write(shownScene(window)) > 0)) return 1;
  file.close();
  std::_Exit(0);
}

}  // namespace vellix::bench
