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

TEST_F(PersonNames, AreTheWorkersWhereNobodyIsNamed) {
  BoardState board = boardOf({});
  board.users = {{.email = "a@b.c", .name = "Ada Lind"}};
  store().board.set(board);
  EXPECT_EQ(authorName(store(), "a@b.c"), "Ada Lind");
  EXPECT_EQ(authorName(store(), "x@b.c"), "x@b.c");
  EXPECT_EQ(authorName(store(), ""), "Claude");
  EXPECT_EQ(authorName(store(), std::nullopt), "Claude");
}

}  // namespace
}  // namespace vellix
