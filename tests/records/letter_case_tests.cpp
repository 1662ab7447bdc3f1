// The first letter in the other case.
#include "records/letter_case.hpp"

#include <gtest/gtest.h>

namespace vellix {
namespace {

struct Pair {
  const char* capital;
  const char* small;
};

TEST(LetterCase, TurnsTheFirstLetterAlone) {
  for (const Pair& each :
       {Pair{"A", "a"},       {"Z", "z"},       {"Marked THE Thing", "marked THE Thing"},
        {"Élan", "élan"},     {"Ödön", "ödön"}, {"Þór", "þór"},
        {"Łukasz", "łukasz"}, {"Ğ", "ğ"},       {"Ĺ", "ĺ"},
        {"Ň", "ň"},           {"Ŋ", "ŋ"},       {"Ŷ", "ŷ"},
        {"Ÿves", "ÿves"},     {"Żaba", "żaba"}, {"Ž", "ž"},
        {"Ștefan", "ștefan"}, {"Άλφα", "άλφα"}, {"Έ", "έ"},
        {"Ό", "ό"},           {"Ώ", "ώ"},       {"Ωmega", "ωmega"},
        {"Σ", "σ"},           {"Ёлка", "ёлка"}, {"Яна", "яна"},
        {"Ґ", "ґ"},           {"Ẁ", "ẁ"},       {"Ệ", "ệ"}}) {
    EXPECT_EQ(lowered(each.capital), each.small);
    EXPECT_EQ(capitalised(each.small), each.capital);
    EXPECT_EQ(lowered(each.small), each.small);
    EXPECT_EQ(capitalised(each.capital), each.capital);
  }
}

TEST(LetterCase, LeavesWhatHasNoCase) {
  for (const char* text : {"", "7 pages", "“Quoted”", "×", "÷", "ß", "東京", "😀 fine", "@", "[",
                           "`", "{", "\x80zz", "\xC3", "\xE1\xBA", "\xFFz"}) {
    EXPECT_EQ(lowered(text), text);
    EXPECT_EQ(capitalised(text), text);
  }
}

}  // namespace
}  // namespace vellix
