// The difference of two pictures, as numbers.
#include "compare/Difference.hpp"

#include <gtest/gtest.h>

namespace vellix {
namespace {

constexpr QSize kGround(40, 30);
constexpr QRect kWhole(QPoint(0, 0), kGround);

QImage plain(const QColor& colour, QSize size = kGround) {
  QImage image(size, QImage::Format_RGB32);
  image.fill(colour);
  return image;
}

// Another colour in each pixel.
QImage busy(QSize size = kGround) {
  QImage image(size, QImage::Format_RGB32);
  for (int y = 0; y < size.height(); ++y) {
    for (int x = 0; x < size.width(); ++x) {
      image.setPixel(x, y, qRgb(x * 37 % 256, y * 91 % 256, (x * y + 5) % 256));
    }
  }
  return image;
}

TEST(Difference, IsTakenOfEachChannelWhicheverIsTheLarger) {
  struct Row {
    QColor one, other, difference;
  };
  const Row rows[] = {{{10, 200, 30}, {40, 150, 30}, {30, 50, 0}},
                      {{255, 0, 128}, {0, 255, 127}, {255, 255, 1}},
                      {Qt::white, Qt::black, Qt::white},
                      {Qt::black, Qt::black, Qt::black}};
  for (const auto& row : rows) {
    for (const bool turned : {false, true}) {
      const LaidPicture one{plain(row.one), kWhole};
      const LaidPicture other{plain(row.other), kWhole};
      const QImage out = turned ? difference(other, one, kGround) : difference(one, other, kGround);
      for (const QPoint at : {QPoint(0, 0), QPoint(39, 29), QPoint(17, 11)}) {
        EXPECT_EQ(out.pixelColor(at), row.difference);
      }
    }
  }
}

TEST(Difference, OfEqualPicturesIsBlackToThePixel) {
  const QImage out = difference({busy(), kWhole}, {busy(), kWhole}, kGround);
  EXPECT_EQ(out, plain(Qt::black));
}

TEST(Difference, OfEqualPicturesThatAreScaledIsBlackToThePixel) {
  const QImage small = busy({13, 11});
  const QImage out = difference({small, kWhole}, {small, kWhole}, kGround);
  EXPECT_EQ(out, plain(Qt::black));
}

TEST(Difference, IsOpaque) {
  const QImage out = difference({busy(), kWhole}, {busy(), kWhole}, kGround);
  for (int y = 0; y < out.height(); ++y) {
    const auto* line = reinterpret_cast<const QRgb*>(out.constScanLine(y));
    for (int x = 0; x < out.width(); ++x) ASSERT_EQ(qAlpha(line[x]), 255);
  }
}

TEST(Difference, ShowsOnePictureAloneWhereTheOtherDoesNotReach) {
  const QRect left(0, 0, 20, 30);
  const QImage out = difference({plain(Qt::red, left.size()), left},
                                {plain(Qt::blue, {40, 10}), {0, 0, 40, 10}}, kGround);
  EXPECT_EQ(out.pixelColor(5, 20), QColor(Qt::red));
  EXPECT_EQ(out.pixelColor(30, 5), QColor(Qt::blue));
  EXPECT_EQ(out.pixelColor(5, 5), QColor(255, 0, 255));
  EXPECT_EQ(out.pixelColor(30, 20), QColor(Qt::black));
}

TEST(Difference, OfOnePictureIsThatPicture) {
  EXPECT_EQ(difference({busy(), kWhole}, {}, kGround), busy());
  EXPECT_EQ(difference({}, {busy(), kWhole}, kGround), busy());
  EXPECT_EQ(difference({}, {}, kGround), plain(Qt::black));
  EXPECT_TRUE(difference({}, {}, {}).isNull());
}

TEST(Difference, SeesSeeThroughPicturesOnBlack) {
  QImage half(kGround, QImage::Format_ARGB32);
  half.fill(QColor(200, 100, 50, 128));
  const QImage out = difference({half, kWhole}, {}, kGround);
  EXPECT_EQ(out.pixelColor(3, 3).alpha(), 255);
  EXPECT_NEAR(out.pixelColor(3, 3).red(), 100, 1);
  EXPECT_NEAR(out.pixelColor(3, 3).green(), 50, 1);
}

}  // namespace
}  // namespace vellix
