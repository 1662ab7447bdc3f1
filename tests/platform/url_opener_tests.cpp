#include "platform/qt/QtUrlOpener.hpp"

#include <gtest/gtest.h>

namespace vellix {
namespace {

// The platform of the tests opens nothing.
TEST(QtUrlOpener, SaysWhenNothingOpens) {
  EXPECT_FALSE(QtUrlOpener{}.open("https://proofs.tessarine.example/"));
  EXPECT_FALSE(QtUrlOpener{}.open(""));
}

}  // namespace
}  // namespace vellix
