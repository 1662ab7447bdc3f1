#include "pictures/PictureFitting.hpp"

#include <algorithm>
#include <cmath>

namespace vellix {
namespace {

constexpr double kSlack = 0.005;        // of a side
constexpr double kNarrowestPage = 0.2;  // width over height; a page's room is never narrower

int reached(double length, int side) {
  if (std::abs(length - side) < std::max(1.0, kSlack * side)) return side;
  return std::max(1, static_cast<int>(std::lround(length)));
}

QSize fittedSize(QSize whole, const PictureRoom& room) {
  if (whole.isEmpty() || room.size.isEmpty()) return {0, 0};
  if (room.fit == PictureFit::exactly) return room.size;
  const auto aspect =
      room.fit == PictureFit::over ? Qt::KeepAspectRatioByExpanding : Qt::KeepAspectRatio;
  const QSizeF scaled = QSizeF(whole).scaled(room.size, aspect);
  return {reached(scaled.width(), room.size.width()), reached(scaled.height(), room.size.height())};
}

bool isEnough(QSize size, QSize exact) {
  return size.width() >= exact.width() && size.height() >= exact.height();
}

qint64 area(QSize size) { return qint64{size.width()} * size.height(); }

}  // namespace

QRect fittedPlace(QSize whole, const PictureRoom& room) {
  const QSize size = fittedSize(whole, room);
  return {QPoint((room.size.width() - size.width()) / 2, (room.size.height() - size.height()) / 2),
          size};
}

QSize exactSize(QSize whole, const PictureRoom& room) {
  return fittedSize(whole, room).boundedTo(whole);
}

bool isExact(const Pixels& pixels, const PictureRoom& room) {
  return !pixels.isNull() && pixels.image.size() == exactSize(pixels.whole, room);
}

bool looksBetter(const Pixels& one, const Pixels& other, const PictureRoom& room) {
  if (one.isNull() || other.isNull()) return !one.isNull();
  const QSize exact = exactSize(one.whole, room);
  const QSize sizes[] = {one.image.size(), other.image.size()};
  if (sizes[0] == exact || sizes[1] == exact) return sizes[1] != exact;
  const bool enough[] = {isEnough(sizes[0], exact), isEnough(sizes[1], exact)};
  if (enough[0] != enough[1]) return enough[0];
  return enough[0] ? area(sizes[0]) < area(sizes[1]) : area(sizes[0]) > area(sizes[1]);
}

PictureRoom roomOnPage(QSize whole, QSizeF page) {
  if (whole.isEmpty() || page.isEmpty()) return {};
  const QSizeF shape(std::max(double(whole.width()), kNarrowestPage * whole.height()),
                     whole.height());
  return {shape.scaled(page, Qt::KeepAspectRatio).toSize().expandedTo({1, 1}), PictureFit::within,
          page};
}

}  // namespace vellix
