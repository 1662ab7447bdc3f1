// The panel is one, beside the page and over it: what is written in it outlasts every layout.
#include "shell/unsent_words.hpp"

#include <algorithm>

#include "views/notes_test.hpp"

namespace vellix {
namespace {

class PanelKeepsWords : public NotesViewTest {
 protected:
  static constexpr QSize kWide{1'500, 940};
  static constexpr QSize kNarrow{760, 540};

  PanelKeepsWords() {
    serveTheDay();
    store().details.set({{"t1", withNotes({noteBy("n1", "renny")})}});
  }
  void open(QSize size = kWide) {
    showMain(size);
    calm();
    settle();
  }
  // Half a sentence, with the caret in its middle.
  QQuickItem* write() {
    focus(field(kField));
    type("Too drk");
    key(Qt::Key_Left);
    key(Qt::Key_Left);
    return keyed();
  }
  static int caret(const QQuickItem* field) { return field->property("cursorPosition").toInt(); }
  QQuickItem* the(const QByteArray& type) { return seen(window()->contentItem(), type).value(0); }
  bool inPanel(const QQuickItem* item) {
    for (; item; item = item->parentItem()) {
      if (isOfType(item, "TicketPanel")) return true;
    }
    return false;
  }
  void toggle() { key(Qt::Key_I, Qt::ControlModifier | Qt::AltModifier); }
  // Of the button that shows and hides it.
  QString help() { return models()["file"].value<FileModel*>()->notesPanel()["help"].toString(); }
  bool atItsButton() { return keyedName() == help() && !help().isEmpty(); }
};

TEST_F(PanelKeepsWords, WhereTheWindowIsNarrowForAWhile) {
  open();
  QQuickItem* written = write();
  ASSERT_TRUE(press("Tag people"));
  ASSERT_TRUE(comes([this] { return offers("Jorvas"); }));
  ASSERT_TRUE(press("Jorvas", QAccessible::MenuItem));
  key(Qt::Key_Escape);
  ASSERT_TRUE(comes([this] { return !offers("Jorvas"); }));
  focus(written);
  resize(kNarrow);
  EXPECT_FALSE(the("TicketPanel"));
  EXPECT_FALSE(field(kField)) << "nobody finds it";
  EXPECT_TRUE(atItsButton()) << keyedName().toStdString();
  EXPECT_TRUE(holdUnsentWords({window()})) << "it is still being written";
  resize(kWide);
  ASSERT_TRUE(comes([&] { return keyed() == written; }));
  EXPECT_EQ(textOf(written), "Too drk");
  EXPECT_EQ(caret(written), 5);
  EXPECT_EQ(seen(the("Composer"), "TagChip").size(), 1);
  type("a");
  EXPECT_EQ(textOf(written), "Too dark");
}

TEST_F(PanelKeepsWords, WhileItGoesFromBesideThePageToOverIt) {
  store().notesDrawer.set(true);
  open();
  QQuickItem* written = write();
  const QRectF beside = the("TicketPanel")->mapRectToScene(the("TicketPanel")->boundingRect());
  EXPECT_EQ(beside.width(), 330);
  EXPECT_EQ(beside.right(), 1'500);
  resize(kNarrow);
  EXPECT_EQ(keyed(), written);
  const QQuickItem* card = the("TicketPanel");
  ASSERT_TRUE(card);
  const QRectF over = card->mapRectToScene(card->boundingRect());
  EXPECT_EQ(over.width(), 320);
  EXPECT_EQ(over.right(), 760 - 16);
  const QQuickItem* bar = the("CanvasBar");
  EXPECT_EQ(over.bottom() + 16, bar->mapToScene({0, 0}).y());
  EXPECT_EQ(seen(card, "QQuickRectangle").value(0)->property("radius").toDouble(), 16);
  EXPECT_EQ(seen(card, "Shadow").value(0)->parentItem()->parentItem(), card);
  EXPECT_EQ(bar->mapToScene({bar->width(), 0}).x(), 760) << "it stands over the page";
  type("a");
  resize(kWide);
  EXPECT_EQ(keyed(), written);
  EXPECT_EQ(textOf(written), "Too dark");
  EXPECT_EQ(the("TicketPanel")->mapRectToScene(the("TicketPanel")->boundingRect()).width(), 330);
}

TEST_F(PanelKeepsWords, OfANoteThatIsBeingEdited) {
  open();
  ASSERT_TRUE(press("Edit or delete"));
  ASSERT_TRUE(comes([this] { return offers("Edit"); }));
  ASSERT_TRUE(press("Edit", QAccessible::MenuItem));
  ASSERT_TRUE(comes([this] { return keyedName() == "Note"; }));
  QQuickItem* written = keyed();
  type("!");
  resize(kNarrow);
  EXPECT_FALSE(field("Note"));
  resize(kWide);
  ASSERT_TRUE(comes([&] { return keyed() == written; }));
  EXPECT_EQ(textOf(written), "Too dark!");
}

TEST_F(PanelKeepsWords, OfADraft) {
  open();
  store().draft.set(DraftNote{"t1", 0, "supplier", 0.1, 0.1, 0.2, 0.1, "f1"});
  ASSERT_TRUE(comes([this] { return keyedName() == kCardField; }));
  type("Too drk");
  key(Qt::Key_Left);
  QQuickItem* written = keyed();
  resize(kNarrow);
  EXPECT_EQ(keyed(), written);
  resize(kWide);
  EXPECT_EQ(keyed(), written);
  EXPECT_EQ(textOf(written), "Too drk");
  EXPECT_EQ(caret(written), 6);
}

TEST_F(PanelKeepsWords, WhileItIsHidden) {
  open();
  QQuickItem* written = write();
  toggle();
  EXPECT_FALSE(the("TicketPanel"));
  EXPECT_FALSE(field(kField));
  EXPECT_TRUE(atItsButton()) << "where it is shown again";
  toggle();
  ASSERT_TRUE(the("TicketPanel"));
  EXPECT_TRUE(atItsButton()) << "nothing takes the keyboard by itself";
  EXPECT_EQ(field(kField), written);
  EXPECT_EQ(textOf(written), "Too drk");
  EXPECT_EQ(caret(written), 5);
}

TEST_F(PanelKeepsWords, FromWhoGoesThereOnItsWayOut) {
  open();
  QQuickItem* written = write();
  theme()->setReducedMotion(false);
  ASSERT_TRUE(comes([this] { return the("TicketPanel")->property("moves").toBool(); }));
  // No frame is painted until the hand is there.
  QTest::keyClick(window(), Qt::Key_I, Qt::ControlModifier | Qt::AltModifier);
  desk.time.run();
  ASSERT_FALSE(store().notesOpen());
  ASSERT_TRUE(atItsButton()) << keyedName().toStdString();
  ASSERT_TRUE(the("TicketPanel")) << "it is still going";
  written->forceActiveFocus(Qt::TabFocusReason);
  ASSERT_TRUE(inPanel(keyed()));
  EXPECT_TRUE(comes([this] { return !the("TicketPanel"); }));
  EXPECT_TRUE(comes([this] { return atItsButton(); })) << keyedName().toStdString();
}

TEST_F(PanelKeepsWords, AndGivesTheKeyboardToItsButtonFromWhateverHadIt) {
  open();
  focus(item("Real issue"));
  ASSERT_TRUE(inPanel(keyed()));
  toggle();
  EXPECT_TRUE(atItsButton()) << keyedName().toStdString();
  toggle();
  store().setSideTab("history");
  settle();
  QQuickItem* tab = item("History", QAccessible::PageTab);
  focus(tab);
  ASSERT_TRUE(inPanel(keyed()));
  toggle();
  EXPECT_TRUE(atItsButton()) << keyedName().toStdString();
}

TEST_F(PanelKeepsWords, BelowTheFoldWithTheirCaretInSight) {
  open({1'500, 640});
  QQuickItem* written = write();
  resize({760, 640});
  resize({1'500, 640});
  ASSERT_TRUE(comes([&] { return keyed() == written; }));
  const QQuickItem* panel = the("TicketPanel");
  const QRectF caret = written->mapRectToScene(written->property("cursorRectangle").toRectF());
  const QRectF room = panel->mapRectToScene(panel->boundingRect());
  EXPECT_GE(caret.top(), room.top());
  EXPECT_LE(caret.bottom(), room.bottom());
}

TEST_F(PanelKeepsWords, AndItsPlaceAndItsSide) {
  open({1'500, 700});
  QQuickItem* area = nullptr;
  for (QQuickItem* each : seen(the("Inspector"), "ScrollArea")) area = area ? area : each;
  ASSERT_TRUE(area);
  ASSERT_GT(area->property("contentHeight").toDouble(), area->height() + 60);
  area->setProperty("contentY", 60);
  toggle();
  toggle();
  EXPECT_EQ(area->property("contentY").toDouble(), 60);
  store().setSideTab("history");
  settle();
  EXPECT_TRUE(the("HistorySide"));
  resize(kNarrow);
  EXPECT_FALSE(the("HistorySide"));
  resize(kWide);
  EXPECT_TRUE(the("HistorySide"));
}

TEST_F(PanelKeepsWords, WithoutAStopOfTabWhileItIsHidden) {
  open();
  write();
  toggle();
  for (int i = 0; i < 60; ++i) {
    key(Qt::Key_Tab);
    ASSERT_FALSE(inPanel(keyed())) << keyedName().toStdString();
  }
}

TEST_F(PanelKeepsWords, AndGivesTheKeyboardBackToNobodyWhoHasGoneOn) {
  open();
  QQuickItem* written = write();
  resize(kNarrow);
  focus(item("Make report"));
  resize(kWide);
  QTest::qWait(20);
  settle();
  EXPECT_EQ(keyedName(), "Make report");
  EXPECT_EQ(textOf(written), "Too drk");
}

TEST_F(PanelKeepsWords, AndIsNotMadeBeforeItIsWanted) {
  store().prefs.showNotes.set(false);
  open();
  const auto made = [this] {
    const auto all = window()->findChildren<QQuickItem*>();
    return std::ranges::any_of(all,
                               [](const QQuickItem* each) { return isOfType(each, "Inspector"); });
  };
  EXPECT_FALSE(made());
  toggle();
  EXPECT_TRUE(the("Inspector"));
  EXPECT_TRUE(field(kField));
}

TEST_F(PanelKeepsWords, AndSlidesInFromTheTrailingEdge) {
  open();
  theme()->setReducedMotion(false);
  for (const QSize size : {kWide, kNarrow}) {
    resize(size);
    QTest::qWait(400);
    settle();
    if (the("TicketPanel")) {
      ASSERT_TRUE(press(help()));
      ASSERT_TRUE(comes([this] { return !the("TicketPanel"); }));
    }
    ASSERT_TRUE(press(help()));
    QQuickItem* panel = the("TicketPanel");
    ASSERT_TRUE(panel);
    const double end = size.width() - (size == kWide ? 330 : 320 + 16);
    EXPECT_GT(panel->mapToScene({0, 0}).x(), end + 1);
    EXPECT_TRUE(comes([&] { return panel->mapToScene({0, 0}).x() == end; }));
  }
}

TEST_F(PanelKeepsWords, UnderTheCardOfANoteOnAFinding) {
  store().notesDrawer.set(true);
  open(kNarrow);
  QQuickItem* written = write();
  ASSERT_TRUE(press("Add a note to this"));
  ASSERT_TRUE(comes([this] { return keyedName() == kCardField; }));
  const QQuickItem* card = the("DraftCard");
  ASSERT_TRUE(card);
  const QRectF place = card->mapRectToScene(card->boundingRect());
  const QQuickItem* panel = the("TicketPanel");
  ASSERT_TRUE(panel);
  ASSERT_TRUE(place.intersects(panel->mapRectToScene(panel->boundingRect())));
  const QQuickItem* canvas = the("CompareCanvas");
  EXPECT_TRUE(canvas->mapRectToScene(canvas->boundingRect()).contains(place));
  // What lies on top there is the card.
  const QImage with = window()->grabWindow();
  for (const double part : {0.1, 0.5, 0.9}) {
    const QPoint at{static_cast<int>(place.x() + part * place.width()),
                    static_cast<int>(place.bottom()) - 4};
    EXPECT_EQ(with.pixelColor(at), theme()->raised()) << part;
  }
  type("On the finding");
  EXPECT_EQ(textOf(field(kCardField)), "On the finding");
  EXPECT_EQ(textOf(written), "Too drk");
  ASSERT_TRUE(press("Discard (Esc)"));
  EXPECT_FALSE(store().draft());
  ASSERT_TRUE(comes([this] { return !the("DraftCard"); }));
  EXPECT_TRUE(inPanel(keyed())) << keyedName().toStdString();
}

TEST_F(PanelKeepsWords, WithNoMenuLeftWithoutItsButton) {
  open();
  for (const char* button : {"Tag people", "Edit or delete"}) {
    write();
    const QString entry = QByteArray{button} == "Tag people" ? "Jorvas" : "Edit";
    ASSERT_TRUE(press(button)) << button;
    ASSERT_TRUE(comes([&] { return offers(entry); })) << button;
    resize(kNarrow);
    EXPECT_TRUE(comes([&] { return !offers(entry); })) << button;
    resize(kWide);
    settle();
  }
}

}  // namespace
}  // namespace vellix
