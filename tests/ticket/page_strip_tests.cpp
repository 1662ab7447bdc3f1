// The column of small pages.
#include "ticket/page_strip.hpp"

#include <gmock/gmock.h>

#include <cmath>
#include <limits>

#include "store/store_test.hpp"

namespace vellix {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Lines = std::vector<std::string>;

class PageStrips : public StoreTest {
 protected:
  PageStrips() { detail.file.pages = pagesOf(3); }
  std::vector<PageCellView> cells() { return pageStrip(store(), detail); }
  Page& page(std::size_t index) { return detail.file.pages->at(index); }
  void goTo(Int index) { store().page.set({{"t1", index}}); }
  Lines open() {
    Lines names;
    for (const auto& cell : cells()) {
      if (cell.open) names.push_back(cell.name);
    }
    return names;
  }
  // The figures of a page: what waits, what is an issue, notes.
  std::string figures(std::size_t index) {
    const auto cell = cells().at(index);
    return cell.waiting + "/" + cell.issues + "/" + cell.notes;
  }
  void find(std::string kind, std::string state, std::string severity, Int page = 1) {
    Finding finding = findingOf("f" + std::to_string(detail.findings.size()), page, severity);
    finding.kind = std::move(kind);
    finding.state = std::move(state);
    detail.findings.push_back(finding);
  }
  void note(std::optional<Int> page, std::optional<Int> resolved = {}) {
    Note note;
    note.id = "n" + std::to_string(detail.comments.size());
    note.page = page;
    note.resolved = resolved;
    detail.comments.push_back(note);
  }

