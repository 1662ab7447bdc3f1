#include "update/rename.hpp"

#include <gmock/gmock.h>

#include "update/scripts.hpp"
#include "update/update_fakes.hpp"

namespace vellix {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kScript = "/tmp/of me/vellix-rename.sh";

bool renames(UpdateDesk& desk, const RunningCopy& copy) {
  return renameIfNeeded(copy, desk.tools, desk.files,
                        [&desk] { desk.asked.push_back("terminate"); });
}

TEST(Rename, IsHandedToTheScriptUnderTheEarlierName) {
  UpdateDesk desk;
  EXPECT_TRUE(renames(desk, UpdateDesk::copyAt("/My Programs/Sorel.app")));
  EXPECT_THAT(desk.asked, ElementsAre("write /tmp/of me/vellix-rename.sh",
                                      "let go: /bin/sh /tmp/of me/vellix-rename.sh", "terminate"));
  EXPECT_EQ(desk.files.written[kScript], renameScript({.process = 4242,
                                                       .build = 41,
                                                       .old = "/My Programs/Sorel.app",
                                                       .renamed = "/My Programs/Vellix.app"}));
}

TEST(Rename, LeavesEveryOtherCopyAlone) {
  UpdateDesk desk;
  auto stranger = UpdateDesk::copyAt("/Applications/Sorel.app");
  stranger.identifier = "com.rennyvale.Sorel.dev";
  auto nameless = UpdateDesk::copyAt("/Applications/Sorel.app");
  nameless.identifier = std::nullopt;
  for (const auto& copy :
       {UpdateDesk::copyAt("/Applications/Vellix.app"), UpdateDesk::copyAt("/A/Sorel.app.old"),
        UpdateDesk::copyAt("/A/sorel.app"), UpdateDesk::copyAt(""), stranger, nameless}) {
    EXPECT_FALSE(renames(desk, copy)) << copy.bundle;
  }
  EXPECT_THAT(desk.asked, IsEmpty());
}

TEST(Rename, GoesOnUnderTheEarlierNameWhereNothingCanBeWritten) {
  UpdateDesk desk;
  desk.files.readOnly = {"/Applications"};
  EXPECT_FALSE(renames(desk, UpdateDesk::copyAt("/Applications/Sorel.app")));
  EXPECT_THAT(desk.asked, IsEmpty());
}

TEST(Rename, GoesOnWhereTheScriptCouldNotBearThePath) {
  UpdateDesk desk;
  EXPECT_FALSE(renames(desk, UpdateDesk::copyAt("/$HOME/Sorel.app")));
  EXPECT_THAT(desk.asked, IsEmpty());
}

TEST(Rename, GoesOnWithoutAScript) {
  UpdateDesk desk;
  desk.files.takesScripts = false;
  EXPECT_FALSE(renames(desk, UpdateDesk::copyAt("/Applications/Sorel.app")));
  EXPECT_THAT(desk.asked, ElementsAre("write /tmp/of me/vellix-rename.sh"));
}

TEST(Rename, GoesOnWithoutAShell) {
  UpdateDesk desk;
  desk.tools.startable = false;
  EXPECT_FALSE(renames(desk, UpdateDesk::copyAt("/Applications/Sorel.app")));
  EXPECT_THAT(desk.asked, ElementsAre("write /tmp/of me/vellix-rename.sh"));
}

}  // namespace
}  // namespace vellix
