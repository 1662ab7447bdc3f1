// The head of a person's page, and where its figures come from.
#include "profile/profile_page.hpp"

#include "profile/profile_test.hpp"

namespace vellix {
namespace {

class ProfilePage : public ProfileTest {
 protected:
  ProfileHeadView head(const std::string& email = kJorvas) {
    return profileHead(store(), email, desk.time.now());
  }
};

TEST_F(ProfilePage, TellsWhoseItIs) {
  board.users[1].color = "#1a84f0";
  board.users[1].photo = "b7";
  publish();
  EXPECT_EQ(head().email, kJorvas);
  EXPECT_EQ(head().name, "Jorvas Lind");
  EXPECT_EQ(head().avatar.color, "#1a84f0");
  EXPECT_EQ(head().avatar.photo, "b7");
  EXPECT_EQ(head(kRenny).name, "Renny Vale") << "by name also to oneself";
}

struct HereCase {
  const char* name;
  std::optional<double> ago;  // milliseconds
  bool here;
};
BOOST_DESCRIBE_STRUCT(HereCase, (), (name, ago, here))

class ProfilePresence : public ProfilePage, public testing::WithParamInterface<HereCase> {};

TEST_P(ProfilePresence, LastsTwelveMinutes) {
  for (Person& person : board.users) {
    if (GetParam().ago) person.last_seen = now() - *GetParam().ago;
  }
  publish();
  const PillView pill{.text = "In Vellix now", .icon = "circle.fill", .tone = "green"};
  const auto told = GetParam().here ? std::optional{pill} : std::nullopt;
  EXPECT_EQ(head().here, told);
  EXPECT_EQ(head(kRenny).here, told) << "the signed-in person too";
}

INSTANTIATE_TEST_SUITE_P(All, ProfilePresence,
                         testing::Values(HereCase{"Now", 0, true},
                                         HereCase{"JustWithin", 719'999, true},
                                         HereCase{"TwelveMinutes", 720'000, false},
                                         HereCase{"LongAgo", 9e9, false},
                                         HereCase{"Never", std::nullopt, false},
                                         HereCase{"ByAClockThatIsAhead", -60'000, true},
                                         HereCase{"NoNumber", kNaN, false}),
                         [](const auto& each) { return each.param.name; });

TEST_F(ProfilePage, OffersAPhotoOnOnesOwnAlone) {
  EXPECT_EQ(head(kRenny).changePhoto, "Change my photo");
  EXPECT_EQ(head().changePhoto, "");
  EXPECT_FALSE(head(kRenny).changing);
  store().busy.set({"photo"});
  EXPECT_TRUE(head(kRenny).changing);
}

TEST_F(ProfilePage, GoesByTheAddressOfWhoHasLeft) {
  board.users[1].last_seen = now();
  board.users[1].color = "#1a84f0";
  publish();
  ASSERT_TRUE(head().here);
  board.users.pop_back();
  publish();
  EXPECT_EQ(head().name, kJorvas);
  EXPECT_EQ(head().avatar, avatarOf(kJorvas, store()));
  EXPECT_EQ(head().avatar.letter, "j");
  EXPECT_EQ(head().avatar.color, "");
  EXPECT_EQ(head().here, std::nullopt);
  EXPECT_EQ(head().changePhoto, "");
}

TEST_F(ProfilePage, GoesByTheAddressWithoutAName) {
  board.users[1].name = " ";
  publish();
  EXPECT_EQ(head().name, kJorvas);
}

TEST_F(ProfilePage, GoesByTheAddressWithoutABoard) {
  store().board.set(std::nullopt);
  EXPECT_EQ(head(kRenny).name, kRenny);
  EXPECT_EQ(head(kRenny).changePhoto, "") << "nobody is signed in";
  EXPECT_EQ(head(kRenny).here, std::nullopt);
}

TEST_F(ProfilePage, AddsUpUntilThereAreFigures) {
  EXPECT_EQ(head().adding, "Adding it up…");
  EXPECT_EQ(figuresOf(store(), kJorvas), nullptr);
  store().stats.set(Stats{.at = 1, .users = {{kRenny, {.reviewed = 4}}}});
  EXPECT_EQ(head().adding, "Adding it up…") << "none of this person";
  EXPECT_EQ(figuresOf(store(), kJorvas), nullptr);
  EXPECT_EQ(head(kRenny).adding, "");
  ASSERT_NE(figuresOf(store(), kRenny), nullptr);
  EXPECT_EQ(figuresOf(store(), kRenny)->reviewed, 4);
}

TEST_F(ProfilePage, AddsUpUntilThereIsABoard) {
  store().stats.set(Stats{.at = 1, .users = {{kRenny, {.reviewed = 4}}}});
  store().board.set(std::nullopt);
  EXPECT_EQ(head(kRenny).adding, "Adding it up…") << "nobody knows what is open";
}

TEST_F(ProfilePage, KeepsTheFiguresOfWhoHasLeft) {
  store().stats.set(Stats{.at = 1, .users = {{kJorvas, {.reviewed = 4}}}});
  board.users.pop_back();
  publish();
  EXPECT_EQ(head().adding, "");
  EXPECT_NE(figuresOf(store(), kJorvas), nullptr);
}

struct InkCase {
  const char* name;
  const char* color;
  const char* ink;
};
BOOST_DESCRIBE_STRUCT(InkCase, (), (name, color, ink))

class ProfileInk : public ProfilePage, public testing::WithParamInterface<InkCase> {};

TEST_P(ProfileInk, IsReadOnTheColourOfThePage) {
  board.users[1].color = GetParam().color;
  publish();
  EXPECT_EQ(head().ink, GetParam().ink);
}

INSTANTIATE_TEST_SUITE_P(
    All, ProfileInk,
    testing::Values(InkCase{"Dark", "#000000", "#ffffff"}, InkCase{"Light", "#FFFFFF", "#1d1917"},
                    InkCase{"Purple", "#7442e8", "#ffffff"}, InkCase{"Blue", "#1a84f0", "#ffffff"},
                    InkCase{"Orange", "#e07a2c", "#ffffff"},
                    InkCase{"Yellow", "#ffe14d", "#1d1917"}, InkCase{"Lime", "#9be83a", "#1d1917"},
                    InkCase{"None", "", ""}, InkCase{"NoColour", "red", ""}),
    [](const auto& each) { return each.param.name; });

}  // namespace
}  // namespace vellix
