#include "pieces/avatar.hpp"

#include <gtest/gtest.h>

#include "support/desk.hpp"

namespace vellix {
namespace {

constexpr const char* kRenny = "renny@tessarine.example";

class Avatars : public testing::Test {
 protected:
  Desk desk;

  AvatarView show(const std::optional<std::string>& email) { return avatarOf(email, desk.store()); }
  AvatarView show(const Person& person) {
    BoardState board = boardOf({});
    board.users = {person};
    desk.store().board.set(board);
    return show(person.email);
  }
};

struct Color {
  const char* name;
  std::optional<std::string> text;
  const char* color;
};
BOOST_DESCRIBE_STRUCT(Color, (), (name, text, color))

class AvatarColors : public Avatars, public testing::WithParamInterface<Color> {};

TEST_P(AvatarColors, AreReadFromSevenCharacters) {
  EXPECT_EQ(show({.email = kRenny, .name = "Renny", .color = GetParam().text}).color,
            GetParam().color);
}

INSTANTIATE_TEST_SUITE_P(
    All, AvatarColors,
    testing::Values(Color{"Red", "#ff0000", "#ff0000"}, Color{"Capitals", "#7AB2E8", "#7AB2E8"},
                    Color{"AnyFirstCharacter", "x00ff00", "#00ff00"},
                    Color{"AnyFirstLetter", "é00ff00", "#00ff00"},
                    Color{"ABlankInFront", " 00ff00", "#00ff00"},
                    Color{"SixCharacters", "ff0000", ""}, Color{"EightCharacters", "#ff0000f", ""},
                    Color{"EightWithALetter", "##é00ff0", ""}, Color{"TwoInFront", "#é00ff00", ""},
                    Color{"NoDigit", "#ff00g0", ""}, Color{"ASign", "#+ff000", ""},
                    Color{"ABlankInside", "# ff000", ""}, Color{"Short", "#fff", ""},
                    Color{"Empty", "", ""}, Color{"None", std::nullopt, ""}),
    [](const auto& each) { return each.param.name; });

struct Letter {
  const char* name;
  std::optional<std::string> email;
  const char* letter;
  const char* help;
};
BOOST_DESCRIBE_STRUCT(Letter, (), (name, email, letter, help))

class AvatarLetters : public Avatars, public testing::WithParamInterface<Letter> {
 protected:
  AvatarLetters() {
    BoardState board = boardOf({});
    board.users = {{.email = kRenny, .name = "Renny Vale"},
                   {.email = "blanks@x.example", .name = "  Iris  Moor"},
                   {.email = "accent@x.example", .name = "Åsa Berg"},
                   {.email = "joined@x.example", .name = "A\u030Asa Berg"},
                   {.email = "nameless@x.example", .name = ""},
                   {.email = "both@x.example", .name = "Zoe"}};
    board.approvers = {{{.email = "mira@x.example", .name = "Ada Sol"},
                        {.email = "tomas@x.example"},
                        {.email = "unnamed@x.example", .name = ""},
                        {.email = "both@x.example", .name = "Adam"}}};
    board.guests = {{{.email = "agnes@x.example", .name = "holt"},
                     {.email = "mira@x.example", .name = "Mira"}}};
    desk.store().board.set(board);
  }
};

TEST_P(AvatarLetters, FollowTheFirstNameThatIsKnown) {
  const auto view = show(GetParam().email);
  EXPECT_EQ(view.letter, GetParam().letter);
  EXPECT_EQ(view.help, GetParam().help);
}

INSTANTIATE_TEST_SUITE_P(
    All, AvatarLetters,
    testing::Values(Letter{"APerson", kRenny, "R", "Renny Vale"},
                    Letter{"BlanksInFront", "blanks@x.example", "I", "  Iris  Moor"},
                    Letter{"ALetterOfTwoBytes", "accent@x.example", "Å", "Åsa Berg"},
                    Letter{"AnAccentBehindItsLetter", "joined@x.example", "A\u030A",
                           "A\u030Asa Berg"},
                    Letter{"APersonWithoutName", "nameless@x.example", "n", "nameless@x.example"},
                    Letter{"APersonBeforeAnApprover", "both@x.example", "Z", "Zoe"},
                    Letter{"AnApprover", "mira@x.example", "A", "mira@x.example"},
                    Letter{"AnApproverWithoutName", "tomas@x.example", "t", "tomas@x.example"},
                    Letter{"AnApproverOfEmptyName", "unnamed@x.example", "u", "unnamed@x.example"},
                    Letter{"AGuest", "agnes@x.example", "h", "agnes@x.example"},
                    Letter{"SomebodyUnknown", "quinn@x.example", "q", "quinn@x.example"},
                    Letter{"AnEmptyAddress", "", "?", "Claude"},
                    Letter{"TheWorker", std::nullopt, "?", "Claude"}),
    [](const auto& each) { return each.param.name; });

TEST_F(Avatars, CarryThePhoto) {
  EXPECT_EQ(show({.email = kRenny, .name = "Renny", .photo = "photos/1.jpg"}).photo,
            "photos/1.jpg");
  EXPECT_EQ(show({.email = kRenny, .name = "Renny"}).photo, "");
}

TEST_F(Avatars, StandWithoutABoard) {
  EXPECT_EQ(show(kRenny), (AvatarView{.letter = "r", .help = kRenny}));
  EXPECT_EQ(show(std::nullopt), (AvatarView{.letter = "?", .help = "Claude"}));
}

TEST_F(Avatars, TakeTheFirstOfTwoPeopleOfOneAddress) {
  BoardState board = boardOf({});
  board.users = {{.email = kRenny, .name = "Renny"}, {.email = kRenny, .name = "Other"}};
  desk.store().board.set(board);
  EXPECT_EQ(show(kRenny).help, "Renny");
}

}  // namespace
}  // namespace vellix
