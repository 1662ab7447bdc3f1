// What the hash of a record makes of its fields; which fields it has, its description says.
#include <unordered_set>

#include "records/record_cases.hpp"

namespace vellix::test {
namespace {

TEST(Identity, RecordsServeAsKeysOfASet) {
  const auto ticket = decoded<FileItem>(fullDocument("FileItem"));
  FileItem other = ticket;
  other.refs->front().name = "another.pdf";
  std::unordered_set<FileItem> set{other};
  EXPECT_FALSE(set.contains(ticket)) << "what differs lies deep in it";
  set.insert(ticket);
  set.insert(ticket);
  EXPECT_EQ(set.size(), 2u);
  EXPECT_TRUE(set.contains(FileItem{ticket}));
}

TEST(Identity, AllThatIsHeldCounts) {
  Stats stats;
  stats.users["ann"].by_kind = {{"text", 1}};
  stats.users["ann"].weekly = {{.start = 1, .count = 2}};
  Stats other = stats;
  EXPECT_EQ(hashOf(other), hashOf(stats));
  other.users.at("ann").by_kind.at("text") = 2;
  EXPECT_NE(hashOf(other), hashOf(stats)) << "a value of a map";
  other = stats;
  other.users.at("ann").weekly.emplace_back();
  EXPECT_NE(hashOf(other), hashOf(stats)) << "the length of a list";
  other = stats;
  other.users.emplace("bo", PersonStats{});
  EXPECT_NE(hashOf(other), hashOf(stats)) << "an entry of a map";
}

TEST(Identity, NoneDiffersFromAnEmptyValue) {
  const Counts none;
  Counts zero;
  zero.pages = 0;
  EXPECT_NE(none, zero);
  EXPECT_NE(hashOf(none), hashOf(zero));
}

TEST(Identity, TheSameValueInAnotherFieldDiffers) {
  const Counts high{.pages = {}, .high = 1, .medium = {}, .low = {}, .expected = {}, .shown = {}};
  const Counts low{.pages = {}, .high = {}, .medium = {}, .low = 1, .expected = {}, .shown = {}};
  EXPECT_NE(high, low);
  EXPECT_NE(hashOf(high), hashOf(low));
}

TEST(Identity, BothZerosAreOneValue) {
  const WeekCount plus{.start = 0.0, .count = 1};
  const WeekCount minus{.start = -0.0, .count = 1};
  EXPECT_EQ(plus, minus);
  EXPECT_EQ(hashOf(plus), hashOf(minus));
}

}  // namespace
}  // namespace vellix::test
