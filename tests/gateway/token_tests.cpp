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

TEST(Token, IsNotSentToAServiceThatStandsIn) {
  Desk desk{std::nullopt};
  desk.defaults.texts["ServerURL"] = "https://one.example/v";
  desk.api.setToken("ones");
  EXPECT_EQ(desk.api.token(), "ones");
  for (const char* other : {"one.example", "127.0.0.1:9000", ""}) {
    desk.defaults.texts["ServerURL"] = other;
    EXPECT_FALSE(desk.api.token()) << other;
    API next{desk.http, desk.tokens, desk.defaults};
    EXPECT_FALSE(next.token()) << other << " in the next process";
  }
  EXPECT_EQ(desk.tokens.item, "ones") << "it waits for its own";
  for (const char* named : {"HTTPS://One.Example:443/w", "https://two.example"}) {
    desk.defaults.texts["ServerURL"] = named;
    EXPECT_EQ(desk.api.token(), "ones") << "whoever names a service in full means it";
  }
}

TEST(Token, OfAServiceThatNobodyWroteDownIsTheNamedOnes) {
  Desk desk{"old"};
  EXPECT_EQ(desk.api.token(), "old");
  desk.defaults.texts["ServerURL"] = "https://one.example";
  EXPECT_EQ(desk.api.token(), "old");
  desk.defaults.texts["ServerURL"] = "127.0.0.1:9000";
  EXPECT_FALSE(desk.api.token()) << "whichever was meant, it is not the built-in one";
}

TEST(Token, OfASignInWithTheServiceThatStandsInIsItsOwn) {
  Desk desk{"old"};
  desk.defaults.texts["ServerURL"] = "127.0.0.1:9000";
  desk.api.setToken("new");
  EXPECT_EQ(desk.api.token(), "new");
  API next{desk.http, desk.tokens, desk.defaults};
  EXPECT_EQ(next.token(), "new");
}

}  // namespace
}  // namespace vellix
