#include "check/agreed.hpp"

#include <gtest/gtest.h>

namespace vellix::demo {
namespace {

Finding made(const std::string& against, Int page, std::optional<std::vector<double>> box,
             const std::string& kind = "words") {
  Finding finding;
  finding.against = against;
  finding.page = page;
  finding.kind = kind;
  finding.severity = "high";
  finding.state = "open";
  finding.title = "One word changed";
  finding.detail = "It reads so.";
  finding.box = std::move(box);
  return finding;
}

const Partners kBoth = {Partner{0, 1}, Partner{1, 1}};
const std::vector<double> kHere = {0.1, 0.1, 0.2, 0.02};
const std::vector<double> kThere = {0.1, 0.5, 0.2, 0.02};

Finding accepted(const Finding& finding, const std::vector<Finding>& ours,
                 const Partners& withOurs = kBoth) {
  std::vector<Finding> all = {finding};
  acceptAsOurs(all, ours, withOurs);
  return all.front();
}

TEST(AgreedWithOurs, WhatOurFileHasTooIsAnEditOfOurs) {
  const Finding edit = accepted(made("fbc", 0, kHere), {made("submitted", 0, kThere)});
  EXPECT_EQ(edit.kind, "expected");
  EXPECT_EQ(edit.state, "expected");
  EXPECT_EQ(edit.severity, "low");
  EXPECT_EQ(edit.title, "Our edit: One word changed");
  EXPECT_EQ(edit.detail, "It reads so. Our file has it so too.");
}

TEST(AgreedWithOurs, AgainstTheVersionBeforeItIsARepair) {
  const Finding repair = accepted(made("previous", 0, kHere), {});
  EXPECT_EQ(repair.title, "Repaired: One word changed");
  EXPECT_EQ(repair.detail, "It reads so. It is as in our file now.");
}

TEST(AgreedWithOurs, WhatDiffersFromOursTooWaitsForADecision) {
  const Finding finding = made("fbc", 0, kHere);
  EXPECT_EQ(accepted(finding, {made("submitted", 0, kHere)}), finding);
  // Any of its places counts.
  Finding wide = made("submitted", 0, kThere);
  wide.boxes = {kThere, kHere};
  EXPECT_EQ(accepted(finding, {wide}), finding);
  // On another page it is another one.
  EXPECT_EQ(accepted(finding, {made("submitted", 1, kHere)}).kind, "expected");
  // A pass is no difference.
  EXPECT_EQ(accepted(finding, {made("submitted", 0, kHere, "pass")}).kind, "expected");
}

TEST(AgreedWithOurs, OfWhatConcernsThePageAsAWholeTheKindCounts) {
  const Finding size = made("fbc", 0, std::nullopt, "size");
  EXPECT_EQ(accepted(size, {made("submitted", 0, std::nullopt, "size")}), size);
  EXPECT_EQ(accepted(size, {made("submitted", 0, kHere, "words")}).kind, "expected");
}

TEST(AgreedWithOurs, NothingIsOursOnAPageThatOurFileLacks) {
  const Finding finding = made("fbc", 1, kHere);
  EXPECT_EQ(accepted(finding, {}, {Partner{0, 1}, std::nullopt}), finding);
  EXPECT_EQ(accepted(finding, {}, {}), finding);
}

TEST(AgreedWithOurs, OfARevisionItIsToldBesideTheVersionBefore) {
  std::vector<Finding> ours = {made("submitted", 0, kHere), made("submitted", 1, kThere),
                               made("submitted", 0, kThere, "pass")};
  ours[0].before = "as we sent it";
  ours[0].ref_box = kThere;
  ours[1].before = "as we sent it";
  ours[0].after = "as it is";
  tellBesideBefore(ours, {Partner{0, 1}, std::nullopt});
  ASSERT_EQ(ours.size(), 2U);
  EXPECT_EQ(ours[0].against, "previous");
  EXPECT_EQ(ours[0].title, "Not as in our file: One word changed");
  EXPECT_EQ(ours[0].detail, "It reads so.");
  EXPECT_EQ(ours[0].after, "as it is");
  EXPECT_FALSE(ours[0].before);
  EXPECT_FALSE(ours[0].ref_box);
  EXPECT_EQ(ours[1].against, "previous");
  EXPECT_EQ(ours[1].before, "as we sent it") << "our own page stands beside it";
}

}  // namespace
}  // namespace vellix::demo
