// What can be seen of the marks of findings on the pages of a window.
#pragma once

#include <ranges>

#include "compare/BoxMarks.hpp"
#include "views/sights.hpp"

namespace vellix {

struct SeenMark {
  BoxMarks* marks = nullptr;
  int id = 0;
  QString finding;
  bool selected = false;
  bool hovered = false;
  QRectF place;     // in the scene
  double line = 0;  // how thick it is drawn

  // The item that the keyboard comes to.
  QQuickItem* item() const { return marks->itemOf(id); }
};

// All that are seen below `root`, pane by pane, in the keyboard's order.
inline QList<SeenMark> seenMarks(const QQuickItem* root) {
  QList<SeenMark> found;
  for (QQuickItem* each : seen(root, "BoxMarks")) {
    auto* marks = qobject_cast<BoxMarks*>(each);
    const auto frames = marks->frames();
    for (const auto& mark : marks->marks()) {
      const auto frame = std::ranges::find(frames, mark.id, &MarkFrames::Frame::id);
      found.append({marks, mark.id, QString::fromStdString(mark.view.finding), mark.view.selected,
                    &mark == marks->hoveredMark(), marks->mapRectToScene(mark.place),
                    frame == frames.end() ? 0 : frame->look.line});
    }
  }
  return found;
}

}  // namespace vellix
