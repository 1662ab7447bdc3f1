// The two steps of deleting a note.
#include "notes/deletion.hpp"

#include <gtest/gtest.h>

namespace vellix {
namespace {

struct Presses {
  const char* name;
  bool rested;   // between the two
  bool pointed;  // at the second
  bool goes;
};
BOOST_DESCRIBE_STRUCT(Presses, (), (name, rested, pointed, goes))

class Deletions : public testing::TestWithParam<Presses> {};

TEST_P(Deletions, TakeASecondPressThatIsMeant) {
  Deletion deletion;
  EXPECT_FALSE(deletion.asked());
  EXPECT_FALSE(deletion.press(true));
  EXPECT_TRUE(deletion.asked());
  if (GetParam().rested) deletion.rest();
  EXPECT_EQ(deletion.press(GetParam().pointed), GetParam().goes);
  EXPECT_TRUE(deletion.asked());
}

INSTANTIATE_TEST_SUITE_P(All, Deletions,
                         testing::Values(Presses{"DoubleClick", false, true, false},
                                         Presses{"TwoClicks", true, true, true},
                                         Presses{"TwoKeysAtOnce", false, false, true},
                                         Presses{"TwoKeys", true, false, true}),
                         [](const auto& each) { return each.param.name; });

TEST(Deletion, IsAskedOnceHoweverManyClicksAreHurried) {
  Deletion deletion;
  for (int i = 0; i < 4; ++i) EXPECT_FALSE(deletion.press(true));
  deletion.rest();
  EXPECT_TRUE(deletion.press(true));
}

}  // namespace
}  // namespace vellix
