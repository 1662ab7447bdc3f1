// What the model of a person's page tells its views.
#include "views/operations.hpp"
#include "views/profile_views_test.hpp"

namespace vellix {
namespace {

using Lines = std::vector<std::string>;

class ProfileModels : public ProfileViewTest {
 protected:
  QVariant tile(int row, const char* field) { return fieldOf(model().tiles(), row, field); }
  int count(QAbstractItemModel* rows) { return rows->rowCount(); }
};

TEST_F(ProfileModels, TellThePageThatIsOpen) {
  serveStats({{kRenny, richStats()}});
  model();
  open(kRenny);
  EXPECT_EQ(model().head()["name"], "Renny Vale");
  EXPECT_EQ(model().head()["adding"], "");
  EXPECT_EQ(tile(0, "value"), "39");
  EXPECT_EQ(count(model().weeks()), 8);
  EXPECT_EQ(model().ring()["value"], "89%");
  EXPECT_EQ(count(model().issues()), 3);
  EXPECT_EQ(count(model().open()), 2);
  EXPECT_EQ(count(model().mentions()), 2);
  EXPECT_EQ(count(model().milestones()), 13);
  EXPECT_EQ(model().words()["open"], "Open now");
  EXPECT_EQ(model().words()["milestones"], "Milestones 7 of 13");
}

TEST_F(ProfileModels, BeginWithTheFiguresOfBefore) {
  serveStats({{kRenny, richStats()}});
  open(kRenny);
  store().openProfile(std::nullopt);
  routes.set(kStatsLine, std::unexpected(HttpError::notConnected));
  model();
  store().openProfile(kRenny);
  desk.time.run();
  EXPECT_EQ(model().head()["adding"], "");
  EXPECT_EQ(tile(0, "value"), "39") << "and stay where the answer fails";
}

TEST_F(ProfileModels, SayThatTheyAddItUpUntilThereAreAny) {
  model();
  serveStats({{kRenny, richStats()}});
  open(kJorvas);
  EXPECT_EQ(model().head()["adding"], "Adding it up…") << "told of others alone";
  EXPECT_EQ(model().words()["open"], "Nothing open") << "the board knows without";
  serveStats({{kJorvas, PersonStats{}}});
  poll();
  EXPECT_EQ(model().head()["adding"], "");
  EXPECT_EQ(model().words()["noIssues"], "None marked as a real issue yet.");
  EXPECT_EQ(model().words()["milestones"], "Milestones 0 of 13");
  EXPECT_EQ(count(model().weeks()), 0);
}

TEST_F(ProfileModels, CostNothingWhileNoPageIsOpen) {
  model();
  QSignalSpy heads{&model(), &ProfileModel::headChanged};
  Operations tiles{model().tiles()};
  Operations tickets{model().open()};
  store().stats.set(Stats{.at = 1, .users = {{kRenny, richStats()}}});
  poll();
  EXPECT_EQ(heads.count(), 0);
  EXPECT_EQ(tiles.take(), Lines{});
  EXPECT_EQ(tickets.take(), Lines{});
}

TEST_F(ProfileModels, TouchNothingWhereAPollBringsNothingNew) {
  serveStats({{kRenny, richStats()}});
  model();
  open(kRenny);
  QSignalSpy heads{&model(), &ProfileModel::headChanged};
  QSignalSpy words{&model(), &ProfileModel::wordsChanged};
  QSignalSpy rings{&model(), &ProfileModel::ringChanged};
  std::vector<std::unique_ptr<Operations>> lists;
  for (auto* rows : {model().tiles(), model().weeks(), model().issues(), model().open(),
                     model().mentions(), model().milestones()}) {
    lists.push_back(std::make_unique<Operations>(rows));
  }
  poll();
  EXPECT_EQ(heads.count() + words.count() + rings.count(), 0);
  for (auto& list : lists) EXPECT_EQ(list->take(), Lines{});
  PersonStats more = richStats();
  more.reviewed = 40;
  ++more.weekly.back().count;
  serveStats({{kRenny, more}});
  poll();
  EXPECT_EQ(lists[0]->take(), (Lines{"change 0-0 value spoken", "change 1-1 note spoken"}));
  EXPECT_EQ(lists[1]->take().size(), 7U) << "all but the week of none are measured by the largest";
  EXPECT_EQ(lists[3]->take(), Lines{});
  EXPECT_EQ(lists[4]->take(), Lines{});
}

TEST_F(ProfileModels, FollowTheMinutes) {
  serveStats({{kRenny, richStats()}});
  model();
  open(kRenny);
  BoardState board = *store().board();
  board.users[0].last_seen = wireOf(desk.time.now());
  store().board.set(board);
  desk.time.run();
  EXPECT_TRUE(model().head()["here"].toMap().contains("text"));
  const QVariant due = fieldOf(model().open(), 0, "due");
  desk.time.advance(Milliseconds{720'000});
  store().lastOK.set(desk.time.now());
  desk.time.run();
  EXPECT_FALSE(model().head()["here"].toMap().contains("text"));
  EXPECT_NE(fieldOf(model().open(), 0, "due"), due);
}

TEST_F(ProfileModels, StayWithWhoLeavesTheBoard) {
  serveStats({{kJorvas, richStats()}});
  model();
  open(kJorvas);
  change([](BoardState& board) { board.users.pop_back(); });
  EXPECT_EQ(model().head()["name"], kJorvas) << "by the address";
  EXPECT_EQ(tile(0, "value"), "39");
  model().back();
  EXPECT_FALSE(store().profile());
}

TEST_F(ProfileModels, GoToATicketThatIsThere) {
  model();
  open(kRenny);
  model().openTicket("gone");
  EXPECT_TRUE(store().profile()) << "nothing to go to";
  model().openTicket("t2");
  EXPECT_EQ(store().selection(), std::set<std::string>{"t2"});
  EXPECT_FALSE(store().profile());
}

TEST_F(ProfileModels, TellNothingOfASessionThatHasEnded) {
  serveStats({{kRenny, richStats()}});
  model();
  open(kRenny);
  QSignalSpy heads{&model(), &ProfileModel::headChanged};
  store().signOut(false);
  desk.time.run();
  EXPECT_EQ(heads.count(), 0);
  EXPECT_EQ(store().profile(), kRenny) << "and open for the next one";
}

}  // namespace
}  // namespace vellix
