// What stands in the place of a picture that did not load, in every view that shows one.
#include <QTest>

#include "views/sights.hpp"
#include "views/view_test.hpp"

namespace vellix {
namespace {

const QString kMissing = "This picture didn't load. It is tried again.";
const QString kMissingOver = "The page to lay over this one didn't load. It is tried again.";
const QString kBox = "A word changed, Fix, Open, page 1";

class MissingPictures : public ViewTest {
 protected:
  void open(const QSet<QString>& missing) {
    pictures.missing = missing;
    serveTheDay();
    showMain({1'400, 900});
    theme()->setReducedMotion(true);
    rest();
  }
  void rest() {
    for (int i = 0; i < 4; ++i) {
      settle();
      QTest::qWait(10);
    }
  }
  // From now on they can be had, and the source says so.
  void recover() {
    pictures.missing.clear();
    emit pictures.worthAnotherTry();
    rest();
  }
  qsizetype told(const QString& words = kMissing) {
    return reader().names(QAccessible::Graphic).count(words);
  }
  // On how many panes the finding is marked.
  qsizetype marks() { return reader().names(QAccessible::Button).count(kBox); }
  QColor middleOf(const QString& key) {
    for (QQuickItem* each : seen(window()->contentItem(), "RemoteImage")) {
      if (each->property("key").toString() != key) continue;
      const QPointF spot = each->mapToScene({each->width() / 4, each->height() / 4});
      return window()->grabWindow().pixelColor(
          (spot * window()->effectiveDevicePixelRatio()).toPoint());
    }
    return {};
  }
};

TEST_F(MissingPictures, NoneIsToldWhereAllAreHere) {
  open({});
  EXPECT_EQ(told(), 0);
  EXPECT_EQ(marks(), 2);
}

TEST_F(MissingPictures, APageSaysSoAndBearsNoMarks) {
  store().prefs.showPageStrip.set(false);  // its pictures go by the same keys
  open({"supplier-0"});
  EXPECT_EQ(told(), 1);
  EXPECT_EQ(marks(), 1) << "over nothing it would tell nothing";
  EXPECT_NE(middleOf("supplier-0"), theme()->paper());
  EXPECT_EQ(middleOf("submitted-0"), QColor(Qt::lightGray));
  recover();
  EXPECT_EQ(told(), 0);
  EXPECT_EQ(marks(), 2);
  EXPECT_EQ(middleOf("supplier-0"), QColor(Qt::lightGray));
}

TEST_F(MissingPictures, NoNoteIsBegunOnAPageThatIsNotThere) {
  store().prefs.showPageStrip.set(false);
  open({"supplier-0", "submitted-0"});
  ASSERT_EQ(told(), 2);
  for (QQuickItem* each : seen(window()->contentItem(), "RemoteImage")) {
    if (!each->property("key").toString().endsWith("-0")) continue;
    const QPointF spot = each->mapToScene({each->width() / 2, each->height() / 4});
    QTest::mouseClick(window(), Qt::LeftButton, {}, spot.toPoint());
  }
  settle();
  EXPECT_FALSE(store().draft());
}

TEST_F(MissingPictures, APageOfTheStripAndATicketsPictureSayIt) {
  open({"supplier-2", "thumb-1"});
  // The strip asks for nothing while it is being put in place.
  EXPECT_TRUE(QTest::qWaitFor([this] { return told() == 2; }));
  EXPECT_EQ(marks(), 2) << "the page on show is here";
  recover();
  EXPECT_TRUE(QTest::qWaitFor([this] { return told() == 0; }));
}

TEST_F(MissingPictures, ACutOutSaysItAndBearsNoMarks) {
  store().prefs.showPageStrip.set(false);
  open({"submitted-0"});
  ASSERT_EQ(told(), 1);
  store().focus.set("f1");
  rest();
  EXPECT_EQ(told(), 2) << "the pane and the cut-out";
  const auto crops = seen(window()->contentItem(), "Crop");
  ASSERT_EQ(crops.size(), 2);
  EXPECT_FALSE(seen(crops[0], "MarkFrame").isEmpty());
  EXPECT_TRUE(seen(crops[1], "MarkFrame").isEmpty());
  recover();
  EXPECT_EQ(told(), 0);
  EXPECT_FALSE(seen(crops[1], "MarkFrame").isEmpty());
}

TEST_F(MissingPictures, WhatIsToLieOverAPageIsToldBesideItsName) {
  store().prefs.showPageStrip.set(false);
  open({"submitted-0"});
  store().mode.set(CompareMode::overlay);
  rest();
  auto* compare = models()["compare"].value<CompareModel*>();
  for (const bool difference : {false, true}) {
    pictures.missing = {"submitted-0"};
    compare->setDifference(difference);
    rest();
    EXPECT_EQ(told(kMissingOver), 1) << difference;
    EXPECT_EQ(told(), 0) << difference;
    EXPECT_EQ(marks(), 1) << difference;
    recover();
    EXPECT_EQ(told(kMissingOver), 0) << difference;
  }
}

TEST_F(MissingPictures, APersonsLetterStandsUntilThePhotoIsHere) {
  BoardState board = boardOf({ticketOf("t1")});
  board.users[0].photo = "photo-1";
  pictures.missing = {"photo-1"};
  serveBoard(board);
  poll();
  showMain({1'400, 900});
  rest();
  const auto letters = [this] {
    qsizetype shown = 0;
    for (QQuickItem* avatar : seen(window()->contentItem(), "Avatar")) {
      const bool hasPhoto = !seen(avatar, "RemoteImage").isEmpty();
      if (hasPhoto) shown += seen(avatar, "Label").size();
    }
    return shown;
  };
  EXPECT_GT(letters(), 0);
  EXPECT_EQ(told(), 0) << "the letter says who it is";
  recover();
  EXPECT_EQ(letters(), 0);
}

}  // namespace
}  // namespace vellix
