// The page that a ticket opens on, and the pictures that are brought in around it.
#include <gmock/gmock.h>

#include <limits>

#include "store/store_test.hpp"

namespace vellix {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

struct FirstPageCase {
  const char* name;
  std::vector<Finding> findings;
  Int page;
};
BOOST_DESCRIBE_STRUCT(FirstPageCase, (), (name, page))

class FirstPages : public StoreTest, public testing::WithParamInterface<FirstPageCase> {};

TEST_P(FirstPages, AreThoseOfTheFirstSeriousFinding) {
  serveDetail(detailOf(ticketAt("t1", 1), GetParam().findings));
  load(ticketAt("t1", 1));
  EXPECT_EQ(store().page().at("t1"), GetParam().page);
}

INSTANTIATE_TEST_SUITE_P(
    All, FirstPages,
    testing::Values(
        FirstPageCase{"NoFindings", {}, 0},
        FirstPageCase{"NoneHigh", {findingOf("f1", 4, "medium"), findingOf("f2", 5, "low")}, 0},
        FirstPageCase{
            "HighOnTheThirdPage", {findingOf("f1", 1, "low"), findingOf("f2", 2, "high")}, 2},
        FirstPageCase{"FirstInTheListNotOnThePages",
                      {findingOf("f1", 6, "high"), findingOf("f2", 1, "high")},
                      6}),
    [](const auto& each) { return each.param.name; });

class OpeningPage : public StoreTest {};

TEST_F(OpeningPage, LeavesThePageWhereItIsOnceThereIsOne) {
  store().page.set({{"t1", 3}});
  serveDetail(detailOf(ticketAt("t1", 1), {findingOf("f1", 5)}));
  load(ticketAt("t1", 1));
  EXPECT_EQ(store().page().at("t1"), 3);
}

TEST_F(OpeningPage, DoesNotMoveThePageAtALaterLoad) {
  serveDetail(detailOf(ticketAt("t1", 1)));
  load(ticketAt("t1", 1));
  serveDetail(detailOf(ticketAt("t1", 2), {findingOf("f1", 5)}), "\"d2\"");
  load(ticketAt("t1", 2));
  EXPECT_EQ(store().page().at("t1"), 0);
}

class Prefetch : public StoreTest {
 protected:
  Prefetch() {
    serveBoard(boardOf({ticketAt("t1", 1), ticketAt("t2", 1)}));
    show("t1");
    poll();
    desk.pictures.pages.clear();
  }
  void show(const std::string& id) { store().selection.set({id}); }
  std::vector<Int> prefetched(std::vector<Page> pages, Int current) {
    FileDetail detail = detailOf(ticketAt("t1", 1));
    detail.file.pages = std::move(pages);
    store().page.set({{"t1", current}});
    serveDetail(detail);
    load(ticketAt("t1", 1), true);
    return desk.pictures.pages;
  }
};

TEST_F(Prefetch, BringsThePageOnShowAndItsNeighbours) {
  EXPECT_THAT(prefetched(pagesOf(9), 4), UnorderedElementsAre(3, 4, 5));
}

TEST_F(Prefetch, StopsAtTheEnds) {
  EXPECT_THAT(prefetched(pagesOf(9), 0), UnorderedElementsAre(0, 1));
  desk.pictures.pages.clear();
  EXPECT_THAT(prefetched(pagesOf(9), 8), UnorderedElementsAre(7, 8));
}

TEST_F(Prefetch, GoesByThePagesOwnNumberNotByItsPlace) {
  EXPECT_THAT(prefetched({pageOf(12), pageOf(4), pageOf(11)}, 11), UnorderedElementsAre(11, 12));
}

TEST_F(Prefetch, GoesOnWithEveryPageThatIsTurned) {
  prefetched(pagesOf(9), 4);
  desk.pictures.pages.clear();
  store().stepPage(store().details().at("t1"), 1);
  EXPECT_THAT(desk.pictures.pages, UnorderedElementsAre(4, 5, 6));
  desk.pictures.pages.clear();
  store().goToPage("t1", 8);
  EXPECT_THAT(desk.pictures.pages, UnorderedElementsAre(7, 8));
}

TEST_F(Prefetch, BringsNothingForATicketWhoseDetailIsNotHere) {
  store().goToPage("t2", 3);
  EXPECT_THAT(desk.pictures.pages, IsEmpty());
}

TEST_F(Prefetch, BringsNothingForATicketWithoutPages) {
  serveDetail(detailOf(ticketAt("t1", 1)));
  load(ticketAt("t1", 1));
  EXPECT_THAT(desk.pictures.pages, IsEmpty());
}

TEST_F(Prefetch, BringsNothingForATicketPassedBy) {
  FileDetail detail = detailOf(ticketAt("t1", 1));
  detail.file.pages = pagesOf(3);
  show("t2");
  serveDetail(detail);
  load(ticketAt("t1", 1), true);
  EXPECT_TRUE(store().details().contains("t1"));
  EXPECT_THAT(desk.pictures.pages, IsEmpty());
}

TEST_F(Prefetch, GoesOnWithATicketThatComesOnShowAgain) {
  prefetched(pagesOf(9), 4);
  desk.pictures.pages.clear();
  const int before = desk.pictures.calls;
  show("t2");
  store().requestDetail(ticketAt("t2", 1));
  EXPECT_THAT(desk.pictures.pages, IsEmpty());
  EXPECT_EQ(desk.pictures.calls, before + 1) << "those of the ticket that was left are let go";
  show("t1");
  store().requestDetail(ticketAt("t1", 1));
  EXPECT_THAT(desk.pictures.pages, UnorderedElementsAre(3, 4, 5));
}

TEST_F(Prefetch, TakesAnyPageNumberInStride) {
  constexpr Int most = std::numeric_limits<Int>::max();
  constexpr Int least = std::numeric_limits<Int>::min();
  EXPECT_THAT(prefetched({pageOf(least), pageOf(most), pageOf(0)}, most), ElementsAre(most));
  desk.pictures.pages.clear();
  EXPECT_THAT(prefetched({pageOf(least), pageOf(most), pageOf(0)}, least), ElementsAre(least));
  desk.pictures.pages.clear();
  EXPECT_THAT(prefetched({pageOf(least), pageOf(most), pageOf(0)}, 1), ElementsAre(0));
}

}  // namespace
}  // namespace vellix
