// Moving over pages.
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
BOOST_DESCRIBE_STRUCT(StepCase, (), (name, count, from, delta, to))

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

}  // namespace
}  // namespace vellix
