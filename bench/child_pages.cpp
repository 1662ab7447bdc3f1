// Steps from page to page, from the disk against a bare picture that is read and swapped; and a
// long walk through many.
#include <QGuiApplication>
#include <QImageReader>
#include <QPointer>

#include "BigTicket.hpp"
#include "Desk.hpp"
#include "SwapItem.hpp"
#include "WatchedPictures.hpp"
#include "children.hpp"
#include "measure.hpp"
#include "report.hpp"

namespace vellix::bench {
namespace {

constexpr int kLongestAhead = 5000;  // ms

// The program with one long ticket open, its pages on disk.
class Walk {
 public:
  Walk() : desk_("staged", Desk::Board::staged) {}

  bool begin() {
    if (!desk_.shown() || !layOutPictures()) return false;
    watched_.emplace(desk_.pictures());
    desk_.setPictures(*watched_);
    const FileDetail detail = bigTicket();
    Store& store = desk_.store();
    store.shown.set({"supplier"});
    store.details.edit([&](auto& details) { details[kBigTicket] = detail; });
    store.selection.set({kBigTicket});
    BoardState board{.me = {"renny@tessarine.example", "Renny Vale"}, .files = {detail.file}};
    board.files.front().pages.reset();
    store.board.set(board);
    desk_.frames().onFrame = [this] { look(); };
    return awaitPage(0) && desk_.frames().settle();
  }

  // The milliseconds from the step to the frame that shows it; none when it never came.
  std::optional<double> goTo(int page) {
    const double start = wallTime();
    desk_.store().goToPage(kBigTicket, page);
    if (!awaitPage(page)) return std::nullopt;
    return shownAt_ - start;
  }

  // False when the page's picture was not made ready ahead.
  bool awaitAtHand(int page) {
    const QString key = QString::fromStdString(keyOf(page));
    return waitUntil([&] { return watched_->isAtHand(key); }, kLongestAhead, 1);
  }

  // What the window really shows: the mark in the middle of the page.
  bool shows(int page) {
    const QImage image = desk_.window()->grabWindow();
    const QPointF middle = place().center() * image.devicePixelRatio();
    const QColor seen = image.pixelColor(middle.toPoint());
    const QColor mark = markOf(page);
    return std::abs(seen.red() - mark.red()) + std::abs(seen.green() - mark.green()) +
               std::abs(seen.blue() - mark.blue()) <
           40;
  }

  Desk& desk() { return desk_; }
  WatchedPictures& watched() { return *watched_; }
  QRectF place() { return page()->mapRectToScene(page()->boundingRect()); }
  int placeholders() const { return placeholders_; }

 private:
  const RemoteImage* page() {
    if (!page_ || !page_->window()) page_ = desk_.page();
    return page_;
  }

  void look() {
    const RemoteImage* page = this->page();
    if (!page) return;
    if (!page->ready() && !shown_.isEmpty()) ++placeholders_;
    if (page->ready() && page->key() == watched_->given() && page->key() != shown_) {
      shown_ = page->key();
      shownAt_ = desk_.frames().lastAt();
    }
  }

  bool awaitPage(int page) {
    const QString key = QString::fromStdString(keyOf(page));
    return waitUntil([&] { return shown_ == key; });
  }

  Desk desk_;
  std::optional<WatchedPictures> watched_;
  QPointer<RemoteImage> page_;
  QString shown_;  // by a painted frame
  double shownAt_ = 0;
  int placeholders_ = 0;
};

// A bare window of the same size, with a picture in the same place, pixel on pixel.
class BareSwap {
 public:
  BareSwap(QQuickWindow* like, QRectF place, QSize pixels) {
    window_.resize(like->size());
    window_.setColor(like->color());
    item_ = new SwapItem(window_.contentItem());
    item_->setPosition(place.topLeft().toPoint());
    item_->setSize(QSizeF(pixels) / like->effectiveDevicePixelRatio());
    window_.show();
  }

  // The milliseconds from `start` to the frame that shows it; none when it never came.
  std::optional<double> show(QImage image, double start) {
    const int frames = frames_.count();
    item_->show(std::move(image));
    if (!waitUntil([&] { return frames_.count() > frames; })) return std::nullopt;
    return frames_.lastAt() - start;
  }
  Frames& frames() { return frames_; }

