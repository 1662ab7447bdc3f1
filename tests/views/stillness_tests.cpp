// A day's presses at many sizes: no control that stays moves.
#include <QTest>
#include <map>

#include "views/sights.hpp"
#include "views/view_test.hpp"

namespace vellix {
namespace {

// Where the controls are that stand for themselves, by their objects. What lies on the page, the
// pages of the strip and the panel's findings go their own ways.
struct Standing {
  QString name;
  QRect place;
  bool operator==(const Standing&) const = default;
};
using Places = std::map<const QObject*, Standing>;

struct WindowSize {
  int width = 0;
  int height = 0;
};
BOOST_DESCRIBE_STRUCT(WindowSize, (), (width, height))

std::string words(const QRect& place) {
  return std::to_string(place.x()) + ", " + std::to_string(place.y()) + ", " +
         std::to_string(place.width()) + " by " + std::to_string(place.height());
}

bool isControl(QAccessible::Role role) {
  constexpr std::array kRoles{QAccessible::Button,      QAccessible::CheckBox,
                              QAccessible::RadioButton, QAccessible::PageTab,
                              QAccessible::Slider,      QAccessible::EditableText,
                              QAccessible::ListItem,    QAccessible::ButtonMenu};
  return std::ranges::find(kRoles, role) != kRoles.end();
}

void look(QAccessibleInterface* at, bool panel, Places& places) {
  if (!at || !at->isValid() || at->state().invisible) return;
  const QString name = at->text(QAccessible::Name);
  if (name == "Pages") return;
  panel = panel || name == "Findings" || name == "History";
  const bool counts = panel ? at->role() == QAccessible::PageTab : isControl(at->role());
  if (counts) places[at->object()] = {name, at->rect()};
  for (int i = 0; i < at->childCount(); ++i) look(at->child(i), panel, places);
}

class StandingStill : public ViewTest, public testing::WithParamInterface<WindowSize> {
 protected:
  StandingStill() {
    BoardState board = boardOf({});
    for (const FileDetail& detail : {book("t1", 1, 120), book("t2", 1, 3), book("t3", 2, 12)}) {
      board.files.push_back(detail.file);
      serveDetail(detail, "\"" + detail.file.id + "\"");
    }
    serveBoard(board);
    poll();
    store().selection.set({"t1"});
    showMain({GetParam().width, GetParam().height});
    theme()->setReducedMotion(true);
    EXPECT_TRUE(QTest::qWaitFor([this] { return stands(); }, 5'000));
  }
  // A book whose pages have from none to three findings, and now and then a note.
  static FileDetail book(const std::string& id, Int version, Int pages) {
    FileDetail detail = detailOf(ticketAt(id, 1, version));
    FileItem& file = detail.file;
    file.title = "Book " + id;
    file.status = "in_review";
    file.supplier = "Harrow & Daughters, Printers";
    file.due = 1'700'000'000'000;
    file.pages = pagesOf(pages);
    for (auto& page : *file.pages) {
      page.px = {300, 400};
      page.refs = {{version > 1 ? "previous" : "submitted", RefPage{.img = "r"}}};
      for (Int i = 0; i < page.i % 4; ++i) {
        const std::string place = std::to_string(page.i) + "-" + std::to_string(i);
        detail.findings.push_back(findingOf("f-" + place, page.i));
      }
    }
    return detail;
  }
  void rest() {
    for (int i = 0; i < 4; ++i) settle();
  }
  // What came into sight by a glide has arrived.
  bool stands() {
    const Places before = places();
    QTest::qWait(50);
    rest();
    return before == places();
  }
  Places places() {
    Places all;
    look(QAccessible::queryAccessibleInterface(window()), false, all);
    return all;
  }
  // Every control that was there before and is there still stands where it stood.
  void still(const std::string& after) {
    rest();
    Places now = places();
    EXPECT_GT(now.size(), 15U) << after;
    for (const auto& [object, before] : stood_) {
      const auto found = now.find(object);
      if (found == now.end()) continue;
      EXPECT_TRUE(found->second.place == before.place)
          << after << " moved \"" << before.name.toStdString() << "\" from " << words(before.place)
          << " to " << words(found->second.place);
    }
    stood_ = std::move(now);
  }
  void begin() { stood_ = places(); }
  // Where controls of a name stand, whatever shows them.
  std::string placeOf(const QString& name, QAccessible::Role role) {
    auto* found = reader().find(name, role);
    if (!found) return "nowhere";
    return words(found->rect());
  }

 private:
  Places stood_;
};

TEST_P(StandingStill, WhilePagesAreTurned) {
  begin();
  for (int page = 1; page <= 11; ++page) {
    ASSERT_TRUE(press("Next page"));
    still("page " + std::to_string(page + 1));
  }
  for (const Int page : {98, 99, 119, 0}) {
    store().page.set({{"t1", page}});
    still("page " + std::to_string(page + 1));
  }
}

TEST_P(StandingStill, WhileTheWayToCompareChanges) {
  begin();
  for (const char* mode : {"Overlay", "Blink", "Side by side", "Overlay", "Side by side"}) {
    ASSERT_TRUE(press(mode, QAccessible::RadioButton));
    still(mode);
  }
  for (const char* pane : {"What we sent", "What we sent"}) {
    ASSERT_TRUE(press(pane, QAccessible::CheckBox)) << pane;
    still(pane);
  }
  for (const char* zoom : {"Zoom in (Ctrl++)", "Zoom in (Ctrl++)", "150%"}) {
    ASSERT_TRUE(press(zoom)) << zoom;
    still(zoom);
  }
  ASSERT_EQ(store().zoom(), 1);
}

TEST_P(StandingStill, WhileFindingsAreDecided) {
  store().page.set({{"t1", 3}});
  rest();
  begin();
  for (const char* id : {"f-3-0", "f-3-1", "f-3-2"}) {
    store().focus.set(id);
    still(std::string{"choosing "} + id);
    routes.set(std::string{"POST api/findings/"} + id, answerOf(200, "{}"));
    models()["inspector"].value<InspectorModel*>()->fine(QString::fromLatin1(id));
    still(std::string{"deciding "} + id);
  }
  EXPECT_EQ(desk.http.count("POST api/findings/f-3-2"), 1U);
  store().focus.set(std::nullopt);
  still("the end");
}

TEST_P(StandingStill, WhileTicketsAreChosen) {
  const std::vector<std::pair<QString, QAccessible::Role>> named{
      {"Previous page", QAccessible::Button},
      {"Next page", QAccessible::Button},
      {"Side by side", QAccessible::RadioButton},
      {"Overlay", QAccessible::RadioButton},
      {"Blink", QAccessible::RadioButton},
      {"Zoom in (Ctrl++)", QAccessible::Button},
      {"Zoom out (Ctrl+-)", QAccessible::Button},
      {store().notesOpen() ? "Hide the notes panel (Ctrl+Alt+I)"
                           : "Show the notes panel (Ctrl+Alt+I)",
       QAccessible::Button},
  };
  std::map<QString, std::string> stood;
  for (const auto& [name, role] : named) stood[name] = placeOf(name, role);
  begin();
  for (const char* ticket : {"t2", "t1", "t3", "t1"}) {
    store().selection.set({ticket});
    still(std::string{"choosing "} + ticket);
    for (const auto& [name, role] : named) {
      EXPECT_EQ(placeOf(name, role), stood[name]) << ticket << ": " << name.toStdString();
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Sizes, StandingStill,
                         testing::Values(WindowSize{760, 540}, WindowSize{900, 700},
                                         WindowSize{1'000, 700}, WindowSize{1'500, 940},
                                         WindowSize{1'590, 940}, WindowSize{1'600, 1'000}),
                         [](const auto& each) {
                           return std::to_string(each.param.width) + "x" +
                                  std::to_string(each.param.height);
                         });

}  // namespace
}  // namespace vellix
