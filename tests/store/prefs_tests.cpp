#include <gtest/gtest.h>

#include "store/prefs.hpp"
#include "support/fakes.hpp"
#include "support/virtual_time.hpp"

namespace vellix {
namespace {

struct Settings {
  VirtualTime time;
  FakeDefaults defaults;
};

struct FlagCase {
  const char* key;
  Prefs::Setting<bool> Prefs::* setting;
};
BOOST_DESCRIBE_STRUCT(FlagCase, (), (key))

class FlagSettings : public testing::TestWithParam<FlagCase>, protected Settings {
 protected:
  Prefs::Setting<bool>& in(Prefs& prefs) { return prefs.*GetParam().setting; }
};

TEST_P(FlagSettings, AreOnAtAFirstStart) {
  Prefs prefs{time, defaults};
  EXPECT_TRUE(in(prefs)());
  EXPECT_TRUE(defaults.flags.empty()) << "reading stores nothing";
}

TEST_P(FlagSettings, AreStoredAtOnceUnderTheirKeyAlone) {
  Prefs prefs{time, defaults};
  in(prefs).set(false);
  EXPECT_FALSE(in(prefs)());
  EXPECT_EQ(defaults.flags, (std::map<std::string, bool>{{GetParam().key, false}}));
  EXPECT_TRUE(defaults.texts.empty());
  in(prefs).set(true);
  EXPECT_EQ(defaults.flags, (std::map<std::string, bool>{{GetParam().key, true}}));
}

TEST_P(FlagSettings, StayOffAfterARestart) {
  {
    Prefs prefs{time, defaults};
    in(prefs).set(false);
  }
  Prefs prefs{time, defaults};
  EXPECT_FALSE(in(prefs)());
}

TEST_P(FlagSettings, TellTheirObservers) {
  Prefs prefs{time, defaults};
  int told = 0;
  const auto watching = prefs.changes.observe(Prefs::kAny, [&] { ++told; });
  in(prefs).set(true);
  time.run();
  EXPECT_EQ(told, 0) << "an equal value is no change";
  in(prefs).set(false);
  EXPECT_EQ(told, 0);
  time.run();
  EXPECT_EQ(told, 1);
}

INSTANTIATE_TEST_SUITE_P(All, FlagSettings,
                         testing::Values(FlagCase{"DrawToComment", &Prefs::drawToComment},
                                         FlagCase{"ShowPageStrip", &Prefs::showPageStrip},
                                         FlagCase{"ShowNotes", &Prefs::showNotes},
                                         FlagCase{"OpenLoupe", &Prefs::openLoupe},
                                         FlagCase{"FoldDecided", &Prefs::foldDecided},
                                         FlagCase{"FoldReviewed", &Prefs::foldReviewed},
                                         FlagCase{"AutoAdvance", &Prefs::autoAdvance},
                                         FlagCase{"ShowPassed", &Prefs::showPassed},
                                         FlagCase{"LiveToasts", &Prefs::liveToasts},
                                         FlagCase{"DockBadge", &Prefs::dockBadge}),
                         [](const auto& each) { return each.param.key; });

struct WordCase {
  const char* key;
  Prefs::Setting<std::string> Prefs::* setting;
  const char* byDefault;
};
BOOST_DESCRIBE_STRUCT(WordCase, (), (key, byDefault))

class WordSettings : public testing::TestWithParam<WordCase>, protected Settings {
 protected:
  Prefs::Setting<std::string>& in(Prefs& prefs) { return prefs.*GetParam().setting; }
};

TEST_P(WordSettings, HaveTheirDefaultAtAFirstStart) {
  Prefs prefs{time, defaults};
  EXPECT_EQ(in(prefs)(), GetParam().byDefault);
  EXPECT_TRUE(defaults.texts.empty());
}

TEST_P(WordSettings, AreStoredAtOnceAndKeptOverARestart) {
  Prefs prefs{time, defaults};
  in(prefs).set("dark");
  EXPECT_EQ(defaults.texts, (std::map<std::string, std::string>{{GetParam().key, "dark"}}));
  Prefs again{time, defaults};
  EXPECT_EQ(in(again)(), "dark");
}

TEST_P(WordSettings, OfAnUnknownWordAreKeptAsTheyStand) {
  for (const char* text : {"sepia", "", "Dark", "\xff"}) {
    defaults.texts[GetParam().key] = text;
    Prefs prefs{time, defaults};
    EXPECT_EQ(in(prefs)(), text);
    EXPECT_EQ(defaults.texts[GetParam().key], text);
  }
}

TEST_P(WordSettings, TellTheirObservers) {
  Prefs prefs{time, defaults};
  int told = 0;
  const auto watching = prefs.changes.observe(Prefs::kAny, [&] { ++told; });
  in(prefs).set("light");
  time.run();
  EXPECT_EQ(told, 1);
}

INSTANTIATE_TEST_SUITE_P(All, WordSettings,
                         testing::Values(WordCase{"Appearance", &Prefs::appearance, "system"},
                                         WordCase{"AfterApproval", &Prefs::afterApproval,
                                                  "notion"}),
                         [](const auto& each) { return each.param.key; });

}  // namespace
}  // namespace vellix
