// What a finding is called.
#include "records/finding_words.hpp"

#include <gtest/gtest.h>

namespace vellix {
namespace {

struct Kind {
  const char* kind;
  const char* label;
};
BOOST_DESCRIBE_STRUCT(Kind, (), (kind, label))

class Kinds : public testing::TestWithParam<Kind> {};

TEST_P(Kinds, HaveTheirLabels) { EXPECT_EQ(kindLabel(GetParam().kind), GetParam().label); }

INSTANTIATE_TEST_SUITE_P(All, Kinds,
                         testing::Values(Kind{"words", "Words"}, Kind{"expected", "Our edit"},
                                         Kind{"breaks", "Line breaks"},
                                         Kind{"hidden", "Under the art"}, Kind{"fonts", "Fonts"},
                                         Kind{"size", "Size"}, Kind{"picture", "Art"},
                                         Kind{"barcode", "Barcode"}, Kind{"spots", "Spot colors"},
                                         Kind{"pass", "Passed"}, Kind{"missing_page", "Pages"},
                                         Kind{"extra_page", "Pages"}, Kind{"anything", "Other"}),
                         [](const auto& each) { return std::string{each.param.kind}; });

TEST(Kinds, ThatHaveNoNameAreOther) { EXPECT_EQ(kindLabel(""), "Other"); }

struct Caption {
  const char* kind;
  const char* against;
  const char* caption;
};

TEST(Captions, NameTheKindAndTheReference) {
  for (const auto& each : {Caption{"words", "submitted", "Words · vs what we sent"},
                           Caption{"fonts", "latest", "Fonts · vs last print"},
                           Caption{"size", "previous", "Size · vs last version"},
                           Caption{"barcode", "fbc", "Barcode · vs FBC"},
                           Caption{"mystery", "mystery", "Other · vs last print"}}) {
    Finding finding;
    finding.kind = each.kind;
    finding.against = each.against;
    EXPECT_EQ(cardCaption(finding), each.caption);
  }
}

TEST(States, HaveTheirWords) {
  EXPECT_EQ(stateWord("issue"), "Real issue");
  EXPECT_EQ(stateWord("fine"), "Fine");
  EXPECT_EQ(stateWord("open"), "Open");
  EXPECT_EQ(stateWord("anything"), "Open");
  EXPECT_EQ(decisionWord("issue"), "Real issue");
  EXPECT_EQ(decisionWord("fine"), "Fine");
}

}  // namespace
}  // namespace vellix
