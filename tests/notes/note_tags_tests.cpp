// Tagging people: the menu, the chips and the list of addresses.
#include "notes/note_tags.hpp"

#include "notes/notes_test.hpp"

namespace vellix {
namespace {

using Tags = std::vector<std::string>;

class NoteTags : public NotesTest {
 protected:
  NoteTags() { show(); }

  void addUser(const std::string& email, const std::string& name) {
    store().board.edit([&](std::optional<BoardState>& board) {
      board->users.insert(board->users.begin(), Person{.email = email, .name = name});
    });
  }
};

TEST_F(NoteTags, OfferEverybodyElseInTheOrderOfTheBoard) {
  addUser("zed@tessarine.example", "Zed van der Berg");
  const auto entries = tagEntries(store(), {});
  ASSERT_EQ(entries.size(), 2U);
  EXPECT_EQ(entries[0], (TagEntryView{"zed@tessarine.example", "Zed", false, "Tag Zed", true}));
  EXPECT_EQ(entries[1], (TagEntryView{kJorvas, "Jorvas", false, "Tag Jorvas", true}));
}

TEST_F(NoteTags, CheckWhoIsTagged) {
  const auto entries = tagEntries(store(), {"gone@tessarine.example", kJorvas});
  ASSERT_EQ(entries.size(), 1U);
  EXPECT_EQ(entries[0], (TagEntryView{kJorvas, "Jorvas", true, "Tagged", true}));
}

TEST_F(NoteTags, CallWhoHasNoNameByTheAddress) {
  addUser("zed@tessarine.example", "");
  EXPECT_EQ(tagEntries(store(), {})[0].text, "zed@tessarine.example");
}

TEST_F(NoteTags, OfferNobodyWithoutABoard) {
  store().board.set(std::nullopt);
  EXPECT_TRUE(tagEntries(store(), {}).empty());
}

TEST_F(NoteTags, ShowOneChipAnAddressInOrder) {
  const auto chips = tagChips(store(), {"gone@tessarine.example", kJorvas, kRenny});
  EXPECT_EQ(chips,
            (std::vector<TagChipView>{{"gone@tessarine.example", "gone@tessarine.example", ""},
                                      {kJorvas, "Jorvas Lind", "#1a84f0"},
                                      {kRenny, "Renny Vale", ""}}));
  EXPECT_TRUE(tagChips(store(), {}).empty());
}

TEST_F(NoteTags, AppendAPersonOrTakeTheOneAwayWhereverItStands) {
  struct Case {
    Tags before;
    std::string pressed;
    Tags after;
  };
  for (const auto& each :
       {Case{{}, "a", {"a"}}, Case{{"b"}, "a", {"b", "a"}}, Case{{"a", "b", "c"}, "b", {"a", "c"}},
        Case{{"a", "b", "a"}, "a", {"b"}}}) {
    EXPECT_EQ(withTagPressed(each.before, each.pressed), each.after);
  }
}

}  // namespace
}  // namespace vellix
