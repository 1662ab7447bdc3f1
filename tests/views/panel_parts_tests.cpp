// Of a card, the parts that do not show are not made.
#include <QTest>

#include "views/sights.hpp"
#include "views/view_test.hpp"

namespace vellix {
namespace {

class PanelParts : public ViewTest {
 protected:
  PanelParts() {
    serveTheDay();
    detail = lighthouse();
    detail.findings = {findingOf("f1", 0), findingOf("p1", 0)};
    detail.findings[1].kind = "pass";
    serve();
    showMain({1'500, 940});
    theme()->setReducedMotion(true);
  }
  void serve() {
    serveDetail(detail);
    store().details.set({{"t1", detail}});
    if (window()) settle();
  }
  void leaveANote() {
    Note note;
    note.id = "n1";
    note.page = 0;
    note.finding_id = "f1";
    note.text = "Look at this";
    detail.comments = {note};
    serve();
  }
  // All in the first card, whether they are seen or not.
  qsizetype madeInIt(const QByteArray& type) { return made(card(), type); }
  qsizetype shown(const QByteArray& type) { return seen(card(), type).size(); }
  QQuickItem* card() { return seen(window()->contentItem(), "FindingCard").constFirst(); }

  FileDetail detail;
};

TEST_F(PanelParts, AreThoseThatShow) {
  for (const char* type : {"PanelRow", "NoteRows", "FocusRing", "Ring", "ToolTipArea"}) {
    EXPECT_EQ(madeInIt(type), 0) << type;
  }
  EXPECT_EQ(madeInIt("Triage"), 1);
}

TEST_F(PanelParts, ComeWithTheDecisionThatFoldsTheCard) {
  ASSERT_TRUE(press("Fine"));
  EXPECT_EQ(shown("PanelRow"), 1);
  EXPECT_EQ(shown("Triage"), 0);
  detail.findings[0].state = "open";
  serve();
  EXPECT_EQ(shown("PanelRow"), 0);
  EXPECT_EQ(shown("Triage"), 1);
}

TEST_F(PanelParts, AreNotThoseOfTheOpenCardWhereItComesFolded) {
  store().details.set({});
  settle();
  detail.findings[0].state = "fine";
  serve();
  EXPECT_EQ(shown("PanelRow"), 1);
  EXPECT_EQ(madeInIt("Triage"), 0);
  store().prefs.foldDecided.set(false);
  settle();
  EXPECT_EQ(shown("Triage"), 1);
}

TEST_F(PanelParts, ComeWithTheFirstNoteAndStay) {
  leaveANote();
  EXPECT_EQ(shown("NoteRows"), 1);
  EXPECT_EQ(shown("NoteRow"), 1);
  detail.comments.clear();
  serve();
  EXPECT_EQ(shown("NoteRows"), 0);
  EXPECT_EQ(madeInIt("NoteRows"), 1) << "what it tells as its last row goes is still heard";
}

TEST_F(PanelParts, HaveTheirRingsWhileTheyAreDue) {
  for (int i = 0; i < 80 && shown("FocusRing") == 0; ++i) {
    QTest::keyClick(window(), Qt::Key_Tab);
    settle();
  }
  EXPECT_EQ(shown("FocusRing"), 1);
  const QQuickItem* ring = seen(card(), "FocusRing").value(0);
  ASSERT_TRUE(ring);
  EXPECT_EQ(ring->parentItem(), window()->activeFocusItem());
  EXPECT_EQ(ring->width(), window()->activeFocusItem()->width() + 8);
  QTest::keyClick(window(), Qt::Key_Tab);
  settle();
  EXPECT_FALSE(ring->isVisible());
}

}  // namespace
}  // namespace vellix
