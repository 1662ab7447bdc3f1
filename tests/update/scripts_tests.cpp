#include "update/scripts.hpp"

#include <gtest/gtest.h>

namespace vellix {
namespace {

TEST(SwapScript, HoldsTheseLines) {
  EXPECT_EQ(swapScript({.process = 4242,
                        .current = "/Applications/Sorel.app",
                        .target = "/Applications/Vellix.app",
                        .fresh = "/Users/renny/Library/Caches/SorelUpdate/Vellix.app"}),
            R"(#!/bin/sh
while kill -0 4242 2>/dev/null; do sleep 0.2; done
rm -rf "/Applications/Vellix.app.old"
[ -e "/Applications/Vellix.app" ] && mv "/Applications/Vellix.app" "/Applications/Vellix.app.old"
if /usr/bin/ditto "/Users/renny/Library/Caches/SorelUpdate/Vellix.app" "/Applications/Vellix.app"; then
  rm -rf "/Applications/Vellix.app.old"
  [ "/Applications/Sorel.app" != "/Applications/Vellix.app" ] && rm -rf "/Applications/Sorel.app"
else
  rm -rf "/Applications/Vellix.app"; [ -e "/Applications/Vellix.app.old" ] && mv "/Applications/Vellix.app.old" "/Applications/Vellix.app"
fi
/usr/bin/xattr -dr com.apple.quarantine "/Applications/Vellix.app" 2>/dev/null
if [ -e "/Applications/Vellix.app" ]; then /usr/bin/open "/Applications/Vellix.app"; else /usr/bin/open "/Applications/Sorel.app"; fi)");
}

TEST(RenameScript, HoldsTheseLines) {
  EXPECT_EQ(renameScript({.process = 77,
                          .build = 41,
                          .old = "/Applications/Sorel.app",
                          .renamed = "/Applications/Vellix.app"}),
            R"(#!/bin/sh
while kill -0 77 2>/dev/null; do sleep 0.2; done
if [ -e "/Applications/Vellix.app" ]; then
  theirs=$(/usr/libexec/PlistBuddy -c "Print CFBundleVersion" "/Applications/Vellix.app/Contents/Info.plist" 2>/dev/null || echo 0)
  if [ "$theirs" -lt 41 ]; then rm -rf "/Applications/Vellix.app" && mv "/Applications/Sorel.app" "/Applications/Vellix.app"; else rm -rf "/Applications/Sorel.app"; fi
else
  mv "/Applications/Sorel.app" "/Applications/Vellix.app"
fi
/usr/bin/open "/Applications/Vellix.app")");
}

TEST(Scripts, TakePathsThatMeanNothingElseToTheShell) {
  for (const char* path : {"/Applications/Vellix.app", "/My Programs/it's (new)!/Vellix.app",
                           "/Ünicode/校正/Vellix.app", "/a;b&c|d*e?f~/Vellix.app"}) {
    EXPECT_TRUE(scriptsBear(path)) << path;
  }
  for (const char* path : {"/$HOME/Vellix.app", "/a`b`/Vellix.app", "/a\"b/Vellix.app",
                           "/a\\b/Vellix.app", "/a\nb/Vellix.app", "Vellix.app", ""}) {
    EXPECT_FALSE(scriptsBear(path)) << path;
  }
}

}  // namespace
}  // namespace vellix
