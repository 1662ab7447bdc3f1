// The settings as they are shown and set.
#include "shell/settings.hpp"

#include <gtest/gtest.h>

#include "support/fakes.hpp"
#include "support/virtual_time.hpp"

namespace vellix {
namespace {

class Settings : public testing::Test {
 protected:
  VirtualTime time;
  FakeDefaults defaults;

  std::vector<std::string> lines(const Prefs& prefs) {
    std::vector<std::string> all;
    for (const auto& section : settingsView(prefs).sections) {
      all.push_back("[" + section.title + "]");
      for (const auto& toggle : section.toggles) {
        all.push_back((toggle.on ? "on  " : "off ") + toggle.label);
      }
    }
    return all;
  }
};

TEST_F(Settings, AreAllOnAtFirst) {
  const Prefs prefs{time, defaults};
  EXPECT_EQ(lines(prefs), (std::vector<std::string>{
                              "[Reviewing]",
                              "on  Click or drag on a page to leave a note",
                              "on  Show the page strip",
                              "on  Show the notes panel",
                              "on  Zoom in on a finding when I pick it",
                              "[Tidying up]",
                              "on  Fold findings once they're marked Real issue or Fine",
                              "on  Show checks that passed",
                              "on  Fold reviewed tickets into their own group",
                              "on  Open the next ticket after Mark reviewed",
                              "[Heads-ups]",
                              "on  Tell me when the other person does something",
                              "on  Show my open tickets on the Dock icon",
                          }));
  EXPECT_TRUE(defaults.flags.empty()) << "showing them writes nothing";
}

TEST_F(Settings, SayWhenTheyCannotBeKept) {
  Prefs prefs{time, defaults};
  EXPECT_EQ(settingsView(prefs).trouble, "");
  defaults.canWrite = false;
  EXPECT_EQ(settingsView(prefs).trouble, "These can't be saved here. They hold until you quit.");
}

TEST_F(Settings, OfferThreeAppearances) {
  const Prefs prefs{time, defaults};
  EXPECT_EQ(
      settingsView(prefs).appearances,
      (std::vector<ChoiceView>{{"system", "Match the Mac"}, {"light", "Light"}, {"dark", "Dark"}}));
  EXPECT_EQ(settingsView(prefs).appearance, "system");
}

TEST_F(Settings, TakeAnUnknownAppearanceAsTheSystemsAndKeepIt) {
  for (const char* known : {"light", "dark"}) {
    defaults.texts["Appearance"] = known;
    EXPECT_EQ(appearanceOf(Prefs{time, defaults}), known);
  }
  for (const char* unknown : {"system", "", "Dark", "sepia"}) {
    defaults.texts["Appearance"] = unknown;
    const Prefs prefs{time, defaults};
    EXPECT_EQ(appearanceOf(prefs), "system") << unknown;
    EXPECT_EQ(prefs.appearance(), unknown);
    EXPECT_EQ(defaults.texts["Appearance"], unknown);
  }
}

struct Kept {
  const char* key;
  const char* stored;
};
BOOST_DESCRIBE_STRUCT(Kept, (), (key, stored))

class EachSetting : public Settings, public testing::WithParamInterface<Kept> {};

TEST_P(EachSetting, IsKeptAloneTheMomentItChanges) {
  Prefs prefs{time, defaults};
  const auto before = lines(prefs);
  setToggle(prefs, GetParam().key, false);
  EXPECT_EQ(defaults.flags, (std::map<std::string, bool>{{GetParam().stored, false}}));
  const auto after = lines(Prefs{time, defaults});
  int changed = 0;
  for (std::size_t i = 0; i < after.size(); ++i) changed += after[i] != before[i] ? 1 : 0;
  EXPECT_EQ(changed, 1);
  setToggle(prefs, GetParam().key, true);
  EXPECT_EQ(lines(prefs), before);
}

INSTANTIATE_TEST_SUITE_P(
    All, EachSetting,
    testing::Values(Kept{"drawToComment", "DrawToComment"}, Kept{"showPageStrip", "ShowPageStrip"},
                    Kept{"showNotes", "ShowNotes"}, Kept{"openLoupe", "OpenLoupe"},
                    Kept{"foldDecided", "FoldDecided"}, Kept{"showPassed", "ShowPassed"},
                    Kept{"foldReviewed", "FoldReviewed"}, Kept{"autoAdvance", "AutoAdvance"},
                    Kept{"liveToasts", "LiveToasts"}, Kept{"dockBadge", "DockBadge"}),
    [](const auto& each) { return std::string{each.param.stored}; });

TEST_F(Settings, AnUnknownKeyChangesNothing) {
  Prefs prefs{time, defaults};
  setToggle(prefs, "nonsense", false);
  EXPECT_TRUE(defaults.flags.empty());
}

}  // namespace
}  // namespace vellix
