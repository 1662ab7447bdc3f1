// Keys in words, on keyboards with the Mac's signs and on others.
#include "pieces/written_keys.hpp"

#include <gtest/gtest.h>

#include <boost/describe.hpp>

namespace vellix {
namespace {

struct WrittenKey {
  std::string given;
  std::string written;
};
BOOST_DESCRIBE_STRUCT(WrittenKey, (), (given, written))

class WrittenKeys : public testing::TestWithParam<WrittenKey> {};

TEST_P(WrittenKeys, AreNamedWhereCommandIsControl) {
  EXPECT_EQ(writtenKeys(GetParam().given, true), GetParam().written);
}

TEST_P(WrittenKeys, StandAsGivenWhereTheyAreOnTheKeyboard) {
  EXPECT_EQ(writtenKeys(GetParam().given, false), GetParam().given);
}

INSTANTIATE_TEST_SUITE_P(
    InWords, WrittenKeys,
    testing::Values(WrittenKey{"Refresh (⌘R)", "Refresh (Ctrl+R)"},
                    WrittenKey{"Settings (⌘,)", "Settings (Ctrl+,)"},
                    WrittenKey{"⌘↩ to post · Esc to cancel", "Ctrl+Return to post · Esc to cancel"},
                    WrittenKey{"Zoom (⌘+ and ⌘−, ⌘0 to fit, or pinch)",
                               "Zoom (Ctrl++ and Ctrl+-, Ctrl+0 to fit, or pinch)"},
                    WrittenKey{"Check supplier mail (⇧⌘S)", "Check supplier mail (Ctrl+Shift+S)"},
                    WrittenKey{"Hide the notes panel (⌥⌘I)", "Hide the notes panel (Ctrl+Alt+I)"},
                    WrittenKey{"⌥↑ and ⌥↓, ↑ alone", "Alt+Up and Alt+Down, ↑ alone"},
                    WrittenKey{"⌥⇧⌘X", "Ctrl+Alt+Shift+X"}, WrittenKey{"", ""},
                    // Signs that are no keys there.
                    WrittenKey{"Pages 3 − 7, ↩", "Pages 3 − 7, ↩"},
                    WrittenKey{"Größe – ä", "Größe – ä"}));

}  // namespace
}  // namespace vellix
