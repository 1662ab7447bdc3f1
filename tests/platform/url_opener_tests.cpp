#include "platform/qt/QtUrlOpener.hpp"

#include <gmock/gmock.h>

#include "support/UrlCatcher.hpp"

namespace vellix {
namespace {

using testing::ElementsAre;

// The platform of the tests opens nothing.
TEST(QtUrlOpener, SaysWhenNothingOpens) {
  EXPECT_FALSE(QtUrlOpener{}.open("https://proofs.tessarine.example/"));
  EXPECT_FALSE(QtUrlOpener{}.open(""));
}

TEST(QtUrlOpener, HandsEveryEscapeOnAsItIs) {
  const UrlCatcher browser("https");
  const std::string url =
      "https://mail.tessarine.example/mail/?view=cm&to=a%2Bb%40c.example%2Cd%40e.example"
      "&su=Salt%20%26%20Lanterns%20%2B%20%231%20%3D%20100%25%20%22new%22%3F"
      "&body=%E7%87%88%E5%8F%B0%0A%0A%3Chttps%3A%2F%2Fs.example%2F1%3Fa%3Db%3E";
  EXPECT_TRUE(QtUrlOpener{}.open(url));
  EXPECT_THAT(browser.urls, ElementsAre(url));
}

}  // namespace
}  // namespace vellix
