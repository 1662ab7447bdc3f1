// What glides in the panel beside the page and what is there at once, told by the heights of each
// frame.
#include <QElapsedTimer>
#include <functional>

#include "views/notes_test.hpp"

namespace vellix {
namespace {

constexpr int kLonger = 450;  // milliseconds than anything takes to glide

class PanelMotion : public NotesViewTest {
 protected:
  PanelMotion() {
    serveTheDay();
    detail = lighthouse();
    detail.findings = {named("f1", "One"), named("f2", "Two"), named("f4", "Four", 1),
                       named("p1", "Passed one"), named("p2", "Passed two", 1)};
    detail.findings[0].detail = std::string(120, 'w') + " again";
    detail.findings[3].kind = detail.findings[4].kind = "pass";
    detail.comments = {noteBy("n1", "renny", "A line\nand another\nand a third\nand a fourth"),
                       noteBy("n0", "jorvas")};
    detail.comments[1].finding_id = "f2";
    put();
    show("Inspector/Inspector",
         {{"inspector", models()["inspector"]},
          {"notes", models()["notes"]},
          {"history", models()["history"]},
          {"pictures", models()["pictures"]}},
         {320, 900});
    calm();
    theme()->setReducedMotion(false);
  }
  static Finding named(std::string id, std::string title, Int page = 0) {
    Finding finding = findingOf(std::move(id), page);
    finding.title = std::move(title);
    finding.before = "light";
    finding.after = "ligth";
    return finding;
  }
  void put() {
    detail.file.rev = detail.file.rev.value_or(0) + 1;
    store().details.set({{"t1", detail}});
  }
  QList<QQuickItem*> all(const char* type) { return seen(window()->contentItem(), type); }
  QQuickItem* card(const QString& id) {
    for (QQuickItem* each : all("FindingCard")) {
      if (each->property("id").toString() == id) return each;
    }
    return nullptr;
  }
  double content() { return all("ScrollArea").constFirst()->property("contentHeight").toDouble(); }
  // The heights that `of` has in the frames to come, each told once.
  QList<double> frames(const std::function<double()>& of) {
    QList<double> heights;
    QElapsedTimer since;
    since.start();
    while (since.elapsed() < kLonger) {
      desk.time.run();
      QCoreApplication::processEvents();
      window()->grabWindow();
      const double now = of();
      if (heights.isEmpty() || heights.last() != now) heights.append(now);
    }
    return heights;
  }
  QList<double> frames() {
    return frames([this] { return content(); });
  }
  // Comes to the last height by way of others between, each nearer to it.
  static bool glided(const QList<double>& heights, double from) {
    if (heights.size() < 3) return false;
    const double end = heights.last();
    double before = from;
    for (const double each : heights) {
      if (std::abs(each - end) > std::abs(before - end) + 0.01) return false;
      before = each;
    }
    return true;
  }

