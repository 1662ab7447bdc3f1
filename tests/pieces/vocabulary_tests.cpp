#include "pieces/vocabulary.hpp"

#include <gtest/gtest.h>

namespace vellix {
namespace {

struct Case {
  std::string_view value;
  PillView pill;
};

TEST(Vocabulary, NamesEveryStatus) {
  const PillView fresh{.text = "New", .icon = "", .tone = "purple", .dashed = true};
  const Case cases[] = {
      {"reviewed", {.text = "Reviewed", .icon = "checkmark.circle", .tone = "green"}},
      {"in_review", {.text = "In review", .icon = "magnifyingglass", .tone = "amber"}},
      {"new", fresh},
      {"", fresh},
      {"REVIEWED", fresh},
      {"withdrawn", fresh},
  };
  for (const Case& c : cases) EXPECT_EQ(statusPill(c.value), c.pill) << c.value;
}

TEST(Vocabulary, NamesEverySeverity) {
  const PillView minor{.text = "Minor", .icon = "minus.circle", .tone = "gray"};
  const Case cases[] = {
      {"high", {.text = "Fix", .icon = "exclamationmark.triangle", .tone = "red"}},
      {"medium", {.text = "Check", .icon = "eye", .tone = "amber"}},
      {"low", minor},
      {"", minor},
      {"catastrophic", minor},
  };
  for (const Case& c : cases) EXPECT_EQ(severityPill(c.value), c.pill) << c.value;
}

TEST(Vocabulary, NamesBothTracks) {
  EXPECT_EQ(trackPill(true).text, "Reprint");
  EXPECT_EQ(trackPill(true).icon, "arrow.triangle.2.circlepath");
  EXPECT_EQ(trackPill(false).text, "New title");
  EXPECT_EQ(trackPill(false).icon, "sparkles");
}

}  // namespace
}  // namespace vellix
