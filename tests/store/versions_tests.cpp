// Looking at an older version of a ticket.
#include <gmock/gmock.h>

#include "store/store_test.hpp"

namespace vellix {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

class ShownVersion : public StoreTest {
 protected:
  FileItem file = ticketAt("t1", 1, 3);

  void SetUp() override {
    store().board.set(boardOf({file}));
    store().selection.set({"t1"});
    store().details.set({{"t1", detailOf(file)}});
    store().page.set({{"t1", 4}, {"t2", 2}});
    store().focus.set("f1");
    store().draft.set(DraftNote{.fileID = "t1", .side = "supplier"});
    desk.time.run();
  }
  void choose(Int n) {
    store().showVersion(file, n);
    desk.time.run();
  }
  FileDetail version(Int n) {
    FileDetail detail = detailOf(file);
    detail.version = n;
    return detail;
  }
};

TEST_F(ShownVersion, IsFetchedByForceAndSeenFromItsFirstPageOn) {
  store().fileTags["t1#2"] = "\"two\"";
  store().showVersion(file, 2);
  EXPECT_THAT(store().viewVersion(), ElementsAre(Pair("t1", 2)));
  EXPECT_THAT(store().page(), ElementsAre(Pair("t1", 0), Pair("t2", 2)));
  EXPECT_FALSE(store().focus());
  EXPECT_FALSE(store().draft());
  EXPECT_EQ(store().currentDetail()->version, 3) << "until the other is there";
  desk.time.run();
  ASSERT_THAT(lines(), ElementsAre("GET api/files/t1?v=2"));
  EXPECT_FALSE(desk.http.exchanges[0].has("If-None-Match"));
  answer(0, answerOf(200, jsonOf(version(2)), "\"two\""));
  EXPECT_EQ(store().currentDetail()->version, 2);
  EXPECT_TRUE(store().busy().empty());
  EXPECT_FALSE(store().toast());
}

TEST_F(ShownVersion, OfTheNewestIsNoChoice) {
  store().viewVersion.set({{"t1", 2}, {"t2", 1}});
  choose(3);
  EXPECT_THAT(store().viewVersion(), ElementsAre(Pair("t2", 1)));
  EXPECT_THAT(lines(), ElementsAre("GET api/files/t1"));
  EXPECT_EQ(store().page().at("t1"), 0);
}

TEST_F(ShownVersion, OfATicketWithoutAVersionIsTheFirst) {
  file.version.reset();
  choose(1);
  EXPECT_THAT(store().viewVersion(), IsEmpty());
  choose(2);
  EXPECT_THAT(store().viewVersion(), ElementsAre(Pair("t1", 2)));
}

TEST_F(ShownVersion, IsTheOneChosenLastWhicheverAnswerComesLast) {
  choose(1);
  choose(2);
  choose(3);
  ASSERT_THAT(lines(),
              ElementsAre("GET api/files/t1?v=1", "GET api/files/t1?v=2", "GET api/files/t1"));
  answer(2, answerOf(200, jsonOf(version(3)), "\"three\""));
  answer(0, answerOf(200, jsonOf(version(1)), "\"one\""));
  answer(1, answerOf(200, jsonOf(version(2)), "\"two\""));
  EXPECT_EQ(store().currentDetail()->version, 3);
}

TEST_F(ShownVersion, StaysOverAPollAndOverAnotherTicket) {
  routes.set("GET api/files/t1?v=2", answerOf(200, jsonOf(version(2)), "\"two\""));
  choose(2);
  serveBoard(boardOf({file, ticketAt("t2", 1)}));
  serveDetail(detailOf(ticketAt("t2", 1)), "\"other\"");
  poll();
  store().select({"t2"});
  poll();
  store().select({"t1"});
  poll();
  EXPECT_EQ(store().currentDetail()->version, 2);
  EXPECT_EQ(desk.http.count("GET api/files/t1"), 1U) << "nothing has changed";
}

TEST_F(ShownVersion, ThatCannotBeHadLeavesWhatIsShownInSilence) {
  for (const HttpResult& no :
       {HttpResult{answerOf(404)}, HttpResult{answerOf(401)}, HttpResult{answerOf(200, "no")},
        HttpResult{std::unexpected(HttpError::notConnected)}}) {
    routes.set("GET api/files/t1?v=2", no);
    choose(2);
    EXPECT_EQ(store().currentDetail()->version, 3);
    EXPECT_FALSE(store().toast());
    EXPECT_TRUE(store().signedIn());
  }
}

TEST_F(ShownVersion, IsAskedForAgainByThePollUntilItIsThere) {
  routes.set("GET api/files/t1?v=2", answerOf(500));
  choose(2);
  serveBoard(boardOf({file}));
  routes.set("GET api/files/t1?v=2", answerOf(200, jsonOf(version(2)), "\"two\""));
  poll();
  EXPECT_EQ(store().currentDetail()->version, 2);
}

TEST_F(ShownVersion, IsNobodysAfterASignOut) {
  choose(2);
  store().signOut(true);
  answer(0, answerOf(200, jsonOf(version(2))));
  EXPECT_THAT(store().details(), IsEmpty());
  EXPECT_THAT(store().viewVersion(), ElementsAre(Pair("t1", 2))) << "lasts as long as the Store";
}

}  // namespace
}  // namespace vellix