  FileDetail detail = detailOf(ticketOf("t1"));
};

TEST_F(PageStrips, HaveACellForEachPage) {
  page(1).label = "iv";
  page(2).label = "";
  Lines names;
  Lines keys;
  for (const auto& cell : cells()) {
    names.push_back(cell.name);
    keys.push_back(cell.key);
  }
  EXPECT_THAT(names, ElementsAre("1", "iv", "3"));
  EXPECT_THAT(keys, ElementsAre("t1 0", "t1 1", "t1 2"));
  detail.file.pages.reset();
  EXPECT_THAT(cells(), IsEmpty());
}

TEST_F(PageStrips, ShowTheSmallPictureAndElseThePages) {
  page(0).thumb = "thumb";
  page(0).img = "page";
  page(1).thumb = "";
  page(1).img = "page";
  EXPECT_EQ(cells()[0].img, "thumb");
  EXPECT_EQ(cells()[1].img, "page");
  EXPECT_EQ(cells()[2].img, "");
}

struct Shape {
  const char* name;
  std::optional<std::vector<double>> px;
  double height;
};
BOOST_DESCRIBE_STRUCT(Shape, (), (name, px, height))

class StripShapes : public PageStrips, public testing::WithParamInterface<Shape> {};

TEST_P(StripShapes, GiveTheCellItsHeight) {
  page(0).px = GetParam().px;
  EXPECT_DOUBLE_EQ(cells()[0].tall, GetParam().height);
}

constexpr double kTallest = 58 / 0.3;
INSTANTIATE_TEST_SUITE_P(
    All, StripShapes,
    testing::Values(Shape{"Unknown", std::nullopt, 58 / 0.77},
                    Shape{"Upright", std::vector<double>{600, 800}, 58 / 0.75},
                    Shape{"Wide", std::vector<double>{2'000, 100}, 2.9},
                    Shape{"AtTheFloor", std::vector<double>{300, 1'000}, kTallest},
                    Shape{"Tall", std::vector<double>{100, 1'000}, kTallest},
                    Shape{"NoWidth", std::vector<double>{0, 1'000}, kTallest},
                    Shape{"Negative", std::vector<double>{-300, 1'000}, kTallest},
                    Shape{"NoNumber", std::vector<double>{std::nan(""), 1'000}, kTallest},
                    Shape{"Endless",
                          std::vector<double>{std::numeric_limits<double>::infinity(), 1}, 0}),
    [](const auto& each) { return each.param.name; });

struct Place {
  const char* name;
  std::optional<Int> page;
  const char* open;
};
BOOST_DESCRIBE_STRUCT(Place, (), (name, page, open))

class OpenPages : public PageStrips, public testing::WithParamInterface<Place> {};

TEST_P(OpenPages, AreMarked) {
  if (GetParam().page) goTo(*GetParam().page);
  EXPECT_THAT(open(), ElementsAre(GetParam().open));
}

INSTANTIATE_TEST_SUITE_P(All, OpenPages,
                         testing::Values(Place{"NoEntry", {}, "1"}, Place{"First", 0, "1"},
                                         Place{"Last", 2, "3"}, Place{"Beyond", 9, "3"}),
                         [](const auto& each) { return each.param.name; });

TEST_F(PageStrips, CountWhatWaitsForADecision) {
  find("words", "open", "high");
  find("breaks", "open", "medium");
  find("words", "open", "low");
  find("expected", "open", "high");
  find("pass", "open", "high");
  find("words", "fine", "high");
  find("words", "open", "high", 2);
  EXPECT_EQ(figures(0), "//");
  EXPECT_EQ(figures(1), "2//");
  EXPECT_EQ(figures(2), "1//");
}

TEST_F(PageStrips, CountWhatIsARealIssue) {
  find("words", "issue", "high");
  find("words", "issue", "low");
  find("expected", "issue", "high");
  find("pass", "issue", "high");
  EXPECT_EQ(figures(1), "/2/");
}

TEST_F(PageStrips, CountNotesThatAreNotResolved) {
  note(1);
  note(1, 0);
  note(1, 1);
  note(std::nullopt);
  note(7);
  EXPECT_EQ(figures(0), "//");
  EXPECT_EQ(figures(1), "//2");
}

TEST_F(PageStrips, SayTheirCountsInWords) {
  EXPECT_EQ(cells()[1].spoken, "");
  find("words", "open", "high");
  EXPECT_EQ(cells()[1].spoken, "1 to look at");
  find("words", "issue", "high");
  note(1);
  EXPECT_EQ(cells()[1].spoken, "1 to look at, 1 real issue, 1 note");
  find("words", "open", "high");
  find("words", "issue", "high");
  note(1);
  EXPECT_EQ(cells()[1].spoken, "2 to look at, 2 real issues, 2 notes");
}

struct Room {
  const char* name;
  bool wanted;
  double width;
  std::optional<Int> pages;  // none for no detail
  bool shown;
};
BOOST_DESCRIBE_STRUCT(Room, (), (name, wanted, width, pages, shown))

class StripRooms : public PageStrips, public testing::WithParamInterface<Room> {};

TEST_P(StripRooms, DecideWhetherItIsShown) {
  const auto& each = GetParam();
  store().prefs.showPageStrip.set(each.wanted);
  detail.file.pages = pagesOf(each.pages.value_or(0));
  EXPECT_EQ(showsPageStrip(store(), each.pages ? &detail : nullptr, each.width), each.shown);
}

INSTANTIATE_TEST_SUITE_P(All, StripRooms,
                         testing::Values(Room{"Wide", true, 1'200, 2, true},
                                         Room{"JustWide", true, 860, 2, true},
                                         Room{"JustNarrow", true, 859.9, 2, false},
                                         Room{"Unwanted", false, 1'200, 2, false},
                                         Room{"OnePage", true, 1'200, 1, false},
                                         Room{"NoPages", true, 1'200, 0, false},
                                         Room{"NoDetail", true, 1'200, std::nullopt, false},
                                         Room{"NoWidth", true, std::nan(""), 2, false}),
                         [](const auto& each) { return each.param.name; });

struct Held {
  const char* name;
  double width;
  std::optional<Int> told;   // the ticket's count of its pages
  std::optional<Int> pages;  // the detail's; none for no detail
  bool room;
};
BOOST_DESCRIBE_STRUCT(Held, (), (name, width, told, pages, room))

class StripHolds : public PageStrips, public testing::WithParamInterface<Held> {};

TEST_P(StripHolds, DecideWhetherItHasItsRoom) {
  const auto& each = GetParam();
  FileItem file = ticketOf("t1");
  file.pages.reset();
  file.page_count = each.told;
  detail.file.pages = pagesOf(each.pages.value_or(0));
  EXPECT_EQ(roomForPageStrip(file, each.pages ? &detail : nullptr, each.width), each.room);
}

INSTANTIATE_TEST_SUITE_P(All, StripHolds,
                         testing::Values(Held{"SoonToCome", 860, 2, {}, true},
                                         Held{"TooNarrow", 859.9, 2, {}, false},
                                         Held{"NoWidth", std::nan(""), 2, {}, false},
                                         Held{"OnePage", 1'200, 1, {}, false},
                                         Held{"NothingTold", 1'200, {}, {}, false},
                                         Held{"ByTheDetail", 1'200, 1, 2, true},
                                         Held{"LessByTheDetail", 1'200, 3, 1, false}),
                         [](const auto& each) { return each.param.name; });

TEST_F(PageStrips, AreNotShownForADetailWithoutPages) {
  detail.file.pages.reset();
  EXPECT_FALSE(showsPageStrip(store(), &detail, 1'200));
}

TEST_F(PageStrips, CutTheirCountsShort) {
  for (int i = 0; i < 999; ++i) find("text", "open", "high");
  EXPECT_EQ(figures(1), "999//");
  find("text", "open", "high");
  for (int i = 0; i < 2'345; ++i) find("text", "issue", "high");
  EXPECT_EQ(figures(1), "1k+/1k+/");
  EXPECT_EQ(cells()[1].spoken, "1000 to look at, 2345 real issues");
}

}  // namespace
}  // namespace vellix
