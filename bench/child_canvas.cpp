// What the canvas is made of: the difference of two pictures, and three panes under a hand.
#include <QGuiApplication>
#include <QPainter>

#include "BigTicket.hpp"
#include "Desk.hpp"
#include "SwapItem.hpp"
#include "children.hpp"
#include "compare/Difference.hpp"
#include "measure.hpp"
#include "report.hpp"

namespace vellix::bench {
namespace {

constexpr int kPans = 20;  // in a round
constexpr double kZoom = 2;

void measureDifference() {
  constexpr QSize kView{1120, 840};
  const auto picture = [&](int by) {
    QImage image(kView, QImage::Format_RGB32);
    for (int y = 0; y < kView.height(); ++y) {
      auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
      for (int x = 0; x < kView.width(); ++x) line[x] = qRgb(x * by, y * by, x + y);
    }
    return image;
  };
  const LaidPicture one{picture(3), {QPoint(), kView}};
  const LaidPicture other{picture(5), {QPoint(), kView}};
  QImage our;
  QImage their;
  const auto ours = [&] {
    const double start = wallTime();
    our = difference(one, other, kView);
    return wallTime() - start;
  };
  const auto theirs = [&] {
    const double start = wallTime();
    their = one.image.copy();
    QPainter painter(&their);
    painter.setCompositionMode(QPainter::CompositionMode_Difference);
    painter.drawImage(0, 0, other.image);
    painter.end();
    return wallTime() - start;
  };
  const auto [mine, bare] = alternate(ours, theirs, 41);
  tell({"difference of two pictures at the view's size", mine, bare, "ms", 0.2});
  if (our != their) tellFault("the difference is another than the painter's");
}

// The pages of the canvas, in the scene.
QList<RemoteImage*> pagesOf(QQuickItem* under) {
  QList<RemoteImage*> pages;
  for (QQuickItem* child : under->childItems()) {
    auto* page = qobject_cast<RemoteImage*>(child);
    if (page && isPage(*page) && page->isVisible()) pages.append(page);
    pages += pagesOf(child);
  }
  return pages;
}

// The milliseconds of one frame while it is scrolled to and fro.
double panned(Frames& frames, const std::function<void(double)>& scrollTo) {
  const double start = wallTime();
  for (int i = 1; i <= kPans; ++i) {
    const int before = frames.count();
    scrollTo(i % 2 ? 40.0 + i : 20.0);
    if (!waitUntil([&] { return frames.count() > before; }, 2000)) {
      tellFault("a pan painted no frame");
      break;
    }
  }
  return (wallTime() - start) / kPans;
}

void measurePan(Desk& desk) {
  Store& store = desk.store();
  const FileDetail detail = bigTicket();
  store.details.edit([&](auto& details) { details[kBigTicket] = detail; });
  store.selection.set({kBigTicket});
  BoardState board{.me = {"renny@tessarine.example", "Renny Vale"}, .files = {detail.file}};
  board.files.front().pages.reset();
  store.board.set(board);
  store.zoomTo(kZoom);
  QList<RemoteImage*> pages;
  waitUntil([&] {
    pages = pagesOf(desk.window()->contentItem());
    return pages.size() == 3 && std::ranges::all_of(pages, &RemoteImage::ready);
  });
  desk.frames().settle();
  QQuickItem* stage = pages.size() == 3 ? pages.front() : nullptr;
  while (stage && !stage->property("contentX").isValid()) stage = stage->parentItem();
  if (!stage) return tellFault("three panes were never shown");

  QQuickWindow window;
  window.resize(desk.window()->size());
  QQuickItem view(window.contentItem());
  view.setClip(true);
  view.setPosition(stage->mapToScene({}).toPoint());
  view.setSize(stage->size());
  QQuickItem content(&view);
  for (RemoteImage* page : pages) {
    auto* item = new SwapItem(&content);
    item->setPosition(page->mapToItem(stage, {}).toPoint());
    item->setSize(page->size().toSize());
    QImage image(page->size().toSize(), QImage::Format_RGB32);
    image.fill(Qt::lightGray);
    item->show(image);
  }
  Frames frames(&window);
  window.show();
  frames.settle(100);

  const auto ours = [&] {
    return panned(desk.frames(), [&](double x) {
      stage->setProperty("contentX", x);
      stage->setProperty("contentY", x);
    });
  };
  const auto theirs = [&] {
    return panned(frames, [&](double x) { content.setPosition({-x, -x}); });
  };
  const auto [our, their] = alternate(ours, theirs);
  tell({"a frame of three panes that are panned", our, their, "ms", 1.5});
}

}  // namespace

int canvasChild(int argc, char** argv) {
  const QGuiApplication application(argc, argv);
  measureDifference();
  Desk desk("staged", Desk::Board::staged);
  if (!desk.shown() || !layOutPictures()) {
    tellFault("the canvas was never shown");
    return 1;
  }
  measurePan(desk);
  return 0;
}

}  // namespace vellix::bench
