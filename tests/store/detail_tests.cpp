// How a ticket's detail comes in.
#include <gmock/gmock.h>

#include "store/store_test.hpp"

namespace vellix {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

class Detail : public StoreTest {
 protected:
  void hold(const FileDetail& detail) { store().details.set({{detail.file.id, detail}}); }
  void pin(Int version) { store().viewVersion.set({{"t1", version}}); }
  const ScriptedHttp::Exchange& last() { return desk.http.exchanges.back(); }
};

struct FreshnessCase {
  const char* name;
  std::optional<Int> heldRev;
  std::optional<Int> heldVersion;      // of the detail
  std::optional<Int> heldFileVersion;  // of the ticket in it
  std::optional<Int> rev;
  std::optional<Int> version;
  std::optional<Int> pinned;
  std::size_t requests;
};
BOOST_DESCRIBE_STRUCT(FreshnessCase, (),
                      (name, heldRev, heldVersion, heldFileVersion, rev, version, pinned, requests))

class DetailFreshness : public Detail, public testing::WithParamInterface<FreshnessCase> {};

TEST_P(DetailFreshness, DecidesWhetherTheServiceIsAsked) {
  FileDetail held = detailOf(ticketOf("t1"));
  held.file.rev = GetParam().heldRev;
  held.version = GetParam().heldVersion;
  held.file.version = GetParam().heldFileVersion;
  hold(held);
  if (GetParam().pinned) pin(*GetParam().pinned);
  FileItem file = ticketOf("t1");
  file.rev = GetParam().rev;
  file.version = GetParam().version;
  load(file);
  EXPECT_EQ(detailRequests(), GetParam().requests);
}

constexpr std::optional<Int> kNone;

INSTANTIATE_TEST_SUITE_P(
    All, DetailFreshness,
    testing::Values(FreshnessCase{"Unchanged", 5, 2, 2, 5, 2, kNone, 0},
                    FreshnessCase{"NewRev", 5, 2, 2, 6, 2, kNone, 1},
                    FreshnessCase{"OlderRevToo", 5, 2, 2, 4, 2, kNone, 1},
                    FreshnessCase{"RevWentMissing", 5, 2, 2, kNone, 2, kNone, 1},
                    FreshnessCase{"BothRevsMissing", kNone, 2, 2, kNone, 2, kNone, 0},
                    FreshnessCase{"NewVersion", 5, 2, 2, 5, 3, kNone, 1},
                    FreshnessCase{"DetailsVersionGoesFirst", 5, 2, 3, 5, 3, kNone, 1},
                    FreshnessCase{"TicketsVersionGoesNext", 5, kNone, 3, 5, 3, kNone, 0},
                    FreshnessCase{"NoVersionsAreOne", 5, kNone, kNone, 5, 1, kNone, 0},
                    FreshnessCase{"OneIsNoVersion", 5, 1, kNone, 5, kNone, kNone, 0},
                    FreshnessCase{"AllMissing", kNone, kNone, kNone, kNone, kNone, kNone, 0},
                    FreshnessCase{"PinnedIsShown", 5, 1, 2, 5, 2, 1, 0},
                    FreshnessCase{"PinnedIsNotShown", 5, 2, 2, 5, 2, 1, 1}),
    [](const auto& each) { return each.param.name; });

TEST_F(Detail, IsFetchedWhenThereIsNone) {
  serveDetail(detailOf(ticketAt("t1", 1)));
  load(ticketAt("t1", 1));
  EXPECT_EQ(last().line(), "GET api/files/t1");
  EXPECT_FALSE(last().has("If-None-Match"));
  EXPECT_EQ(store().details().at("t1"), detailOf(ticketAt("t1", 1)));
  EXPECT_THAT(store().fileTags, ElementsAre(Pair("t1#0", "\"d1\"")));
  EXPECT_TRUE(store().busy().empty());
}

TEST_F(Detail, IsFetchedByForceAlsoWhenUnchangedAndWithoutItsTag) {
  hold(detailOf(ticketAt("t1", 1)));
  store().fileTags["t1#0"] = "\"d1\"";
  serveDetail(detailOf(ticketAt("t1", 1), {findingOf("f1")}), "\"d2\"");
  load(ticketAt("t1", 1), true);
  EXPECT_FALSE(last().has("If-None-Match"));
  EXPECT_EQ(store().details().at("t1").findings.size(), 1U);
  EXPECT_EQ(store().fileTags.at("t1#0"), "\"d2\"");
}

TEST_F(Detail, AsksWithTheTagOfItsVersion) {
  store().fileTags = {{"t1#0", "\"newest\""}, {"t1#2", "\"second\""}, {"t2#0", "\"other\""}};
  load(ticketAt("t1", 1));
  EXPECT_EQ(last().header("If-None-Match"), "\"newest\"");
  EXPECT_EQ(last().line(), "GET api/files/t1");
  pin(2);
  load(ticketAt("t1", 1));
  EXPECT_EQ(last().header("If-None-Match"), "\"second\"");
  EXPECT_EQ(last().line(), "GET api/files/t1?v=2");
  pin(3);
  load(ticketAt("t1", 1));
  EXPECT_FALSE(last().has("If-None-Match"));
  EXPECT_EQ(last().line(), "GET api/files/t1?v=3");
}

TEST_F(Detail, KeepsTheTagsOfNewestAndPinnedApart) {
  routes.set("GET api/files/t1", answerOf(200, jsonOf(detailOf(ticketAt("t1", 1, 3))), "\"n\""));
  routes.set("GET api/files/t1?v=2",
             answerOf(200, jsonOf(detailOf(ticketAt("t1", 1, 2))), "\"p\""));
  load(ticketAt("t1", 1, 3));
  pin(2);
  load(ticketAt("t1", 1, 3));
  EXPECT_THAT(store().fileTags, ElementsAre(Pair("t1#0", "\"n\""), Pair("t1#2", "\"p\"")));
  EXPECT_EQ(store().details().at("t1").version, 2);
}

TEST_F(Detail, IsNotOnShowOnceAnotherVersionWasChosen) {
  hold(detailOf(ticketAt("t1", 1, 3)));
  pin(2);
  desk.tasks.start(store().loadDetail(ticketAt("t1", 1, 3), false));
  pin(1);
  desk.tasks.start(store().loadDetail(ticketAt("t1", 1, 3), false));
  answer(1, answerOf(200, jsonOf(detailOf(ticketAt("t1", 1, 1))), "\"one\""));
  answer(0, answerOf(200, jsonOf(detailOf(ticketAt("t1", 1, 2))), "\"two\""));
  EXPECT_EQ(store().details().at("t1").version, 1);
  EXPECT_THAT(store().fileTags, ElementsAre(Pair("t1#1", "\"one\"")));
}

TEST_F(Detail, ForgetsTheTagWhenTheAnswerHasNone) {
  store().fileTags = {{"t1#0", "\"d1\""}, {"t1#2", "\"p\""}};
  routes.set("GET api/files/t1", answerOf(200, jsonOf(detailOf(ticketAt("t1", 1)))));
  load(ticketAt("t1", 1));
  EXPECT_THAT(store().fileTags, ElementsAre(Pair("t1#2", "\"p\"")));
}

TEST_F(Detail, EncodesATicketIdInTheUrl) {
  load(ticketOf("a/b?c d"));
  EXPECT_EQ(last().line(), "GET api/files/a/b%3Fc%20d");
}

struct SilenceCase {
  const char* name;
  HttpResult answer;
};
BOOST_DESCRIBE_STRUCT(SilenceCase, (), (name))

class SilentDetails : public Detail, public testing::WithParamInterface<SilenceCase> {};

TEST_P(SilentDetails, ChangeNothing) {
  store().board.set(boardOf({ticketAt("t1", 2)}));
  const FileDetail held = detailOf(ticketAt("t1", 1));
  hold(held);
  store().fileTags["t1#0"] = "\"d1\"";
  routes.set("GET api/files/t1", GetParam().answer);
  for (const bool force : {false, true}) {
    load(ticketAt("t1", 2), force);
    EXPECT_EQ(store().details().at("t1"), held);
    EXPECT_EQ(store().fileTags.at("t1#0"), "\"d1\"");
    EXPECT_FALSE(store().toast());
    EXPECT_FALSE(store().problem());
    EXPECT_TRUE(store().signedIn());
    EXPECT_TRUE(store().board());
    EXPECT_TRUE(store().page().empty());
    EXPECT_THAT(desk.pictures.pages, IsEmpty());
  }
  EXPECT_EQ(detailRequests(), 2U);
}

INSTANTIATE_TEST_SUITE_P(
    All, SilentDetails,
    testing::Values(SilenceCase{"SignedOut", answerOf(401)},
                    SilenceCase{"NotModified", answerOf(304, "", "\"d9\"")},
                    SilenceCase{"Refused", answerOf(404, R"({"error":"Gone."})")},
                    SilenceCase{"Broken", answerOf(500, "<html>")},
                    SilenceCase{"Offline", std::unexpected(HttpError::notConnected)},
                    SilenceCase{"Garbage", answerOf(200, "garbage", "\"d9\"")},
                    SilenceCase{"Empty", answerOf(200, "", "\"d9\"")},
                    SilenceCase{"OtherRecord", answerOf(200, R"({"rev":1})", "\"d9\"")}),
    [](const auto& each) { return each.param.name; });

TEST_F(Detail, IsTriedAgainWhenTheTicketMovesOn) {
  routes.next("GET api/files/t1", answerOf(500));
  serveDetail(detailOf(ticketAt("t1", 2)));
  load(ticketAt("t1", 1));
  EXPECT_TRUE(store().details().empty());
  load(ticketAt("t1", 2));
  EXPECT_EQ(store().details().at("t1").file.rev, 2);
}

TEST_F(Detail, OfTwoLoadsAtATimeTheLaterAnswerStays) {
  desk.tasks.start(store().loadDetail(ticketAt("t1", 1), false));
  desk.tasks.start(store().loadDetail(ticketAt("t1", 1), true));
  ASSERT_EQ(detailRequests(), 2U);
  answer(1, answerOf(200, jsonOf(detailOf(ticketAt("t1", 2))), "\"d2\""));
  answer(0, answerOf(200, jsonOf(detailOf(ticketAt("t1", 1))), "\"d1\""));
  EXPECT_EQ(store().details().at("t1").file.rev, 1);
  EXPECT_EQ(store().fileTags.at("t1#0"), "\"d1\"");
}

TEST_F(Detail, ArrivesAlsoWhenTheSelectionHasMovedOn) {
  store().board.set(boardOf({ticketAt("t1", 1), ticketAt("t2", 1)}));
  store().selection.set({"t1"});
  desk.tasks.start(store().loadDetail(ticketAt("t1", 1), false));
  store().selection.set({"t2"});
  answer(0, answerOf(200, jsonOf(detailOf(ticketAt("t1", 1)))));
  EXPECT_TRUE(store().details().contains("t1"));
}

TEST_F(Detail, DoesNotComeBackAfterASignOut) {
  desk.tasks.start(store().loadDetail(ticketAt("t1", 1), true));
  store().signOut(false);
  answer(0, answerOf(200, jsonOf(detailOf(ticketAt("t1", 1)))));
  EXPECT_TRUE(store().details().empty());
}

TEST_F(Detail, IsRequestedInTheBackground) {
  store().requestDetail(ticketAt("t1", 1));
  EXPECT_EQ(detailRequests(), 0U);
  desk.time.run();
  EXPECT_EQ(detailRequests(), 1U);
}

TEST_F(Detail, OfTicketsPassedByDoesNotPileUp) {
  for (int i = 1; i <= 20; ++i) store().requestDetail(ticketAt("t" + std::to_string(i), 1));
  desk.time.run();
  std::vector<std::string> awaited;
  for (const auto* exchange : desk.http.matching("GET api/files/")) {
    if (!exchange->resolver.resolved()) awaited.push_back(exchange->line());
  }
  EXPECT_THAT(awaited, ElementsAre("GET api/files/t17", "GET api/files/t18", "GET api/files/t19",
                                   "GET api/files/t20"));
  serveDetail(detailOf(ticketAt("t1", 1)));
  store().requestDetail(ticketAt("t1", 1));
  desk.time.run();
  EXPECT_TRUE(store().details().contains("t1")) << "it can be asked for again";
}

}  // namespace
}  // namespace vellix
