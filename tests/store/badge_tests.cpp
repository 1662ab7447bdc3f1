// The badge counts the user's open tickets.
#include "store/notices_test.hpp"

namespace vellix {
namespace {

FileItem ticketFor(std::string id, std::string status, std::optional<std::string> assignee) {
  FileItem file = ticketOf(std::move(id), std::move(status));
  file.assignee = std::move(assignee);
  return file;
}

class BadgeOfTheIcon : public NoticesTest {
 protected:
  const std::vector<FileItem> files{ticketFor("a", "new", kMe),
                                    ticketFor("b", "in_review", kMe),
                                    ticketFor("c", "odd", kMe),
                                    ticketFor("d", "reviewed", kMe),
                                    ticketFor("e", "new", kBo),
                                    ticketFor("f", "new", std::nullopt),
                                    ticketFor("g", "new", "ANN@tessarine.example")};
};

TEST_F(BadgeOfTheIcon, CountsOnesOwnTicketsThatAreNotReviewed) {
  EXPECT_EQ(store().openCount(), 0);
  pollWith({}, files);
  EXPECT_EQ(store().openCount(), 3);
  EXPECT_EQ(desk.badge.shown.back(), 3);
}

TEST_F(BadgeOfTheIcon, IsClearedWhenNothingIsOpen) {
  pollWith({}, files);
  pollWith({}, {ticketFor("d", "reviewed", kMe)});
  EXPECT_EQ(desk.badge.shown.back(), std::nullopt);
}

TEST_F(BadgeOfTheIcon, TurnedOffIsClearedAtTheNextGoodPollAndNotAtOnce) {
  pollWith({}, files);
  store().prefs.dockBadge.set(false);
  desk.time.run();
  EXPECT_EQ(desk.badge.shown.back(), 3);
  routes.set(kStateLine, std::unexpected(HttpError::notConnected));
  poll();
  EXPECT_EQ(desk.badge.shown.back(), 3);
  pollWith({}, files);
  EXPECT_EQ(desk.badge.shown.back(), std::nullopt);
}

TEST_F(BadgeOfTheIcon, GoesWithTheSession) {
  pollWith({}, files);
  ASSERT_EQ(desk.badge.shown.back(), 3);
  store().signOut(false);
  EXPECT_EQ(desk.badge.shown.back(), std::nullopt);
}

TEST_F(BadgeOfTheIcon, GoesWithASessionThatTheServiceEnds) {
  pollWith({}, files);
  routes.set(kStateLine, answerOf(401));
  poll();
  EXPECT_EQ(desk.badge.shown.back(), std::nullopt);
}

TEST_F(BadgeOfTheIcon, IsBroughtUpToDateByAnUnchangedBoardToo) {
  pollWith({}, files);
  store().prefs.dockBadge.set(false);
  poll();
  EXPECT_EQ(desk.badge.shown.back(), std::nullopt);
}

}  // namespace
}  // namespace vellix
