#include "pictures/PictureFitting.hpp"

#include <gtest/gtest.h>

namespace vellix {
namespace {

constexpr QSize kRoom(450, 675);

QImage blank(QSize size) {
  QImage image(size, QImage::Format_RGB32);
  image.fill(Qt::white);
  return image;
}

TEST(PictureFitting, FitsInTheMiddle) {
  struct Row {
    const char* why;
    QSize whole;
    QRect place;
  };
  const Row rows[] = {
      {"the same shape", {2000, 3000}, {0, 0, 450, 675}},
      {"wider", {3000, 2000}, {0, 187, 450, 300}},
      {"narrower", {1000, 3000}, {112, 0, 225, 675}},
      {"smaller", {20, 30}, {0, 0, 450, 675}},
      {"a little higher", {2000, 3010}, {0, 0, 450, 675}},
      {"a little wider", {2009, 3000}, {0, 0, 450, 675}},
      {"half a percent and more higher", {2000, 3020}, {1, 0, 447, 675}},
      {"half a percent and more wider", {2016, 3000}, {0, 2, 450, 670}},
      {"twenty times as wide", {2000, 100}, {0, 326, 450, 23}},
      {"twenty times as high", {100, 2000}, {208, 0, 34, 675}},
      {"a line", {1, 20'000}, {224, 0, 1, 675}},
      {"nothing", {0, 0}, {225, 337, 0, 0}},
  };
  for (const auto& row : rows) EXPECT_EQ(fittedPlace(row.whole, kRoom), row.place) << row.why;
}

TEST(PictureFitting, ReachesASideThatIsLessThanAPixelAway) {
  EXPECT_EQ(fittedPlace({901, 1203}, QSize(83, 110)), QRect(0, 0, 83, 110));
}

TEST(PictureFitting, FillsAndIsCropped) {
  EXPECT_EQ(fittedPlace({3000, 2000}, {{60, 60}, PictureFit::over}), QRect(-15, 0, 90, 60));
  EXPECT_EQ(fittedPlace({2000, 3000}, {{60, 60}, PictureFit::over}), QRect(0, -15, 60, 90));
  EXPECT_EQ(fittedPlace({1002, 1000}, {{500, 500}, PictureFit::over}), QRect(0, 0, 500, 500));
}

TEST(PictureFitting, TakesTheRoomsOwnSizeWhateverItsShape) {
  for (const QSize whole : {QSize(2000, 3000), QSize(3000, 2000), QSize(1, 20'000)}) {
    EXPECT_EQ(fittedPlace(whole, {kRoom, PictureFit::exactly}), QRect(QPoint(), kRoom));
  }
  EXPECT_EQ(exactSize({3000, 2000}, {kRoom, PictureFit::exactly}), kRoom);
  EXPECT_EQ(exactSize({3000, 200}, {kRoom, PictureFit::exactly}), QSize(450, 200));
  EXPECT_TRUE(fittedPlace({0, 0}, {kRoom, PictureFit::exactly}).isEmpty());
}

TEST(PictureFitting, IsExactWithThePixelsShownOrItsOwn) {
  EXPECT_EQ(exactSize({2000, 3000}, kRoom), kRoom);
  EXPECT_EQ(exactSize({200, 300}, kRoom), QSize(200, 300));
  EXPECT_EQ(exactSize({450, 676}, kRoom), kRoom);
  EXPECT_EQ(exactSize({450, 673}, kRoom), QSize(450, 673)) << "two are not made of one";
  EXPECT_EQ(exactSize({3000, 2000}, {{60, 60}, PictureFit::over}), QSize(90, 60));
  EXPECT_TRUE(isExact({blank(kRoom), {2000, 3000}}, kRoom));
  EXPECT_FALSE(isExact({blank({451, 677}), {2000, 3000}}, kRoom));
  EXPECT_FALSE(isExact({}, kRoom));
}

TEST(PictureFitting, PrefersTheExactThenEnoughThenTheMost) {
  const QSize whole(2000, 3000);
  const Pixels order[] = {{blank(kRoom), whole},        {blank({500, 750}), whole},
                          {blank({1000, 1500}), whole}, {blank({250, 375}), whole},
                          {blank({125, 187}), whole},   {}};
  for (std::size_t i = 0; i < std::size(order); ++i) {
    for (std::size_t k = 0; k < std::size(order); ++k) {
      EXPECT_EQ(looksBetter(order[i], order[k], kRoom), i < k) << i << ' ' << k;
    }
  }
}

TEST(PictureFitting, TellsThePartOfThePagesRoomThatAPageTakes) {
  EXPECT_EQ(roomOnPage({2000, 3000}, {450.2, 900}).size, QSize(450, 675));
  EXPECT_EQ(roomOnPage({3000, 2000}, {450.2, 900}).size, QSize(450, 300));
  EXPECT_EQ(roomOnPage({2000, 3000}, {450, 300}).size, QSize(200, 300));
  EXPECT_EQ(roomOnPage({100, 2000}, {450, 300}).size, QSize(60, 300)) << "no page is narrower";
  EXPECT_EQ(roomOnPage({2000, 3000}, {450, 900}).page, QSizeF(450, 900));
  EXPECT_TRUE(roomOnPage({0, 0}, {450, 900}).size.isEmpty());
}

}  // namespace
}  // namespace vellix
