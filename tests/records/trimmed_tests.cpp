#include "records/trimmed.hpp"

#include <gtest/gtest.h>

namespace vellix {
namespace {

struct TrimmedCase {
  const char* name;
  std::string_view text;
  std::string_view kept;
};
BOOST_DESCRIBE_STRUCT(TrimmedCase, (), (name, text, kept))

class TrimmedTexts : public testing::TestWithParam<TrimmedCase> {};

TEST_P(TrimmedTexts, LoseTheBlanksAroundThemAlone) {
  EXPECT_EQ(trimmed(GetParam().text), GetParam().kept);
}

INSTANTIATE_TEST_SUITE_P(
    All, TrimmedTexts,
    testing::Values(TrimmedCase{"Empty", "", ""}, TrimmedCase{"Blanks", " \t\n\r\v\f ", ""},
                    TrimmedCase{"Bare", "word", "word"},
                    TrimmedCase{"BothEnds", "\n  two  words\t\r\n", "two  words"},
                    TrimmedCase{"HardBlank", "\u00a0word\u00a0", "word"},
                    TrimmedCase{"NextLine", "\u0085word\u0085", "word"},
                    TrimmedCase{"WideBlanks", "\u2003\u3000word\u2009\u2029", "word"},
                    TrimmedCase{"OnlyWideBlanks", "\u3000\u2028\u202f", ""},
                    TrimmedCase{"NoBlank", "\u200bword\u200d", "\u200bword\u200d"},
                    TrimmedCase{"RightToLeft", " \u05e9\u05dc\u05d5\u05dd ",
                                "\u05e9\u05dc\u05d5\u05dd"},
                    TrimmedCase{"EndsInSuchAByte", "\u0105", "\u0105"}),
    [](const auto& each) { return each.param.name; });

}  // namespace
}  // namespace vellix