  FileDetail detail;
};

TEST_F(PanelMotion, StandsAtOnceWhereATicketOpens) {
  store().selection.set({"t2"});
  settle();
  ASSERT_TRUE(all("FindingCard").isEmpty());
  store().selection.set({"t1"});
  EXPECT_EQ(frames().size(), 1);
  ASSERT_EQ(all("FindingCard").size(), 2);
}

TEST_F(PanelMotion, StandsAtOnceWhereThePageIsTurned) {
  ASSERT_TRUE(press("1 check passed"));
  frames();
  for (const Int page : {1, 0, 2}) {
    store().goToPage("t1", page);
    EXPECT_EQ(frames().size(), 1) << page;
  }
}

TEST_F(PanelMotion, StandsAtOnceWherePollsChangeIt) {
  const double before = content();
  detail.findings[0].detail = "Short";
  put();
  const auto shorter = frames();
  EXPECT_EQ(shorter.size(), 1);
  EXPECT_LT(shorter.last(), before);
  detail.findings.insert(detail.findings.begin(), named("f0", "Another"));
  detail.comments.push_back(noteBy("n2", "jorvas"));
  detail.comments[0].text = "One line";
  put();
  EXPECT_EQ(frames().size(), 1);
}

TEST_F(PanelMotion, StandsAtOnceAtAnotherWidth) {
  const double before = content();
  window()->resize(260, 900);
  ASSERT_TRUE(QTest::qWaitFor([this] { return window()->contentItem()->width() == 260; }));
  const auto narrow = frames();
  EXPECT_EQ(narrow.size(), 1);
  EXPECT_GT(narrow.last(), before);
}

TEST_F(PanelMotion, GlidesWhereAFindingIsDecidedAndOpenedAgain) {
  const double open = card("f1")->height();
  const auto of = [this] { return card("f1")->height(); };
  ASSERT_TRUE(reader().press("Fine", QAccessible::Button));
  const auto folding = frames(of);
  EXPECT_TRUE(glided(folding, open));
  EXPECT_EQ(folding.last(), 36);
  ASSERT_TRUE(reader().press("One", QAccessible::Button));
  const auto opening = frames(of);
  EXPECT_TRUE(glided(opening, 36));
  EXPECT_GE(opening.last(), open);
  // Whatever was decided in the meantime, a poll finds it at rest.
  detail.findings[0].state = "fine";
  detail.findings[0].detail = "Short";
  put();
  EXPECT_EQ(frames(of).size(), 1);
}

TEST_F(PanelMotion, GlidesWhereAPassedCheckIsChosen) {
  const double closed = content();
  ASSERT_TRUE(reader().press("1 check passed", QAccessible::Button));
  EXPECT_TRUE(glided(frames(), closed));
  const double brief = card("p1")->height();
  ASSERT_TRUE(reader().press("Passed one", QAccessible::ListItem));
  const auto of = [this] { return card("p1")->height(); };
  const auto opening = frames(of);
  EXPECT_TRUE(glided(opening, brief));
  EXPECT_GT(opening.last(), brief);
  store().focus.set(std::nullopt);
  const auto closing = frames(of);
  EXPECT_TRUE(glided(closing, opening.last()));
  EXPECT_EQ(closing.last(), brief);
}

TEST_F(PanelMotion, GlidesWhereANoteIsEdited) {
  const auto of = [this] { return all("NoteRow").constLast()->height(); };
  const double read = of();
  ASSERT_TRUE(press("Edit or delete"));
  ASSERT_TRUE(comes([this] { return offers("Edit"); }));
  ASSERT_TRUE(reader().press("Edit", QAccessible::MenuItem));
  const auto opening = frames(of);
  EXPECT_TRUE(glided(opening, read));
  EXPECT_GT(opening.last(), read);
  ASSERT_EQ(keyedName(), "Note");
  type("x");
  key(Qt::Key_Return);
  EXPECT_EQ(frames(of).size(), 1) << "as high as its text at once";
  ASSERT_TRUE(reader().press("Cancel", QAccessible::Button));
  const auto closing = frames(of);
  EXPECT_GT(closing.size(), 2);
  EXPECT_EQ(closing.last(), read);
}

TEST_F(PanelMotion, KeepsAnEditorInSightWhileItOpens) {
  resize({320, 300});
  focus(item("Edit or delete"));
  ASSERT_TRUE(press("Edit or delete"));
  ASSERT_TRUE(comes([this] { return offers("Edit"); }));
  ASSERT_TRUE(press("Edit", QAccessible::MenuItem));
  frames();
  const QQuickItem* save = item("Save");
  ASSERT_TRUE(save);
  EXPECT_LE(save->mapRectToScene(save->boundingRect()).bottom(), 300);
}

TEST_F(PanelMotion, GlidesWhereANoteIsBegun) {
  const auto of = [this] { return all("Composer").constFirst()->height(); };
  const double line = of();
  field(kField)->forceActiveFocus(Qt::TabFocusReason);
  const auto opening = frames(of);
  EXPECT_TRUE(glided(opening, line));
  window()->resize(260, 900);
  ASSERT_TRUE(QTest::qWaitFor([this] { return window()->contentItem()->width() == 260; }));
  EXPECT_EQ(frames(of).size(), 1);
}

TEST_F(PanelMotion, StandsStillForWhoAsksForIt) {
  theme()->setReducedMotion(true);
  ASSERT_TRUE(reader().press("Fine", QAccessible::Button));
  EXPECT_EQ(frames().size(), 1);
}

// By each card and from its first frame on, with the ticket, its page and the panel all coming
// anew.
TEST_F(PanelMotion, BringsCardsAtTheirWholeHeight) {
  for (int i = 0; i < 4; ++i) {
    Finding finding = named("g" + std::to_string(i), "Page two", 1);
    finding.detail =
        std::string(300, 'x') + " " + std::string(static_cast<std::size_t>(40 * i), 'z');
    finding.state = i == 2 ? "fine" : "open";
    detail.findings.push_back(finding);
  }
  detail.comments.push_back(noteBy("n5", "jorvas"));
  detail.comments.back().finding_id = "g3";
  put();
  const auto expectWhole = [this](const std::string& where) {
    std::map<const QQuickItem*, QList<double>> heights;
    frames([&] {
      for (const QQuickItem* each : all("FindingCard")) {
        auto& own = heights[each];
        if (own.isEmpty() || own.last() != each->height()) own.append(each->height());
      }
      return 0.0;
    });
    EXPECT_FALSE(heights.empty()) << where;
    for (const auto& [card, own] : heights) {
      EXPECT_EQ(own.size(), 1) << where << ", from " << own.first() << " to " << own.last();
    }
  };
  store().goToPage("t1", 1);
  for (const QSize size : {QSize{1'500, 940}, QSize{1'200, 700}}) {
    store().selection.set({"t1"});
    showMain(size);
    theme()->setReducedMotion(false);
    expectWhole("the window opens");
    store().selection.set({});
    frames([] { return 0; });
    store().selection.set({"t1"});
    expectWhole("a ticket opens");
    for (const Int page : {0, 1}) {
      store().goToPage("t1", page);
      expectWhole("page " + std::to_string(page));
    }
  }
}

TEST_F(PanelMotion, StandsAtOnceInTheWindow) {
  showMain({1'500, 940});
  calm();
  theme()->setReducedMotion(false);
  for (const char* id : {"t2", "t1"}) {
    store().selection.set({id});
    desk.time.run();
    frames([] { return 0; });
  }
  store().selection.set({"t2"});
  frames([] { return 0; });
  store().selection.set({"t1"});
  desk.time.run();
  const auto tops = [this] {
    double sum = 0;
    for (const QQuickItem* each : all("StateButton")) sum += each->mapToScene({0, 0}).y();
    for (const QQuickItem* each : all("FindingCard")) sum += each->height();
    return sum;
  };
  EXPECT_EQ(frames(tops).size(), 1) << "where a ticket opens";
  ASSERT_EQ(all("StateButton").size(), 4);
  for (const Int page : {1, 0}) {
    store().goToPage("t1", page);
    EXPECT_EQ(frames(tops).size(), 1) << page;
  }
}

}  // namespace
}  // namespace vellix
