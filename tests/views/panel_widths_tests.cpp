// What glides around the page and what is there at once, told by where everything stands in each
// frame: a window's width moves nothing by itself, a person does.
#include <QElapsedTimer>
#include <algorithm>

#include "views/notes_test.hpp"

namespace vellix {
namespace {

// The edges between strip, page and panel in one frame.
struct Stand {
  double strip = 0;  // where the page begins
  double page = 0;   // where it ends
  double panel = 0;  // where the panel begins and ends
  double trailing = 0;
  bool operator==(const Stand&) const = default;
};
BOOST_DESCRIBE_STRUCT(Stand, (), (strip, page, panel, trailing))

class PanelWidths : public NotesViewTest {
 protected:
  static constexpr int kLonger = 450;  // milliseconds than anything takes to glide

  PanelWidths() { serveTheDay(); }
  // The ticket's view is as wide as told.
  void open(double width) {
    showMain({1'500, 700});
    calm();
    lay(width);
    theme()->setReducedMotion(false);
    frames();
  }
  void lay(double width) {
    for (int turn = 0; turn < 3; ++turn) {
      const double other = window()->width() - the("FileView")->width();
      if (the("FileView")->width() == width) return;
      resize({static_cast<int>(width + other), 700});
    }
    ASSERT_EQ(the("FileView")->width(), width);
  }
  QQuickItem* the(const QByteArray& type) { return seen(window()->contentItem(), type).value(0); }
  static QRectF place(const QQuickItem* item) {
    return item ? item->mapRectToScene(item->boundingRect()) : QRectF{};
  }
  Stand stand() {
    const double end = window()->width();
    const QRectF view = place(the("FileView"));
    const QRectF page = place(the("CompareCanvas"));
    const QQuickItem* panel = the("TicketPanel");
    const QRectF at = panel ? place(panel) : QRectF{end, 0, 0, 0};
    return {page.left() - view.left(), end - page.right(), end - at.left(), end - at.right()};
  }
  // How all of it stands in the frames to come, each told once.
  std::vector<Stand> frames() {
    std::vector<Stand> all;
    QElapsedTimer since;
    since.start();
    while (since.elapsed() < kLonger) {
      desk.time.run();
      QCoreApplication::processEvents();
      window()->grabWindow();
      const Stand now = stand();
      if (all.empty() || !(all.back() == now)) all.push_back(now);
    }
    return all;
  }
};

using Stands = std::vector<Stand>;

TEST_F(PanelWidths, AreThereAtOnceBesideThePage) {
  open(1'110);
  ASSERT_EQ(stand(), (Stand{92, 330, 330, 0}));
  lay(1'090);
  EXPECT_EQ(frames(), (Stands{{92, 290, 290, 0}}));
  lay(1'110);
  EXPECT_EQ(frames(), (Stands{{92, 330, 330, 0}}));
}

TEST_F(PanelWidths, AreThereAtOnceOverThePage) {
  store().notesDrawer.set(true);
  open(910);
  lay(890);
  EXPECT_EQ(frames(), (Stands{{92, 0, 336, 16}}));
  lay(910);
  EXPECT_EQ(frames(), (Stands{{92, 290, 290, 0}}));
}

TEST_F(PanelWidths, TakeThePanelAwayAndBringItAtOnce) {
  open(910);
  lay(890);
  EXPECT_EQ(frames(), (Stands{{92, 0, 0, 0}}));
  lay(910);
  EXPECT_EQ(frames(), (Stands{{92, 290, 290, 0}}));
}

TEST_F(PanelWidths, TakeTheStripAwayAndBringItAtOnce) {
  open(870);
  ASSERT_EQ(stand().strip, 92);
  lay(850);
  EXPECT_EQ(frames(), (Stands{{0, 0, 0, 0}}));
  lay(870);
  EXPECT_EQ(frames(), (Stands{{92, 0, 0, 0}}));
}

TEST_F(PanelWidths, LeaveWhatAPersonHasBegunToItsEnd) {
  open(1'110);
  ASSERT_TRUE(press(models()["file"].value<FileModel*>()->notesPanel()["help"].toString()));
  ASSERT_TRUE(the("TicketPanel")) << "on its way";
  lay(1'090);
  EXPECT_EQ(frames().back(), (Stand{92, 0, 0, 0}));
}

TEST_F(PanelWidths, GlideWhereAPersonOpensAndCloses) {
  open(1'110);
  for (const bool opens : {false, true}) {
    ASSERT_TRUE(press(models()["file"].value<FileModel*>()->notesPanel()["help"].toString()));
    const auto all = frames();
    EXPECT_GT(all.size(), 2U) << opens;
    for (const Stand& each : all) EXPECT_EQ(each.page, each.panel) << "no gap";
    EXPECT_EQ(all.back().page, opens ? 330 : 0);
  }
}

TEST_F(PanelWidths, GlideWhereAPersonShowsAndHidesTheStrip) {
  open(1'110);
  for (const bool shown : {false, true}) {
    store().prefs.showPageStrip.set(shown);
    const auto all = frames();
    EXPECT_GT(all.size(), 2U) << shown;
    EXPECT_EQ(all.back().strip, shown ? 92 : 0);
  }
}

}  // namespace
}  // namespace vellix
