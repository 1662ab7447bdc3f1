// A finding under the pointer: its card and its marks answer one another.
#include "views/notes_test.hpp"
#include "views/operations.hpp"
#include "views/page_sights.hpp"

namespace vellix {
namespace {

// Turns without a move, after which nothing glides any more.
constexpr int kStill = 12;

class PanelHover : public NotesViewTest {
 protected:
  PanelHover() {
    serveTheDay();
    detail = lighthouse();
    detail.findings = {placed("f1", 0.1), placed("f2", 0.4), placed("f3", 0.7), findingOf("f4", 1)};
    detail.findings[2].state = "fine";
    put();
    showMain({1'500, 940});
    calm();
    // What was on its way before it was calm takes the marks along.
    QList<QRectF> before;
    int still = 0;
    EXPECT_TRUE(comes([&] {
      still = std::exchange(before, places()) == before ? still + 1 : 0;
      return still >= kStill;
    }));
  }
  static Finding placed(std::string id, double y) {
    Finding finding = findingOf(std::move(id));
    finding.title = finding.id;
    finding.box = {0.1, y, 0.2, 0.1};
    return finding;
  }
  void put() {
    detail.file.rev = detail.file.rev.value_or(0) + 1;
    store().details.set({{"t1", detail}});
    if (window()) settle();
  }
  QQuickItem* card(const QString& id) {
    for (QQuickItem* each : seen(window()->contentItem(), "FindingCard")) {
      if (each->property("id").toString() == id) return each;
    }
    return nullptr;
  }
  // The lines of all marks on the page, by their findings.
  std::map<QString, QList<double>> lines() {
    std::map<QString, QList<double>> all;
    for (const SeenMark& each : seenMarks(window()->contentItem())) {
      all[each.finding].append(each.line);
    }
    return all;
  }
  QList<QRectF> places() {
    QList<QRectF> all;
    for (const SeenMark& each : seenMarks(window()->contentItem())) all.append(each.place);
    return all;
  }
  QStringList lit() {
    QStringList found;
    for (const auto& [finding, widths] : lines()) {
      if (widths == QList<double>{2.4, 2.4}) {
        found.append(finding);
      } else {
        EXPECT_EQ(widths, (QList<double>{1.6, 1.6})) << finding.toStdString();
      }
    }
    return found;
  }
  QImage look(const QQuickItem* item) {
    const QRectF place = item->mapRectToScene(item->boundingRect());
    return window()->grabWindow().copy(place.toRect());
  }
  void point(QPoint at) {
    // A first move only brings the pointer in.
    QTest::mouseMove(window(), at - QPoint{1, 0});
    QTest::mouseMove(window(), at);
    settle();
  }
  void point(const QQuickItem* at) { point(at->mapToScene({24, 14}).toPoint()); }
  void point(const SeenMark& at) { point((at.place.topLeft() + QPointF{24, 14}).toPoint()); }
  std::optional<SeenMark> lastMark(const QString& finding) {
    std::optional<SeenMark> last;
    for (const SeenMark& each : seenMarks(window()->contentItem())) {
      if (each.finding == finding) last = each;
    }
    return last;
  }
  void leave() { point(QPoint{700, 6}); }

  FileDetail detail;
};

TEST_F(PanelHover, ShowsTheMarksOfACard) {
  EXPECT_EQ(lit(), QStringList{});
  for (const char* id : {"f1", "f2", "f3"}) {
    const QImage before = look(card(id));
    point(card(id));
    EXPECT_EQ(lit(), QStringList{id}) << "on both panes, and no other's";
    EXPECT_NE(look(card(id)), before) << id << " has a ground of its own";
    leave();
    EXPECT_EQ(lit(), QStringList{});
    EXPECT_EQ(look(card(id)), before);
  }
}

TEST_F(PanelHover, ShowsTheCardOfAMark) {
  const QImage before = look(card("f2"));
  ASSERT_TRUE(lastMark("f2"));
  EXPECT_TRUE(comes([&] {
    point(*lastMark("f2"));
    return lit() == QStringList{"f2"};
  }));
  EXPECT_NE(look(card("f2")), before);
  leave();
  EXPECT_EQ(look(card("f2")), before);
  EXPECT_EQ(lit(), QStringList{});
}

TEST_F(PanelHover, GoesFromOneToTheOther) {
  point(card("f1"));
  point(card("f2"));
  EXPECT_EQ(lit(), QStringList{"f2"});
  for (const SeenMark& each : seenMarks(window()->contentItem())) {
    if (each.finding == "f2") point(each);
  }
  EXPECT_EQ(lit(), QStringList{"f2"}) << "from its card straight to its mark";
  point(card("f2"));
  EXPECT_EQ(lit(), QStringList{"f2"}) << "and back";
}

TEST_F(PanelHover, TellsNoRowsAnew) {
  auto* compare = models()["compare"].value<CompareModel*>();
  auto* inspector = models()["inspector"].value<InspectorModel*>();
  Operations panes{compare->panes()};
  Operations cards{inspector->cards()};
  const QSignalSpy bars{compare, &CompareModel::barChanged};
  const QSignalSpy heads{inspector, &InspectorModel::headChanged};
  const auto ids = [this] {
    QList<int> all;
    for (const SeenMark& each : seenMarks(window()->contentItem())) all.append(each.id);
    return all;
  };
  const auto marks = ids();
  for (const char* id : {"f1", "f2", "f3", "f1"}) point(card(id));
  leave();
  EXPECT_EQ(panes.take(), std::vector<std::string>{});
  EXPECT_EQ(cards.take(), std::vector<std::string>{});
  EXPECT_EQ(bars.count(), 0);
  EXPECT_EQ(heads.count(), 0);
  EXPECT_EQ(ids(), marks);
}

TEST_F(PanelHover, EndsWithWhatWasPointedAt) {
  auto* compare = models()["compare"].value<CompareModel*>();
  point(card("f1"));
  ASSERT_EQ(compare->pointed(), "f1");
  const auto removed = detail.findings.front();
  detail.findings.erase(detail.findings.begin());
  put();
  EXPECT_TRUE(comes([&] { return compare->pointed() != "f1"; })) << "by a poll";
  detail.findings.insert(detail.findings.begin(), removed);
  put();
  point(card("f1"));
  store().goToPage("t1", 1);
  settle();
  EXPECT_TRUE(comes([&] { return compare->pointed() != "f1"; })) << "with its page";
  leave();
  store().goToPage("t1", 0);
  settle();
  EXPECT_TRUE(comes([&] { return compare->pointed() == ""; }));
  point(card("f1"));
  store().prefs.showNotes.set(false);
  ASSERT_TRUE(comes([&] { return compare->pointed() == ""; })) << "with the panel";
}

TEST_F(PanelHover, FollowsACardThatFoldsUnderThePointer) {
  point(card("f1"));
  ASSERT_TRUE(press("Fine"));
  leave();
  EXPECT_EQ(lit(), QStringList{});
}

}  // namespace
}  // namespace vellix
