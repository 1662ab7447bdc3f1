// The whole list of ten thousand tickets by the wheel, from end to end.
#include <algorithm>
#include <cmath>

#include "Actions.hpp"
#include "CrowdedBoard.hpp"
#include "children.hpp"
#include "measure.hpp"
#include "report.hpp"

namespace vellix::bench {
namespace {

constexpr double kFrame = 1000.0 / 60;
constexpr int kNotches = 3;  // with every frame, as of a wheel that spins freely
constexpr int kLooks = 20;   // frames from one look at the pixels to the next
constexpr int kMostFrames = 60'000;
// ms of its glide in a frame: every other one of a display is left out
constexpr int kFrameTime = 32;

// Something is written on it, in ink that stands out from its ground.
bool isWritten(const QImage& picture, const QRect& place) {
  int darkest = 255;
  int lightest = 0;
  for (int y = place.top(); y <= place.bottom(); y += 2) {
    for (int x = place.left(); x <= place.right(); x += 2) {
      const int grey = qGray(picture.pixel(x, y));
      darkest = std::min(darkest, grey);
      lightest = std::max(lightest, grey);
    }
  }
  return lightest - darkest > 60;
}

class Scroll {
 public:
  Scroll(Actions& actions, QQuickItem* list) : actions_(actions), list_(list) {}

  // False when something was not there.
  bool run() {
    Hand hand(actions_.desk().window());
    while (!atEnd() && static_cast<int>(costs_.size()) < kMostFrames) {
      const Cost cost = actions_.costs().frame([&] { hand.wheel(list_, kNotches); }, kFrameTime);
      if (cost.frames == 0) continue;
      costs_.push_back(cost.worst);
      if (cost.worst > dearest_) {
        dearest_ = cost.worst;
        dearestAt_ = list_->property("contentY").toDouble();
      }
      look(costs_.size() % kLooks == 0);
    }
    return atEnd();
  }

  const std::vector<double>& costs() const { return costs_; }
  int blanks() const { return blanks_; }
  int rows() const { return rows_; }
  double dearest() const { return dearest_; }
  double dearestAt() const { return dearestAt_; }  // of the list's height, which is in pixels

 private:
  bool atEnd() const { return list_->property("atYEnd").toBool(); }

  // What is in sight is covered from top to bottom with rows, and each of them is written on.
  void look(bool closely) {
    QList<QQuickItem*> rows;
    auto* content = list_->property("contentItem").value<QQuickItem*>();
    for (QQuickItem* line : content->childItems()) {
      if (isA(line, "FileLine") && line->isVisible() && line->opacity() == 1) rows.append(line);
    }
    std::ranges::sort(rows, {}, [](QQuickItem* row) { return row->y(); });
    const double top = list_->property("contentY").toDouble();
    const double bottom = std::min(top + list_->height(), content->height());
    double covered = top;
    const QImage seen = closely ? actions_.desk().window()->grabWindow() : QImage();
    for (QQuickItem* row : rows) {
      if (row->y() + row->height() <= top || row->y() >= bottom) continue;
      if (row->y() > covered + kGap) ++blanks_;
      covered = row->y() + row->height();
      ++rows_;
      const bool whole = row->y() >= top && covered <= bottom;
      if (closely && whole && !isWritten(seen, placeOf(row))) ++blanks_;
    }
    if (!atEnd() && covered + kGap < bottom) ++blanks_;
  }

  QRect placeOf(QQuickItem* row) const {
    return row->mapRectToScene(row->boundingRect())
        .toAlignedRect()
        .intersected(QRect({}, actions_.desk().window()->size()));
  }

  static constexpr double kGap = 8;  // between rows

  Actions& actions_;
  QQuickItem* list_;
  std::vector<double> costs_;
  int blanks_ = 0;
  int rows_ = 0;
  double dearest_ = 0;
  double dearestAt_ = 0;
};

void measureScroll(Actions& actions) {
  QQuickItem* list = findItem(actions.desk().window()->contentItem(),
                              [](QQuickItem* item) { return isA(item, "FileRows"); });
  if (!list) return tellFault("there is no list of tickets");
  Scroll scroll(actions, list);
  if (!scroll.run()) tellFault("the wheel did not lead to the end of the list");
  tell({.name = "scrolling 10,000 tickets by wheel: the dearest frame (CPU)",
        .ours = scroll.dearest(),
        .unit = "ms",
        .budget = kFrame,
        .middle = median(scroll.costs())});
  tellNote("Scrolling took " + std::to_string(scroll.costs().size()) + " frames with " +
           std::to_string(scroll.rows()) + " rows in sight, the dearest at " +
           std::to_string(std::lround(scroll.dearestAt())) + " of " +
           std::to_string(std::lround(list->property("contentHeight").toDouble())) + ".");
  if (scroll.blanks() > 0) {
    tellFault(std::to_string(scroll.blanks()) + " rows were blank while the list was scrolled");
  }
}

}  // namespace

int scrollChild(int argc, char** argv) { return onCrowdedBoard(argc, argv, measureScroll); }

}  // namespace vellix::bench
