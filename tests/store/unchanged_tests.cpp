// "Unchanged" is said of what the tag came with. Where that is not held any more it is asked for
// once more, without the tag.
#include <gmock/gmock.h>

#include "store/store_test.hpp"

namespace vellix {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

constexpr const char* kDetail = "GET api/files/t1";

class Unchanged : public StoreTest {
 protected:
  void SetUp() override {
    serveBoard(boardOf({ticketAt("t1", 1)}));
    serveDetail(detailOf(ticketAt("t1", 1)));
    poll();
    asked = detailRequests();
  }
  void nextSession() {
    store().signOut(true);
    desk.api.setToken("token-2");
    store().signedIn.set(true);
  }
  std::size_t fetches() { return detailRequests() - asked; }
  bool lastWasWhole(const char* line) {
    return !desk.http.matching(line).back()->has("If-None-Match");
  }

  std::size_t asked = 0;
};

TEST_F(Unchanged, OpensATicketOfTheLastSessionInTheNext) {
  nextSession();
  poll();
  const auto sent = desk.http.matching(kDetail);
  ASSERT_EQ(fetches(), 2U);
  EXPECT_EQ(sent[asked]->header("If-None-Match"), "\"d1\"") << "the tag is sent as ever";
  EXPECT_FALSE(sent[asked + 1]->has("If-None-Match"));
  ASSERT_TRUE(store().currentDetail());
  EXPECT_THAT(store().fileTags, ElementsAre(Pair("t1#0", "\"d1\"")));
  poll();
  EXPECT_EQ(fetches(), 2U);
}

TEST_F(Unchanged, IsAskedForOnlyOnceMoreAPoll) {
  nextSession();
  routes.set(kDetail, answerOf(304));
  poll();
  EXPECT_EQ(fetches(), 2U);
  EXPECT_FALSE(store().currentDetail());
  EXPECT_THAT(store().fileTags, IsEmpty());
  poll();
  EXPECT_EQ(fetches(), 3U) << "there is no tag left to send";
  EXPECT_TRUE(lastWasWhole(kDetail));
}

TEST_F(Unchanged, IsAskedForByThePollAfterAFailure) {
  nextSession();
  routes.next(kDetail, answerOf(304));
  routes.next(kDetail, answerOf(503));
  poll();
  ASSERT_FALSE(store().currentDetail());
  poll();
  EXPECT_EQ(fetches(), 3U);
  EXPECT_TRUE(store().currentDetail());
}

TEST_F(Unchanged, IsHeldByThenWhenAnotherLoadHasBroughtIt) {
  nextSession();
  routes.leaveOpen(kDetail);
  load(ticketAt("t1", 1));
  const auto* first = desk.http.matching(kDetail).back();
  serveDetail(detailOf(ticketAt("t1", 1)));
  load(ticketAt("t1", 1), true);
  ASSERT_EQ(fetches(), 2U);
  desk.http.answer(*first, answerOf(304));
  desk.time.run();
  EXPECT_EQ(fetches(), 2U);
  EXPECT_EQ(store().fileTags.at("t1#0"), "\"d1\"");
}

TEST_F(Unchanged, FromBeforeASignOutAsksForNothing) {
  routes.leaveOpen(kDetail);
  load(ticketAt("t1", 2));
  const auto* late = desk.http.matching(kDetail).back();
  nextSession();
  desk.http.answer(*late, answerOf(304));
  desk.time.run();
  EXPECT_EQ(fetches(), 1U);
  EXPECT_EQ(store().fileTags.at("t1#0"), "\"d1\"");
}

TEST_F(Unchanged, BringsTheVersionThatIsWantedWhereAnotherIsHeld) {
  const FileItem file = ticketAt("t1", 1, 3);
  serveDetail(detailOf(file), "\"newest\"");
  routes.serve("GET api/files/t1?v=2", jsonOf(detailOf(ticketAt("t1", 1, 2))), "\"second\"");
  load(file);
  store().viewVersion.set({{"t1", 2}});
  load(file);
  ASSERT_EQ(store().details().at("t1").version, 2);
  store().viewVersion.set({});
  load(file);
  EXPECT_EQ(store().details().at("t1").version, 3);
  EXPECT_TRUE(lastWasWhole(kDetail));
}

TEST_F(Unchanged, WithoutABoardIsAskedForOnceMore) {
  store().board.set(std::nullopt);
  poll();
  EXPECT_EQ(polls(), 3U);
  EXPECT_TRUE(lastWasWhole(kStateLine));
  EXPECT_TRUE(store().board());
  EXPECT_FALSE(store().problem());
}

TEST_F(Unchanged, WithoutABoardAndATagIsNoAnswer) {
  const auto before = store().lastOK();
  desk.time.advance(Milliseconds{1'000});
  store().board.set(std::nullopt);
  store().etag.reset();
  routes.set(kStateLine, answerOf(304));
  poll();
  EXPECT_EQ(polls(), 2U) << "nothing else could be asked";
  EXPECT_EQ(store().problem(), kUnreadableText);
  EXPECT_EQ(store().lastOK(), before);
}

}  // namespace
}  // namespace vellix
