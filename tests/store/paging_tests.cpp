// Moving over pages, zooming, and the notes panel.
#include <gtest/gtest.h>

#include <limits>

#include "store/store_test.hpp"

namespace vellix {
namespace {

class Paging : public StoreTest {
 protected:
  Int step(Int count, std::optional<Int> from, Int delta) {
    FileDetail detail = detailOf(ticketOf("t1"));
    detail.file.pages = pagesOf(count);
    store().page.set({{"other", 7}});
    if (from) store().page.edit([&](auto& pages) { pages["t1"] = *from; });
    store().focus.set("f1");
    store().draft.set(DraftNote{.fileID = "t1"});
    store().stepPage(detail, delta);
    EXPECT_FALSE(store().focus());
    EXPECT_FALSE(store().draft());
    EXPECT_EQ(store().page().at("other"), 7);
    return store().page().at("t1");
  }
};

struct StepCase {
  const char* name;
  Int count;
  std::optional<Int> from;
  Int delta;
  Int to;
};

class PageSteps : public Paging, public testing::WithParamInterface<StepCase> {};

TEST_P(PageSteps, AreHeldToTheTicketsPages) {
  EXPECT_EQ(step(GetParam().count, GetParam().from, GetParam().delta), GetParam().to);
}

constexpr Int kMost = std::numeric_limits<Int>::max();
constexpr Int kLeast = std::numeric_limits<Int>::min();

INSTANTIATE_TEST_SUITE_P(
    All, PageSteps,
    testing::Values(StepCase{"On", 3, 0, 1, 1}, StepCase{"Back", 3, 2, -1, 1},
                    StepCase{"WithoutAnEntryFromTheFirst", 3, std::nullopt, 1, 1},
                    StepCase{"StaysOnTheLast", 3, 2, 1, 2},
                    StepCase{"StaysOnTheFirst", 3, 0, -1, 0}, StepCase{"Far", 3, 0, 99, 2},
                    StepCase{"FarBack", 3, 2, -99, 0}, StepCase{"FromBeyondTheEnd", 3, 50, -1, 1},
                    StepCase{"OnlyPage", 1, 0, 1, 0}, StepCase{"NoPages", 0, 0, 1, 0},
                    StepCase{"FromTheHighestNumber", 3, kMost, 1, 2},
                    StepCase{"FromTheLowestNumber", 3, kLeast, -1, 0}),
    [](const auto& each) { return each.param.name; });

TEST_F(Paging, StaysOnTheFirstPageOfATicketWithoutPages) {
  store().stepPage(detailOf(ticketOf("t1")), 1);
  EXPECT_EQ(store().page().at("t1"), 0);
}

TEST_F(Paging, ToAPageClearsTheFocusAndKeepsTheDraft) {
  store().focus.set("f1");
  store().draft.set(DraftNote{.fileID = "t1", .page = 2});
  store().goToPage("t1", 4);
  EXPECT_EQ(store().page().at("t1"), 4);
  EXPECT_FALSE(store().focus());
  ASSERT_TRUE(store().draft());
  EXPECT_EQ(store().draft()->page, 2);
}

struct ZoomCase {
  double from;
  double factor;
  double to;
};

class ZoomSteps : public StoreTest, public testing::WithParamInterface<ZoomCase> {};

TEST_P(ZoomSteps, AreRoundedToQuartersBetweenOneAndFour) {
  store().zoom.set(GetParam().from);
  store().stepZoom(GetParam().factor);
  EXPECT_EQ(store().zoom(), GetParam().to);
}

INSTANTIATE_TEST_SUITE_P(
    All, ZoomSteps,
    testing::Values(ZoomCase{1.0, 1.25, 1.25}, ZoomCase{1.25, 1.25, 1.5},  // 1.5625
                    ZoomCase{1.5, 1.25, 2.0},                              // 1.875, half a quarter
                    ZoomCase{2.0, 1.25, 2.5}, ZoomCase{2.5, 1.25, 3.25},   // 3.125, half a quarter
                    ZoomCase{3.25, 1.25, 4.0}, ZoomCase{3.75, 1.25, 4.0}, ZoomCase{4.0, 1.25, 4.0},
                    ZoomCase{4.0, 0.8, 3.25}, ZoomCase{3.25, 0.8, 2.5}, ZoomCase{2.5, 0.8, 2.0},
                    ZoomCase{1.25, 0.8, 1.0}, ZoomCase{1.0, 0.8, 1.0}, ZoomCase{1.0, 0.0, 1.0},
                    ZoomCase{1.0, 100.0, 4.0}, ZoomCase{1.0, -3.0, 1.0}, ZoomCase{1.0, 1.125, 1.25},
                    ZoomCase{1.0, 1.124, 1.0}));

TEST_F(Paging, FitsTheZoom) {
  store().zoom.set(3.25);
  store().fitZoom();
  EXPECT_EQ(store().zoom(), 1.0);
}

TEST_F(Paging, FlipsAndKeepsTheDockedNotesPanel) {
  store().toggleNotes();
  EXPECT_FALSE(store().prefs.showNotes());
  EXPECT_FALSE(desk.defaults.flags.at("ShowNotes"));
  EXPECT_FALSE(store().notesDrawer());
  store().toggleNotes();
  EXPECT_TRUE(store().prefs.showNotes());
  EXPECT_TRUE(desk.defaults.flags.at("ShowNotes"));
}

TEST_F(Paging, FlipsTheDrawerWhereNotesFloat) {
  store().notesFloat.set(true);
  store().toggleNotes();
  EXPECT_TRUE(store().notesDrawer());
  EXPECT_TRUE(store().prefs.showNotes());
  EXPECT_FALSE(desk.defaults.flags.contains("ShowNotes"));
  store().toggleNotes();
  EXPECT_FALSE(store().notesDrawer());
}

}  // namespace
}  // namespace vellix
