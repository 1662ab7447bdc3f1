// The bar of a ticket whose detail is on its way.
#include <gtest/gtest.h>

#include "compare/canvas_view.hpp"
#include "store/store_test.hpp"

namespace vellix {
namespace {

struct Wait {
  const char* name;
  std::optional<Int> told;   // the ticket's count of its pages
  std::optional<Int> pages;  // that it has with it
  std::optional<Int> open;   // the page on show the last time
  const char* place;
};
BOOST_DESCRIBE_STRUCT(Wait, (), (name, told, pages, open, place))

class WaitingCanvases : public StoreTest, public testing::WithParamInterface<Wait> {};

TEST_P(WaitingCanvases, TellThePlaceAsFarAsItIsKnown) {
  FileItem file = ticketOf("t1");
  file.page_count = GetParam().told;
  file.pages.reset();
  if (GetParam().pages) file.pages = pagesOf(*GetParam().pages);
  if (GetParam().open) store().page.set({{"t1", *GetParam().open}});
  const CanvasView view = waitingCanvas(store(), file);
  EXPECT_EQ(view.bar.place, GetParam().place);
  EXPECT_EQ(view.bar.empty, "") << "nothing is known to be missing";
  EXPECT_TRUE(view.bar.first && view.bar.last) << "there is nowhere to go yet";
  EXPECT_TRUE(view.panes.empty());
}

INSTANTIATE_TEST_SUITE_P(All, WaitingCanvases,
                         testing::Values(Wait{"Told", 12, {}, 0, "p1 · 1 of 12"},
                                         Wait{"NeverOpened", 12, {}, {}, ""},
                                         Wait{"Opened", 12, {}, 4, "p5 · 5 of 12"},
                                         Wait{"Beyond", 3, {}, 9, "p3 · 3 of 3"},
                                         Wait{"WithItsPages", {}, 3, 1, "p2 · 2 of 3"},
                                         Wait{"NothingTold", {}, {}, 0, ""},
                                         Wait{"None", 0, {}, 0, ""}),
                         [](const auto& each) { return each.param.name; });

TEST_F(WaitingCanvases, HaveTheTogglesThatComeAndTheirRoom) {
  FileItem file = ticketOf("t1");
  file.supplier = "Harrow Print";
  file.page_count = 12;
  file.pages.reset();
  CanvasView view = waitingCanvas(store(), file);
  ASSERT_EQ(view.toggles.size(), 3U);
  EXPECT_EQ(view.toggles[0].label, "Harrow Print");
  EXPECT_EQ(view.toggles[2].label, "FBC");
  EXPECT_EQ(view.bar.widest, "p12 · 12 of 12");
  EXPECT_EQ(view.toggles[2].widest, "Last print") << "a page may have that one alone";
  file.version = 3;
  view = waitingCanvas(store(), file);
  ASSERT_EQ(view.toggles.size(), 2U);
  EXPECT_EQ(view.toggles[1].label, "v2");
}

// Whatever its pages turn out to be called and compared with.
TEST_F(WaitingCanvases, HaveTheRoomsThatTheDetailWillHave) {
  for (const Int pages : {0, 3, 12, 240}) {
    FileItem file = ticketOf("t1");
    file.page_count = pages;
    file.pages.reset();
    const CanvasView before = waitingCanvas(store(), file);
    file.pages = pagesOf(pages);
    for (auto& page : *file.pages) {
      page.label = "xviii–" + std::to_string(page.i);
      page.refs = {{"latest", RefPage{}}};
    }
    FileDetail detail;
    detail.file = file;
    const CanvasView after = canvasView(store(), detail);
    EXPECT_EQ(after.bar.widest, before.bar.widest) << pages;
    ASSERT_EQ(after.toggles.size(), before.toggles.size());
    for (std::size_t i = 0; i < after.toggles.size(); ++i) {
      EXPECT_EQ(after.toggles[i].widest, before.toggles[i].widest) << pages;
    }
  }
}

}  // namespace
}  // namespace vellix
