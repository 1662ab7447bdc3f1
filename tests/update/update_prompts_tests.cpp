#include "update/update_prompts.hpp"

#include <gmock/gmock.h>

#include "update/update_fakes.hpp"

namespace vellix {
namespace {

using Kind = Updater::Phase::Kind;

VersionInfo version(std::optional<std::string> notes, std::optional<Int> least = std::nullopt) {
  auto version = UpdateDesk::build42();
  version.notes = std::move(notes);
  version.min_build = least;
  return version;
}

TEST(UpdatePrompts, AreNotThereWithoutANewerBuild) {
  UpdateDesk desk;
  EXPECT_EQ(updateBar(*desk.updater), UpdateBarView{});
  EXPECT_EQ(requiredUpdate(*desk.updater), RequiredUpdateView{});
}

TEST(UpdateBarView, OffersANewerBuild) {
  UpdateDesk desk;
  desk.learn(version("Faster pages."));
  EXPECT_EQ(updateBar(*desk.updater), (UpdateBarView{.open = true,
                                                     .symbol = "arrow.down.circle.fill",
                                                     .text = "Vellix 1.3 (42) is ready.",
                                                     .notes = "Faster pages.",
                                                     .step = {.updatable = true},
                                                     .postponable = true}));
  EXPECT_FALSE(requiredUpdate(*desk.updater).open);
}

TEST(UpdateBarView, ShowsNoNotesWithoutWords) {
  for (const auto& notes : {std::optional<std::string>{}, std::optional<std::string>{""},
                            std::optional<std::string>{" \n"}}) {
    UpdateDesk desk;
    desk.learn(version(notes));
    EXPECT_EQ(updateBar(*desk.updater).notes, "");
  }
}

TEST(UpdateBarView, CannotBePutOffWhenTheBuildIsRequired) {
  UpdateDesk desk;
  desk.learn(version(std::nullopt));
  desk.updater->snooze();
  desk.learn(version("Faster pages.", 42));
  EXPECT_EQ(updateBar(*desk.updater), (UpdateBarView{.open = true,
                                                     .symbol = "arrow.down.circle.fill",
                                                     .text = "Update Vellix to keep going.",
                                                     .notes = "Faster pages.",
                                                     .step = {.updatable = true}}));
}

TEST(UpdateBarView, IsGoneWhileSnoozed) {
  UpdateDesk desk;
  desk.learn(version(std::nullopt));
  desk.updater->snooze();
  EXPECT_EQ(updateBar(*desk.updater), UpdateBarView{});
}

TEST(UpdateBarView, StaysThroughASnoozeOnceSomethingIsUnderWay) {
  UpdateDesk desk;
  desk.learn(version("Faster pages."));
  desk.updater->phase.set({Kind::working, "Downloading Vellix 1.3 (42)…"});
  desk.updater->snooze();
  EXPECT_EQ(updateBar(*desk.updater),
            (UpdateBarView{.open = true,
                           .text = "Downloading Vellix 1.3 (42)…",
                           .step = {.working = true, .text = "Downloading Vellix 1.3 (42)…"}}));
}

TEST(UpdateBarView, OffersWhatFailedOnceMore) {
  UpdateDesk desk;
  desk.learn(version("Faster pages."));
  desk.updater->phase.set({Kind::failed, "It didn't."});
  desk.updater->snooze();
  EXPECT_EQ(updateBar(*desk.updater),
            (UpdateBarView{.open = true,
                           .symbol = "exclamationmark.triangle.fill",
                           .text = "It didn't.",
                           .step = {.text = "It didn't.", .repeatable = true}}));
}

TEST(RequiredUpdateView, StandsInFrontWithWhatCanBeDone) {
  UpdateDesk desk;
  desk.learn(version(std::nullopt, 42));
  const std::string line =
      "Vellix 1.3 (42) is out, and this copy is too old to keep going. It takes about a minute and "
      "reopens by itself.";
  EXPECT_EQ(requiredUpdate(*desk.updater),
            (RequiredUpdateView{.open = true, .line = line, .step = {.updatable = true}}));
  desk.updater->phase.set({Kind::working, "Installing."});
  EXPECT_EQ(requiredUpdate(*desk.updater).step,
            (UpdateStepView{.working = true, .text = "Installing."}));
  desk.updater->phase.set({Kind::failed, "It didn't."});
  EXPECT_EQ(requiredUpdate(*desk.updater).step,
            (UpdateStepView{.text = "It didn't.", .repeatable = true}));
}

}  // namespace
}  // namespace vellix
