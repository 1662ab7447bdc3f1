// Which pixels a picture's place asks for, and when; and where on the device they are painted.
#include "remote_image_test.hpp"
#include "rest.hpp"

namespace vellix {
namespace {

constexpr QSize kPage(2000, 3000);

class RemoteImagePixels : public RemoteImageTest {
 protected:
  QSize device(QSizeF logical) const { return (logical * scale()).toSize(); }
  bool rests() { return rest(item.get()); }
  // As a cache would hold them: the pixels that this room shows of a page.
  static Pixels shownIn(QSize room) { return {busy(exactSize(kPage, room)), kPage}; }
};

TEST_F(RemoteImagePixels, AreTheDevicesOwnWhereverTheItemStands) {
  const Pixels page = shownIn(device({40, 60}));
  ASSERT_EQ(page.image.size(), device({40, 60}));
  item->setSize({40, 60});
  for (const QPointF at : {QPointF(0, 0), QPointF(10.3, 7.7), QPointF(3.5, 20.25)}) {
    const QString key = QString::number(at.x());
    source.held[key] = page;
    item->setPosition(at);
    item->setKey(key);
    const QPoint corner(qRound(at.x() * scale()), qRound(at.y() * scale()));
    EXPECT_EQ(pixels().copy(QRect(corner, page.image.size())), page.image) << at.x();
  }
}

TEST_F(RemoteImagePixels, StayTheDevicesOwnWhileAParentMoves) {
  QQuickItem holder(window.contentItem());
  item->setParentItem(&holder);
  item->setSize({40, 60});
  source.held["a"] = shownIn(device({40, 60}));
  item->setKey("a");
  pixels();
  for (const qreal by : {0.3, 0.9, 4.0, 11.7}) {
    holder.setPosition({by, by / 2});
    const QPoint corner(qRound(by * scale()), qRound(by / 2 * scale()));
    EXPECT_EQ(pixels().copy(QRect(corner, device({40, 60}))), source.held["a"].image) << by;
  }
  item->setParentItem(nullptr);
}

TEST_F(RemoteImagePixels, OfAPictureThatFillsAreItsMiddlesOwn) {
  item->setFill(true);
  item->setSize({60, 60});
  const PictureRoom room(device({60, 60}), PictureFit::over);
  source.held["a"] = {busy(exactSize(kPage, room)), kPage};
  item->setKey("a");
  const QImage& image = source.held["a"].image;
  ASSERT_EQ(image.width(), room.size.width());
  const QImage seen = pixels().copy(QRect(QPoint(), room.size));
  EXPECT_EQ(seen, image.copy({{0, (image.height() - room.size.height()) / 2}, room.size}));
}

TEST_F(RemoteImagePixels, OfASmallPictureAreItsOwnEnlarged) {
  QImage two(2, 1, QImage::Format_RGB32);
  two.setPixelColor(0, 0, kRed);
  two.setPixelColor(1, 0, kBlue);
  source.held["a"] = two;
  item->setKey("a");
  EXPECT_EQ(seen({10, 50}), kRed);
  EXPECT_EQ(seen({90, 50}), kBlue);
  EXPECT_TRUE(source.requests.empty());
}

TEST_F(RemoteImagePixels, OfEqualPagesWithOtherSizesFillTheSameRoom) {
  item->setSize({60, 90});
  for (const QSize whole : {QSize(2000, 3000), QSize(2000, 3008), QSize(1996, 3001)}) {
    const QString key = QString::number(whole.height());
    source.held[key] = {plain(kRed, exactSize(whole, device({60, 90}))), whole};
    item->setKey(key);
    const QImage image = pixels();
    const QSize room = device({60, 90});
    EXPECT_EQ(QColor(image.pixel(0, 0)), kRed) << whole.width();
    EXPECT_EQ(QColor(image.pixel(room.width() - 1, room.height() - 1)), kRed) << whole.width();
  }
}

TEST_F(RemoteImagePixels, AreAskedForInTheSizeOfTheDevice) {
  item->setSize({40.4, 60});
  item->setPageRoom({50, 60});
  ask("a");
  ASSERT_EQ(source.requests.size(), 1U);
  EXPECT_EQ(source.requests[0].room.size, device({40.4, 60}));
  EXPECT_EQ(source.requests[0].room.page, QSizeF(50, 60) * scale());
  EXPECT_EQ(source.requests[0].room.fit, PictureFit::within);
  item->setFill(true);
  ask("b");
  EXPECT_EQ(source.requests.back().room.fit, PictureFit::over);
}

TEST_F(RemoteImagePixels, ThatAreNotExactAreShownAtOnceAndThenReplaced) {
  source.held["a"] = {plain(kRed, {20, 30}), kPage};
  item->setKey("a");
  EXPECT_EQ(seen(), kRed);
  ASSERT_EQ(source.requests.size(), 1U);
  source.answer(0, Pixels{plain(kBlue, exactSize(kPage, device(kRoom))), kPage});
  EXPECT_EQ(seen(), kBlue);
  EXPECT_FALSE(rests());
}

TEST_F(RemoteImagePixels, AreNotAskedForWhileTheSizeChanges) {
  source.held["a"] = shownIn(device({50, 75}));
  item->setSize({50, 75});
  ask("a");
  for (int step = 1; step <= 10; ++step) {
    item->setSize({50.0 + step, 75 + 1.5 * step});
    frame();
  }
  EXPECT_TRUE(source.requests.empty());
  EXPECT_TRUE(rests());
  ASSERT_EQ(source.requests.size(), 1U);
  EXPECT_EQ(source.requests[0].room.size, device({60, 90}));
  EXPECT_FALSE(rests()) << "nothing ticks at rest";
  source.answer(0, shownIn(device({60, 90})));
  EXPECT_EQ(pixels().copy(QRect(QPoint(), device({60, 90}))), shownIn(device({60, 90})).image);
  EXPECT_EQ(source.requests.size(), 1U);
}

TEST_F(RemoteImagePixels, AreAskedForAtOnceWhenThoseOnShowAreMuchTooFew) {
  source.held["a"] = {plain(kRed, {20, 30}), kPage};
  item->setSize({20 / scale(), 30 / scale()});
  ask("a");
  EXPECT_TRUE(source.requests.empty());
  for (const qreal width : {50.0, 52.0, 54.0}) {
    item->setSize({width, width * 1.5});
    EXPECT_EQ(seen({20, 20}), kRed);
  }
  EXPECT_EQ(source.requests.size(), 1U) << "but not again while they are on their way";
}

TEST_F(RemoteImagePixels, AtHandForAnotherSizeAreTakenInItsFirstFrame) {
  item->setSize({40, 60});
  source.held["a"] = {plain(kRed, device({40, 60})), kPage};
  ask("a");
  source.held["a"] = {plain(kBlue, device({60, 90})), kPage};
  item->setSize({60, 90});
  EXPECT_EQ(seen({20, 20}), kBlue);
  EXPECT_FALSE(rests());
  EXPECT_TRUE(source.requests.empty());
}

TEST_F(RemoteImagePixels, ThatAreBetterAreNotReplacedByWorse) {
  item->setSize({60, 90});
  source.held["a"] = {plain(kRed, device({60, 90})), kPage};
  ask("a");
  // Room had to be made meanwhile, and little is left.
  source.held["a"] = {plain(kBlue, {10, 15}), kPage};
  item->setSize({58, 87});
  EXPECT_EQ(seen({20, 20}), kRed);
}

TEST_F(RemoteImagePixels, OfAnotherKeyAreAskedForAtOnceThoughTheSizeChanges) {
  source.held["a"] = shownIn(device({50, 75}));
  item->setSize({50, 75});
  ask("a");
  item->setSize({52, 78});
  ask("b");
  ASSERT_EQ(source.requests.size(), 1U);
  EXPECT_EQ(source.requests[0].key, "b");
}

TEST_F(RemoteImagePixels, ThatCameForAnOlderSizeAreShownAndThenImproved) {
  item->setSize({40, 60});
  ask("a");
  item->setSize({60, 90});
  frame();
  source.answer(0, Pixels{plain(kRed, device({40, 60})), kPage});
  EXPECT_EQ(seen({50, 80}), kRed);
  EXPECT_TRUE(rests());
  ASSERT_EQ(source.requests.size(), 2U);
  source.answer(1, Pixels{plain(kBlue, device({60, 90})), kPage});
  EXPECT_EQ(seen({50, 80}), kBlue);
}

TEST_F(RemoteImagePixels, AreKeptWhenBetterCannotBeHad) {
  source.held["a"] = {plain(kRed, {50, 50}), {3000, 3000}};
  ask("a");
  ASSERT_EQ(source.requests.size(), 1U);
  source.answer(0, {});
  EXPECT_EQ(seen(), kRed);
  EXPECT_TRUE(item->ready());
}

}  // namespace
}  // namespace vellix
