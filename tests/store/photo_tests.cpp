// The photo that the signed-in person is seen by.
#include <gmock/gmock.h>

#include "store/store_test.hpp"

namespace vellix {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kPutLine = "PUT api/me/photo";
constexpr const char* kPath = "/home/renny/me.png";

class PhotoTest : public StoreTest {
 protected:
  PhotoTest() { desk.photos.made[kPath] = "JPEG"; }

  void change() {
    store().changePhoto(kPath);
    desk.time.run();
  }
};

TEST_F(PhotoTest, IsSentAsAJpeg) {
  change();
  ASSERT_THAT(lines(), ElementsAre(kPutLine));
  const auto& sent = desk.http.exchanges[0];
  EXPECT_EQ(sent.request.body, "JPEG");
  EXPECT_EQ(sent.header("Content-Type"), "image/jpeg");
  EXPECT_THAT(store().busy(), ElementsAre("photo"));
  serveBoard(boardOf({}));
  answer(0, answerOf(200, "{}"));
  EXPECT_EQ(desk.toastText(), "Photo updated.");
  EXPECT_EQ(polls(), 1U);
  EXPECT_THAT(store().busy(), IsEmpty());
}

TEST_F(PhotoTest, WhatIsNoPictureEndsInSilence) {
  desk.photos.made.clear();
  change();
  EXPECT_THAT(lines(), IsEmpty());
  EXPECT_FALSE(store().toast());
  EXPECT_THAT(store().busy(), IsEmpty());
}

TEST_F(PhotoTest, APictureThatGivesNoPhotoIsSaid) {
  desk.photos.made[kPath] = std::unexpected(PhotoFailure::notMade);
  change();
  EXPECT_THAT(lines(), IsEmpty());
  EXPECT_EQ(desk.toastText(), "That photo didn't open.");
  EXPECT_THAT(store().busy(), IsEmpty());
}

TEST_F(PhotoTest, ARefusedOneIsSaid) {
  change();
  answer(0, answerOf(400, R"({"error":"A photo is a JPEG."})"));
  EXPECT_EQ(desk.toastText(), "A photo is a JPEG.");
  EXPECT_THAT(store().busy(), IsEmpty());
  EXPECT_EQ(polls(), 0U);
}

TEST_F(PhotoTest, AFailureWithoutWordsHasTheCommonOnes) {
  change();
  answer(0, answerOf(500));
  EXPECT_EQ(desk.toastText(), kRefusedText);
}

TEST_F(PhotoTest, WhoeverIsNotKnownAnyMoreIsSignedOut) {
  change();
  answer(0, answerOf(401));
  EXPECT_FALSE(store().signedIn());
  EXPECT_EQ(desk.toastText(), kSignedOutText);
}

TEST_F(PhotoTest, TwoPressesSendOne) {
  store().changePhoto(kPath);
  change();
  EXPECT_EQ(desk.http.count(kPutLine), 1U);
  EXPECT_THAT(desk.photos.asked, ElementsAre(kPath));
}

TEST_F(PhotoTest, OneThatIsMadeAfterASignOutIsNotSentForTheNextPerson) {
  desk.photos.made["/home/renny/bad.png"] = std::unexpected(PhotoFailure::notMade);
  desk.photos.meanwhile = [this] {
    store().signOut(false);
    desk.api.setToken("token-2");
    store().signedIn.set(true);
  };
  for (const char* path : {kPath, "/home/renny/bad.png"}) {
    store().changePhoto(path);
    desk.time.run();
    EXPECT_EQ(desk.http.count(kPutLine), 0U) << path;
    EXPECT_FALSE(store().toast()) << path;
  }
}

}  // namespace
}  // namespace vellix
