// The people at the foot of the column.
#include "board/people_bar.hpp"

#include "store/store_test.hpp"

namespace vellix {
namespace {

constexpr const char* kRenny = "renny@tessarine.example";
constexpr const char* kJorvas = "jorvas@tessarine.example";

class PeopleBar : public StoreTest {
 protected:
  std::vector<PersonView> people() { return peopleBar(store(), desk.time.now()); }
};

TEST_F(PeopleBar, IsEmptyBeforeTheBoard) { EXPECT_TRUE(people().empty()); }

TEST_F(PeopleBar, KeepsTheBoardsOrder) {
  BoardState board = boardOf({});
  std::ranges::reverse(board.users);
  store().board.set(board);
  ASSERT_EQ(people().size(), 2U);
  EXPECT_EQ(people()[0].email, kJorvas);
  EXPECT_EQ(people()[0].avatar.help, "Jorvas Lind");
  EXPECT_EQ(people()[1].email, kRenny);
}

TEST_F(PeopleBar, TellsWhoIsHere) {
  BoardState board = boardOf({});
  const double now = wireOf(desk.time.now());
  board.users[0].last_seen = now - 719'999;
  board.users[1].last_seen = now - 720'000;
  store().board.set(board);
  EXPECT_TRUE(people()[0].here) << "the signed-in person too";
  EXPECT_FALSE(people()[1].here);
}

TEST_F(PeopleBar, RingsThePersonWhoseProfileIsOpen) {
  store().board.set(boardOf({}));
  EXPECT_FALSE(people()[0].ring);
  store().profile.set(kJorvas);
  EXPECT_FALSE(people()[0].ring);
  EXPECT_TRUE(people()[1].ring);
}

TEST_F(PeopleBar, SaysWhoseFiguresAreBehindEachPerson) {
  BoardState board = boardOf({});
  const auto labelFor = [&](const std::string& name) {
    board.users[1].name = name;
    store().board.set(board);
    return people()[1].label;
  };
  store().board.set(board);
  EXPECT_EQ(people()[0].label, "Your page and stats");
  EXPECT_EQ(people()[1].label, "Jorvas's page and stats");
  EXPECT_EQ(labelFor("  Mara   Quell "), "Mara's page and stats");
  EXPECT_EQ(labelFor(""), "jorvas@tessarine.example's page and stats");
  EXPECT_EQ(labelFor("   "), "jorvas@tessarine.example's page and stats");
  board.me.email = kJorvas;
  EXPECT_EQ(labelFor("Jorvas Lind"), "Your page and stats");
}

TEST_F(PeopleBar, OpensAPageAndClosesIt) {
  store().board.set(boardOf({}));
  togglePage(store(), kRenny);
  EXPECT_EQ(store().profile(), kRenny);
  togglePage(store(), kJorvas);
  EXPECT_EQ(store().profile(), kJorvas) << "another's is the other page";
  togglePage(store(), kJorvas);
  EXPECT_FALSE(store().profile());
}

}  // namespace
}  // namespace vellix
