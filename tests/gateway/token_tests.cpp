#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/desk.hpp"

namespace vellix {
namespace {

using testing::ElementsAre;

TEST(Token, IsReadFromTheStoreOnceHoweverOftenItIsAskedFor) {
  Desk desk{"kept"};
  EXPECT_EQ(desk.api.token(), "kept");
  EXPECT_EQ(desk.api.token(), "kept");
  EXPECT_EQ(desk.tokens.reads, 1);
}

TEST(Token, IsLookedForAgainWhileThereIsNone) {
  Desk desk{std::nullopt};
  EXPECT_FALSE(desk.api.token());
  desk.tokens.item = "late";
  EXPECT_EQ(desk.api.token(), "late");
  EXPECT_EQ(desk.tokens.reads, 2);
}

TEST(Token, ReplacesTheItemByRemovingItFirst) {
  Desk desk{"old"};
  desk.api.setToken("new");
  EXPECT_THAT(desk.tokens.calls, ElementsAre("remove", "add new"));
  EXPECT_EQ(desk.api.token(), "new");
  EXPECT_EQ(desk.tokens.item, "new");
  EXPECT_EQ(desk.tokens.reads, 0);
}

TEST(Token, LeavesNoItemBehindWhenItIsTakenAway) {
  Desk desk{"old"};
  EXPECT_TRUE(desk.api.token());
  desk.api.setToken(std::nullopt);
  EXPECT_THAT(desk.tokens.calls, ElementsAre("remove"));
  EXPECT_FALSE(desk.api.token());
  EXPECT_FALSE(desk.tokens.item);
}

TEST(Token, WorksUntilTheEndOfTheProcessWhenItCannotBeKept) {
  Desk desk{std::nullopt};
  desk.tokens.works = false;
  desk.api.setToken("unkept");
  EXPECT_EQ(desk.api.token(), "unkept");
  EXPECT_FALSE(desk.tokens.item);
  // The next process finds nothing.
  API next{desk.http, desk.tokens, desk.defaults};
  EXPECT_FALSE(next.token());
}

}  // namespace
}  // namespace vellix
