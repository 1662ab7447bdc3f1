// What the program says of itself instead of starting.
#include "shell/usage.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <sstream>

#include "gateway/api.hpp"

namespace vellix {
namespace {

TEST(Usage, IsSaidOnlyWhenAskedFor) {
  EXPECT_EQ(usage({"vellix"}), std::nullopt);
  EXPECT_EQ(usage({}), std::nullopt);
  EXPECT_EQ(usage({"vellix", "--shot", "a.png", "--dark", "sorel://signed-in"}), std::nullopt);
  EXPECT_EQ(usage({"vellix", "--versions", "-version", "--HELP", "-h", "help"}), std::nullopt);
}

TEST(Usage, TellsVersionAndBuildInOneLine) {
  const std::string line =
      "Vellix " + API::shortVersion() + " (build " + std::to_string(API::buildNumber()) + ")\n";
  EXPECT_EQ(usage({"vellix", "--version"}), line);
  EXPECT_EQ(usage({"vellix", "--dark", "--version", "--shot"}), line);
}

TEST(Usage, TellsEachFlagInALineOfItsOwn) {
  const auto help = usage({"vellix", "--version", "--help"});
  ASSERT_TRUE(help);
  std::istringstream lines{*help};
  std::vector<std::string> told;
  for (std::string line; std::getline(lines, line);) {
    EXPECT_LE(line.size(), 100U) << line;
    if (line.starts_with("  --")) told.push_back(line);
  }
  ASSERT_EQ(told.size(), flags().size());
  for (std::size_t i = 0; i < told.size(); ++i) {
    const Flag& flag = flags()[i];
    const std::string start =
        "  " + std::string{flag.name} + (flag.value.empty() ? "" : " " + std::string{flag.value});
    EXPECT_TRUE(told[i].starts_with(start + "  ")) << told[i];
    EXPECT_TRUE(told[i].ends_with("  " + std::string{flag.effect})) << told[i];
  }
}

TEST(Usage, TellsNoFlagTwiceAndEachEffect) {
  std::set<std::string_view> names;
  for (const Flag& flag : flags()) {
    EXPECT_TRUE(flag.name.starts_with("--")) << flag.name;
    EXPECT_TRUE(names.insert(flag.name).second) << flag.name;
    EXPECT_FALSE(flag.effect.empty()) << flag.name;
  }
}

TEST(Usage, NamesThePanelsThatCanStandAlone) {
  const auto panel = std::ranges::find(flags(), "--panel", &Flag::name);
  ASSERT_NE(panel, flags().end());
  std::istringstream words{std::string{panel->effect.substr(panel->effect.find(':') + 1)}};
  std::size_t panels = 0;
  for (std::string word; words >> word;) {
    if (word == "or") continue;
    if (word.ends_with(',')) word.pop_back();
    EXPECT_EQ(panelAlone({"vellix", "--panel", word}), word);
    ++panels;
  }
  EXPECT_EQ(panels, 6U);
}

}  // namespace
}  // namespace vellix
