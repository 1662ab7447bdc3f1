#include "shell/sign_in_screen.hpp"

#include <gmock/gmock.h>

#include "store/store_test.hpp"

namespace vellix {
namespace {

constexpr const char* kNote =
    "Google opens on its own page. Sign in with your @tessarine.example account there.";
constexpr const char* kExchangeLine = "POST api/login/exchange";

TEST(SignInView, InvitesASignIn) {
  for (const bool waiting : {false, true}) {
    EXPECT_EQ(signInView(false, waiting), (SignInView{.button = "Sign in with Google"}));
  }
}

TEST(SignInView, TellsOfASignInUnderWay) {
  for (const bool waiting : {false, true}) {
    EXPECT_EQ(
        signInView(true, waiting),
        (SignInView{
            .working = true, .waiting = waiting, .button = "Opening Google…", .note = kNote}));
  }
}

constexpr const char* kBuiltIn = "proofs.tessarine.example";

TEST(ServiceNote, SaysWhichServiceIsUsedAndWhy) {
  EXPECT_EQ(serviceNote("127.0.0.1:9000", kBuiltIn),
            "ServerURL “127.0.0.1:9000” is not a full web address, so Vellix uses "
            "proofs.tessarine.example. Write it in full, like https://proofs.example.");
  for (const char* blank : {"", " ", "\t "}) {
    EXPECT_EQ(serviceNote(blank, kBuiltIn),
              "ServerURL is blank, so Vellix uses proofs.tessarine.example.");
  }
}

TEST(ServiceNote, ShowsOneShortLineOfIt) {
  std::string text = "a\nb";
  for (int i = 0; i < 100'000; ++i) text += "é";
  const auto note = serviceNote(text, kBuiltIn);
  EXPECT_TRUE(note.starts_with("ServerURL “a bé")) << note;
  EXPECT_NE(note.find("é…” is not"), std::string::npos) << note;
  EXPECT_LT(note.size(), 350U);
  const std::string fits(80, 'a');
  EXPECT_NE(serviceNote(fits, kBuiltIn).find("“" + fits + "”"), std::string::npos);
  EXPECT_NE(serviceNote(fits + "b", kBuiltIn).find("“" + fits + "…”"), std::string::npos);
}

class SignInScreens : public StoreTest {
 protected:
  SignInScreens() : StoreTest(std::nullopt), screen(store(), desk.api, desk.browser, desk.time) {
    serveBoard(boardOf({}));
    routes.set(kExchangeLine, answerOf(200, R"({"token":"fresh","me":{"email":"a","name":"b"}})"));
  }

  SignInScreen screen;

  void press() {
    screen.press();
    desk.time.run();
  }
  void open(const std::string& url = "sorel://signed-in?code=abc") {
    store().open(url);
    desk.time.run();
  }
  bool working() { return screen.view().working; }
  bool waiting() { return screen.view().waiting; }
};

TEST_F(SignInScreens, WaitForTheBrowserOnceAButtonIsPressed) {
  EXPECT_FALSE(working());
  int told = 0;
  const auto observed = screen.changes.observe(1, [&] { ++told; });
  press();
  EXPECT_TRUE(working());
  EXPECT_TRUE(waiting());
  EXPECT_GT(told, 0);
  EXPECT_EQ(desk.opener.opened.size(), 1U);
}

TEST_F(SignInScreens, StartNoSecondSignInWhileOneIsUnderWay) {
  press();
  press();
  EXPECT_EQ(desk.opener.opened.size(), 1U);
  routes.leaveOpen(kExchangeLine);
  open();
  EXPECT_TRUE(working());
  EXPECT_FALSE(waiting());
  press();
  EXPECT_EQ(desk.opener.opened.size(), 1U);
}

TEST_F(SignInScreens, GoOnWithTheUrlThatComesBack) {
  press();
  open();
  EXPECT_TRUE(store().signedIn());
  EXPECT_TRUE(store().board());
  EXPECT_TRUE(store().looping());
  EXPECT_FALSE(store().toast());
  EXPECT_FALSE(working());
  EXPECT_FALSE(waiting());
  EXPECT_EQ(desk.http.count(kExchangeLine), 1U);
}

TEST_F(SignInScreens, GoBackSilentlyWhenTheBrowserIsCalledOff) {
  press();
  screen.cancel();
  desk.time.run();
  EXPECT_FALSE(working());
  EXPECT_FALSE(waiting());
  EXPECT_FALSE(store().toast());
  press();
  EXPECT_TRUE(waiting()) << "and begin anew";
  EXPECT_EQ(desk.opener.opened.size(), 2U);
}

TEST_F(SignInScreens, GoBackWhenNoBrowserOpens) {
  desk.opener.works = false;
  press();
  EXPECT_FALSE(working());
  EXPECT_FALSE(waiting());
  EXPECT_EQ(desk.toastText(), "No browser opened. Choose a default browser, then try again.");
}

TEST_F(SignInScreens, GoBackWhenTheExchangeFails) {
  routes.set(kExchangeLine, answerOf(400, R"({"error":"Code used."})"));
  press();
  open();
  EXPECT_FALSE(working());
  EXPECT_EQ(desk.toastText(), "Code used.");
}

TEST_F(SignInScreens, OpenThePageAgain) {
  screen.openAgain();
  EXPECT_TRUE(desk.opener.opened.empty());
  press();
  screen.openAgain();
  EXPECT_EQ(desk.opener.opened.size(), 2U);
}

TEST_F(SignInScreens, StopWaitingWhenAKeyringsTokenComesLate) {
  press();
  desk.tokens.item = "late";
  store().resume();
  desk.time.run();
  EXPECT_FALSE(working());
  EXPECT_FALSE(waiting());
  EXPECT_TRUE(store().signedIn());
  EXPECT_FALSE(store().toast());
  EXPECT_EQ(desk.api.token(), "late");
}

TEST_F(SignInScreens, AreFreeAgainAfterASignOutBeforeTheFirstBoard) {
  routes.leaveOpen(kStateLine);
  press();
  open();
  ASSERT_TRUE(store().signedIn());
  store().signOut(false);
  desk.time.run();
  EXPECT_FALSE(working());
  press();
  ASSERT_TRUE(working());
  // The first sign-in comes to its end, which is not the second one's.
  answer(1, std::unexpected(HttpError::notConnected));
  EXPECT_TRUE(working());
  EXPECT_TRUE(waiting());
}

TEST_F(SignInScreens, SayNothingOfTheServiceThatIsMeant) {
  EXPECT_EQ(screen.view().service, "");
  desk.defaults.texts["ServerURL"] = "http://127.0.0.1:9000";
  EXPECT_EQ(screen.view().service, "");
}

TEST_F(SignInScreens, SayWhichServiceStandsInForOneThatCannotBeUsed) {
  for (const char* text : {"127.0.0.1:9000", "proofs.example.com", "ftp://proofs.example.com",
                           "https://", "https://a b", ""}) {
    desk.defaults.texts["ServerURL"] = text;
    EXPECT_EQ(screen.view().service, serviceNote(text, kBuiltIn));
    press();
    EXPECT_EQ(screen.view().service, serviceNote(text, kBuiltIn)) << "while it works too";
    EXPECT_TRUE(desk.opener.opened.back().starts_with("https://proofs.tessarine.example/signin?"));
    screen.cancel();
    desk.time.run();
  }
}

TEST_F(SignInScreens, TakeKeysFromTheStart) {
  EXPECT_FALSE(screen.view().resting);
  EXPECT_FALSE(screen.view().sudden);
}

TEST_F(SignInScreens, RestWhenASessionEnds) {
  for (const bool expired : {true, false}) {
    press();
    open();
    ASSERT_TRUE(store().signedIn());
    EXPECT_FALSE(screen.view().resting);
    EXPECT_FALSE(screen.view().sudden);
    store().signOut(expired);
    desk.time.run();
    EXPECT_TRUE(screen.view().resting);
    desk.time.advance(Milliseconds{699});
    EXPECT_TRUE(screen.view().resting);
    desk.time.advance(Milliseconds{1});
    EXPECT_FALSE(screen.view().resting);
    EXPECT_TRUE(screen.view().sudden) << "until it goes";
  }
}

TEST_F(SignInScreens, RestForAsLongAsSomebodyTypes) {
  press();
  open();
  store().signOut(true);
  desk.time.run();
  for (int key = 0; key < 20; ++key) {
    desk.time.advance(Milliseconds{600});
    EXPECT_TRUE(screen.view().resting) << key;
    screen.touch();
  }
  desk.time.advance(Milliseconds{700});
  EXPECT_FALSE(screen.view().resting);
  screen.touch();
  desk.time.run();
  EXPECT_FALSE(screen.view().resting) << "and not again";
}

TEST_F(SignInScreens, RestOnlyForTheSessionThatEnded) {
  press();
  open();
  store().signOut(true);
  desk.time.advance(Milliseconds{500});
  open();
  EXPECT_FALSE(screen.view().resting);
  store().signOut(true);
  desk.time.advance(Milliseconds{300});
  EXPECT_TRUE(screen.view().resting) << "as long as any";
}

TEST_F(SignInScreens, DoNothingForSomebodySignedIn) {
  desk.tokens.item = "late";
  store().resume();
  press();
  EXPECT_TRUE(desk.opener.opened.empty());
}

}  // namespace
}  // namespace vellix
