// Who is here.
#include "store/people.hpp"

#include "store/store_test.hpp"

namespace vellix {
namespace {

struct Presence {
  const char* name;
  std::optional<double> ago;  // milliseconds since the person was seen
  bool here;
};
BOOST_DESCRIBE_STRUCT(Presence, (), (name, ago, here))

class Presences : public testing::TestWithParam<Presence> {};

TEST_P(Presences, LastTwelveMinutes) {
  constexpr double now = 1'700'000'000'000;
  Person person{.email = "a@b.c", .name = "A"};
  if (GetParam().ago) person.last_seen = now - *GetParam().ago;
  EXPECT_EQ(isHere(person, momentOf(now)), GetParam().here);
}

INSTANTIATE_TEST_SUITE_P(All, Presences,
                         testing::Values(Presence{"Now", 0.0, true},
                                         Presence{"JustWithin", 719'999.0, true},
                                         Presence{"TwelveMinutesAgo", 720'000.0, false},
                                         Presence{"LongAgo", 86'400'000.0, false},
                                         Presence{"AClockAhead", -5'000.0, true},
                                         Presence{"NeverSeen", std::nullopt, false}),
                         [](const auto& each) { return each.param.name; });

TEST(Presence, IsNotTakenFromTheBeginningOfTime) {
  EXPECT_FALSE(isHere({.email = "a@b.c", .name = "A"}, momentOf(720'000)));
}

class PersonNames : public StoreTest {};

TEST_F(PersonNames, AreThoseOfTheBoardsUsers) {
  EXPECT_EQ(personName(store(), "a@b.c"), "a@b.c") << "no board yet";
  BoardState board = boardOf({});
  board.users = {{.email = "a@b.c", .name = "Ada Lind"}, {.email = "a@b.c", .name = "Another"}};
  board.guests = std::vector<Guest>{{"g@b.c", "A Guest"}};
  store().board.set(board);
  EXPECT_EQ(personName(store(), "a@b.c"), "Ada Lind");
  EXPECT_EQ(personName(store(), "A@b.c"), "A@b.c");
  EXPECT_EQ(personName(store(), "g@b.c"), "g@b.c");
  board.users[0].name = "";
  store().board.set(board);
  EXPECT_EQ(personName(store(), "a@b.c"), "a@b.c");
}

struct Joined {
  const char* name;
  std::vector<std::string> emails;
  const char* words;
};
BOOST_DESCRIBE_STRUCT(Joined, (), (name, emails, words))

class JoinedNames : public StoreTest, public testing::WithParamInterface<Joined> {};

TEST_P(JoinedNames, ReadAsASentenceDoes) {
  store().board.set(boardOf({}));
  EXPECT_EQ(joinNames(store(), GetParam().emails), GetParam().words);
}

INSTANTIATE_TEST_SUITE_P(
    All, JoinedNames,
    testing::Values(Joined{"Nobody", {}, ""}, Joined{"One", {"ada@b.c"}, "Ada"},
                    Joined{"Two", {"ada@b.c", "ben@b.c"}, "Ada and Ben"},
                    Joined{"Three", {"ada@b.c", "ben@b.c", "cy@b.c"}, "Ada, Ben and Cy"},
                    Joined{"Four",
                           {"ada@b.c", "renny@tessarine.example", "", "cy@b.c"},
                           "Ada, You, Claude and Cy"}),
    [](const auto& each) { return each.param.name; });

struct Called {
  const char* name;
  std::optional<std::string> email;
  const char* called;
};
BOOST_DESCRIBE_STRUCT(Called, (), (name, email, called))

class DisplayNames : public StoreTest, public testing::WithParamInterface<Called> {};

TEST_P(DisplayNames, AreWhatTheReaderCallsThem) {
  BoardState board = boardOf({});
  board.users.push_back({.email = "ada@b.c", .name = "  Ada  Lind "});
  board.users.push_back({.email = "blank@b.c", .name = " "});
  board.users.push_back({.email = "unnamed@b.c", .name = ""});
  board.approvers = std::vector<Guest>{
      {"maren@out.c", "Maren Holt"}, {"ivo@out.c", std::nullopt}, {"both@out.c", "First List"}};
  board.guests = std::vector<Guest>{
      {"guest@out.c", "Anna Bell"}, {"both@out.c", "Second List"}, {"ada@b.c", "Somebody Else"}};
  store().board.set(board);
  EXPECT_EQ(displayName(store(), GetParam().email), GetParam().called);
}

INSTANTIATE_TEST_SUITE_P(
    All, DisplayNames,
    testing::Values(Called{"TheWorker", std::nullopt, "Claude"}, Called{"NoAddress", "", "Claude"},
                    Called{"Oneself", "renny@tessarine.example", "You"},
                    Called{"AColleague", "jorvas@tessarine.example", "Jorvas"},
                    Called{"AColleagueBeforeAGuest", "ada@b.c", "Ada"},
                    Called{"ANameOfBlanks", "blank@b.c", "Blank"},
                    Called{"ANameThatIsMissing", "unnamed@b.c", "Unnamed"},
                    Called{"AnApprover", "maren@out.c", "Maren"},
                    Called{"AnApproverWithoutName", "ivo@out.c", "ivo"},
                    Called{"AnApproverBeforeAGuest", "both@out.c", "First"},
                    Called{"AGuest", "guest@out.c", "Anna"},
                    Called{"AStranger", "per.olsen@else.c", "Per.olsen"},
                    Called{"AStrangerInUtf8", "émile@else.c", "Émile"},
                    Called{"NoAddressAtAll", "somebody", "Somebody"},
                    Called{"OtherLetters", "Renny@tessarine.example", "Renny"}),
    [](const auto& each) { return each.param.name; });

TEST_F(PersonNames, AreTakenFromTheAddressWhileThereIsNoBoard) {
  EXPECT_EQ(displayName(store(), "renny@tessarine.example"), "Renny");
  EXPECT_EQ(displayName(store(), std::nullopt), "Claude");
  store().board.set(BoardState{});
  EXPECT_EQ(displayName(store(), "renny@tessarine.example"), "Renny");
}

}  // namespace
}  // namespace vellix
