// Which of two texts wants more room.
#include "compare/rough_width.hpp"

#include <gtest/gtest.h>

#include <boost/describe.hpp>
#include <string>

#include "support/words_of_rows.hpp"

namespace vellix {
namespace {

struct Pair {
  const char* name;
  std::string narrow;
  std::string wide;
};
BOOST_DESCRIBE_STRUCT(Pair, (), (name, narrow, wide))
class RoughWidths : public testing::TestWithParam<Pair> {};

TEST_P(RoughWidths, TellTheWiderOne) {
  EXPECT_LT(roughWidth(GetParam().narrow), roughWidth(GetParam().wide));
}

INSTANTIATE_TEST_SUITE_P(
    All, RoughWidths,
    testing::Values(Pair{"MoreDigits", "9", "10"}, Pair{"NothingAtAll", "", "i"},
                    Pair{"NarrowLetters", "iii", "MM"}, Pair{"SlimLetters", "fr", "ab"},
                    Pair{"Capitals", "abc", "ABC"}, Pair{"Wide", "a", "m"},
                    Pair{"AnotherScript", "abc", "\u8868\u7d19"}, Pair{"Accents", "e\u0301", "ee"},
                    Pair{"ManyBytes", "\u00e9\u00e9", "abc"}),
    [](const auto& each) { return each.param.name; });

TEST(RoughWidth, OfDigitsIsThatOfTheirNumber) {
  EXPECT_EQ(roughWidth("111"), roughWidth("908"));
  EXPECT_EQ(roughWidth("1234567890"), 100);
}

TEST(RoughWidth, EndsSomewhere) {
  EXPECT_EQ(roughWidth(std::string(1'000'000, 'x')), roughWidth(std::string(5'000, 'm')));
}

TEST(RoughWidth, TakesWhatIsNoText) { EXPECT_GT(roughWidth("\xff\xfe\xc3"), 0); }

}  // namespace
}  // namespace vellix
