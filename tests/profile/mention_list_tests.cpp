// The notes that a person was tagged in.
#include "profile/mention_list.hpp"

#include <gmock/gmock.h>

#include "profile/profile_test.hpp"

namespace vellix {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Mentions : public ProfileTest {
 protected:
  Mentions() {
    mention = {
        .file_id = "t1", .page = 11, .text = "Too red?", .by = kJorvas, .at = now() - 300'000};
  }
  std::vector<MentionView> list(const std::vector<Mention>& mentions) {
    return mentionList(store(), mentions, desk.time.now(), desk.calendar);
  }
  std::string keyOf(const Mention& one) { return list({one}).at(0).key; }

  Mention mention;
};

TEST_F(Mentions, TellWhatWasWrittenByWhomAndWhen) {
  const auto row = list({mention}).at(0);
  EXPECT_EQ(row.text, "Too red?");
  EXPECT_EQ(row.who, "Jorvas");
  EXPECT_EQ(row.avatar, avatarOf(kJorvas, store()));
  EXPECT_EQ(row.when, "5 min ago");
  EXPECT_EQ(row.where, "The Lighthouse · p12");
  EXPECT_EQ(row.ticket, "t1");
  EXPECT_EQ(row.spoken, "Jorvas: Too red?, 5 min ago, The Lighthouse · p12");
}

struct WhoCase {
  const char* name;
  const char* by;
  const char* who;
};
BOOST_DESCRIBE_STRUCT(WhoCase, (), (name, by, who))

class MentionWriters : public Mentions, public testing::WithParamInterface<WhoCase> {};

TEST_P(MentionWriters, GoByTheNameTheReaderKnows) {
  mention.by = GetParam().by;
  EXPECT_EQ(list({mention}).at(0).who, GetParam().who);
}

INSTANTIATE_TEST_SUITE_P(All, MentionWriters,
                         testing::Values(WhoCase{"Self", kRenny, "You"},
                                         WhoCase{"Colleague", kJorvas, "Jorvas"},
                                         WhoCase{"Stranger", "olo@tessarine.example", "Olo"},
                                         WhoCase{"Nobody", "", "Claude"}),
                         [](const auto& each) { return each.param.name; });

struct WhereCase {
  const char* name;
  const char* ticket;
  std::optional<Int> page;
  const char* where;
};
BOOST_DESCRIBE_STRUCT(WhereCase, (), (name, ticket, page, where))

class MentionPlaces : public Mentions, public testing::WithParamInterface<WhereCase> {};

TEST_P(MentionPlaces, AreTheTicketAndThePageFromOne) {
  mention.file_id = GetParam().ticket;
  mention.page = GetParam().page;
  const auto row = list({mention}).at(0);
  const bool there = *GetParam().where != '\0';
  EXPECT_EQ(row.where, GetParam().where);
  EXPECT_EQ(row.ticket, there ? GetParam().ticket : "");
  EXPECT_EQ(row.spoken, "Jorvas: Too red?, 5 min ago" + (there ? ", " + row.where : std::string{}));
}

INSTANTIATE_TEST_SUITE_P(
    All, MentionPlaces,
    testing::Values(WhereCase{"FirstPage", "t2", 0, "Rain · p1"},
                    WhereCase{"APage", "t2", 4, "Rain · p5"},
                    WhereCase{"NoPage", "t2", std::nullopt, "Rain"},
                    WhereCase{"BeforeTheFirst", "t2", -3, "Rain · p1"},
                    WhereCase{"FarBeforeTheFirst", "t2", kLeast, "Rain · p1"},
                    WhereCase{"BehindAny", "t2", kMost, "Rain · p9223372036854775808"},
                    WhereCase{"Untitled", "t3", 1, "Untitled file · p2"},
                    WhereCase{"GoneTicket", "t9", 4, ""}, WhereCase{"NoTicket", "", 4, ""}),
    [](const auto& each) { return each.param.name; });

TEST_F(Mentions, LeadNowhereWithoutABoard) {
  store().board.set(std::nullopt);
  EXPECT_EQ(list({mention}).at(0).ticket, "");
  EXPECT_EQ(list({mention}).at(0).text, "Too red?");
}

TEST_F(Mentions, KeepTheListsOrder) {
  EXPECT_THAT(list({}), IsEmpty());
  std::vector<Mention> mentions(3, mention);
  mentions[0].text = "b";
  mentions[1].text = "c";
  mentions[2].text = "a";
  mentions[2].at -= 900'000;
  std::vector<std::string> texts;
  for (const auto& row : list(mentions)) texts.push_back(row.text);
  EXPECT_THAT(texts, ElementsAre("b", "c", "a"));
}

TEST_F(Mentions, AreToldApartByEachOfTheirFields) {
  std::vector<Mention> others(6, mention);
  others[0].file_id = "t2";
  others[1].page = 12;
  others[2].page.reset();
  others[3].text = "Too blue?";
  others[4].by = kRenny;
  others[5].at += 1;
  for (const Mention& other : others) EXPECT_NE(keyOf(other), keyOf(mention));
  Mention runOver = mention;
  runOver.by += runOver.text;
  runOver.text.clear();
  EXPECT_NE(keyOf(runOver), keyOf(mention));
}

TEST_F(Mentions, StandTwiceWhereTheyAreToldTwice) {
  Mention other = mention;
  other.text = "Again?";
  const auto rows = list({mention, other, mention, mention});
  std::set<std::string> keys;
  for (const auto& row : rows) keys.insert(row.key);
  EXPECT_EQ(keys.size(), 4U);
  EXPECT_EQ(rows[0].key, keyOf(mention));
}

// A new one on top takes no other's key, so that the rows below stay what they are.
TEST_F(Mentions, KeepTheirKeysWhenAnotherComes) {
  Mention fresh = mention;
  fresh.text = "New";
  EXPECT_EQ(list({fresh, mention}).at(1).key, list({mention}).at(0).key);
}

}  // namespace
}  // namespace vellix
