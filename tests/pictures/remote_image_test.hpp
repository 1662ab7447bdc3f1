// An item that shows a picture, in a window of its own, over a scripted source.
#pragma once

#include <gtest/gtest.h>

#include <QPainter>
#include <QQuickWindow>
#include <memory>

#include "pictures/RemoteImage.hpp"
#include "scripted_source.hpp"
#include "support/next_frame.hpp"

namespace vellix {

inline const QColor kBehind(Qt::white);
inline const QColor kGround(10, 20, 30);
inline const QColor kRed(200, 0, 0);
inline const QColor kBlue(0, 0, 200);
inline const QColor kGreen(0, 200, 0);
inline constexpr QSize kRoom(100, 100);

inline QImage plain(const QColor& colour, QSize size = kRoom) {
  QImage image(size, QImage::Format_RGB32);
  image.fill(colour);
  return image;
}

// Red, green and blue thirds, side by side or one below the other.
inline QImage thirds(Qt::Orientation along) {
  const bool across = along == Qt::Horizontal;
  QImage image = plain(kGreen, across ? QSize(300, 100) : QSize(100, 300));
  QPainter painter(&image);
  painter.fillRect(0, 0, 100, 100, kRed);
  painter.fillRect(across ? 200 : 0, across ? 0 : 200, 100, 100, kBlue);
  return image;
}

// Another colour in each pixel.
inline QImage busy(QSize size) {
  QImage image(size, QImage::Format_RGB32);
  for (int y = 0; y < size.height(); ++y) {
    for (int x = 0; x < size.width(); ++x) {
      image.setPixel(x, y, qRgb((x * 37 + y) % 256, (y * 91 + x) % 256, (x * y + 5) % 256));
    }
  }
  return image;
}

class RemoteImageTest : public testing::Test {
 protected:
  QQuickWindow window;
  ScriptedSource source;
  std::unique_ptr<RemoteImage> item = std::make_unique<RemoteImage>();

  RemoteImageTest() {
    window.setColor(kBehind);
    window.resize(kRoom);
    item->setPlaceholder(kGround);
    item->setPictures(&source);
    item->setSize(kRoom);
    item->setParentItem(window.contentItem());
    window.show();
  }

  qreal scale() const { return window.effectiveDevicePixelRatio(); }
  // The very next frame, in the device's pixels.
  QImage pixels() {
    QImage image = nextFrame(window);
    EXPECT_EQ(image.size(), (QSizeF(kRoom) * scale()).toSize());
    image.setDevicePixelRatio(1);
    return image.convertToFormat(QImage::Format_RGB32);
  }
  QImage frame() { return pixels().scaled(kRoom); }
  // The colour of the very next frame at a point in the window.
  QColor seen(QPoint point = {50, 50}) { return frame().pixelColor(point); }
  void ask(const QString& key) {
    item->setKey(key);
    frame();
  }
  void showRed() {
    ask("red");
    source.answer(0, plain(kRed));
    ASSERT_EQ(seen(), kRed);
    source.requests.clear();
  }
};

}  // namespace vellix
