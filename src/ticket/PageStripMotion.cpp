#include "ticket/PageStripMotion.hpp"

namespace vellix {
namespace {

constexpr int kRest = 80;  // ms

}  // namespace

PageStripMotion::PageStripMotion(QObject* parent) : QObject(parent) {
  resting_.setSingleShot(true);
  resting_.setInterval(kRest);
  connect(&resting_, &QTimer::timeout, this, [this] {
    motion_.rest();
    emit rushingChanged();
  });
}

void PageStripMotion::setPlacing(bool placing) {
  if (placing == motion_.placing()) return;
  motion_.setPlacing(placing);
  emit placingChanged();
}

void PageStripMotion::scroll(double y, double height) {
  const bool was = rushing();
  motion_.scroll(y, height);
  if (rushing()) resting_.start();
  if (rushing() != was) emit rushingChanged();
}

bool PageStripMotion::resize(double height, double y, QQuickItem* current, bool gliding) {
  std::optional<StripMotion::Span> page;
  if (current) page = {current->y(), current->y() + current->height()};
  return motion_.resize(height, y, page, gliding);
}

bool PageStripMotion::glides(double from, double to, double height, bool wanted) {
  return vellix::glides(from, to, height, wanted);
}

}  // namespace vellix
