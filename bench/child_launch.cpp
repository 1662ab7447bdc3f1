// The program as it starts, up to its first painted board and on to its rest.
#include <QGuiApplication>
#include <cstdio>
#include <cstdlib>

#include "Scene.hpp"
#include "children.hpp"
#include "measure.hpp"
#include "platform/linux/TokenStores.hpp"
#include "report.hpp"
#include "resting.hpp"
#include "shell/Program.hpp"

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
    const auto turn = loop_.turn();
    co_await turn;
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

int launchChild(int argc, char** argv, double start, double seconds) {
  QGuiApplication application(argc, argv);
  Launch launch;
  if (!waitUntil([&] { return launch.window() != nullptr; })) return 1;
  Frames frames(launch.window());
  double painted = 0;
  frames.onFrame = [&] {
    if (painted > 0 || !findItem(launch.window()->contentItem(), isPaintedRow)) return;
    painted = frames.lastAt();
  };
  if (!waitUntil([&] { return painted > 0; })) {
    tellFault("the board was never painted");
    return 1;
  }
  tellFigure("first", painted - start);
  frames.settle(600);
  tellRest(frames, application, seconds);
  std::_Exit(0);
}

}  // namespace vellix::bench