 private:
  QQuickWindow window_;
  Frames frames_{&window_};
  SwapItem* item_ = nullptr;
};

QImage bareDecode(int page, QSize pixels) {
  QImageReader reader(pathOf(page), "jpeg");
  reader.setScaledSize(pixels);
  return reader.read();
}

constexpr int kSteps = 20;

// To and fro between two pages that are at hand.
void checkSteps(Walk& walk) {
  const int waits = walk.watched().waits();
  const int placeholders = walk.placeholders();
  for (int step = 1; step <= kSteps; ++step) {
    const int page = step % 2;
    if (!walk.goTo(page) || !walk.shows(page)) {
      tellFault("a page step to a page at hand did not show the page");
    }
    walk.desk().frames().settle(30);
  }
  if (walk.watched().waits() > waits) tellFault("a page at hand was waited for");
  if (walk.placeholders() > placeholders) tellFault("a page step showed a placeholder");
}

// Of a page that nothing has fetched ahead.
void measureFromDisk(Walk& walk, BareSwap& bare, QSize pixels) {
  // With a page come its neighbours, and what these are compared with.
  constexpr int kBefore = 1;
  constexpr int kBehind = 3;
  int next = 20;
  int steps = 0;
  bool good = true;
  const auto ours = [&] {
    next += kBefore + kBehind + 1;
    ++steps;
    const auto took = walk.goTo(next);
    good = good && took && walk.shows(next);
    for (int page = next - kBefore; page <= next + kBehind; ++page) {
      good = walk.awaitAtHand(page) && good;
    }
    walk.desk().frames().settle(30);
    return took.value_or(0);
  };
  const auto theirs = [&] {
    const double start = wallTime();
    const auto took = bare.show(bareDecode(next, pixels), start);
    good = good && took;
    bare.frames().settle(30);
    return took.value_or(0);
  };
  const int waits = walk.watched().waits();
  const auto [our, their] = alternate(ours, theirs, 21);
  tell({"page step to a page on disk, to its frame", our, their, "ms", 1.3});
  if (!good) tellFault("a page step to a page on disk did not show the page");
  if (walk.watched().waits() - waits != steps) tellFault("a page on disk was there already");
}

}  // namespace

int pagesChild(int argc, char** argv) {
  const QGuiApplication application(argc, argv);
  Walk walk;
  if (!walk.begin() || !walk.goTo(1)) {
    tellFault("the long ticket was never shown");
    return 1;
  }
  const QSize pixels = walk.watched().pixels();
  BareSwap bare(walk.desk().window(), walk.place(), pixels);
  checkSteps(walk);
  measureFromDisk(walk, bare, pixels);
  tellNote("A page is shown at " + std::to_string(walk.watched().shown().width()) + " x " +
           std::to_string(walk.watched().shown().height()) + " from " +
           std::to_string(pixels.width()) + " x " + std::to_string(pixels.height()) + " pixels.");
  return 0;
}

int visitsChild(int argc, char** argv) {
  const QGuiApplication application(argc, argv);
  constexpr double kBudgetMegabytes = 256;
  Walk walk;
  if (!walk.begin()) {
    tellFault("the long ticket was never shown");
    return 1;
  }
  const double before = residentMegabytes();
  double most = before;
  const int waits = walk.watched().waits();
  bool ahead = true;
  for (int page = 1; page < kPages; ++page) {
    ahead = ahead && walk.awaitAtHand(page);
    if (!walk.goTo(page)) {
      tellFault("page " + std::to_string(page) + " was never shown");
      return 1;
    }
    if (page % 10 == 0) most = std::max(most, residentMegabytes());
  }
  tell({"400 pictures of 2000 x 3000 visited: growth", most - before, kBudgetMegabytes, "MB", 1.2});
  if (!ahead) tellFault("the page beside a visited one was not made ready");
  if (walk.watched().waits() > waits) tellFault("a visited page was waited for");
  if (walk.placeholders() > 0) tellFault("a visited page showed a placeholder");
  return 0;
}

}  // namespace vellix::bench
