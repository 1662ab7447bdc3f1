// What tells bytes apart.
#include "digest.hpp"

#include <gtest/gtest.h>

#include <QBuffer>

namespace vellix::demo {
namespace {

constexpr std::string_view kOfAbc =
    "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad";

TEST(Digests, AreTheSameHoweverTheBytesCome) {
  EXPECT_EQ(digestText("abc"), kOfAbc);
  EXPECT_EQ(digestOf("abc").toHex().toStdString(), kOfAbc);
  QByteArray bytes("abc");
  QBuffer buffer(&bytes);
  ASSERT_TRUE(buffer.open(QIODevice::ReadOnly));
  EXPECT_EQ(digestText(buffer), kOfAbc);
}

TEST(Digests, AreOthersForOtherBytes) {
  EXPECT_NE(digestText("abc"), digestText(std::string_view("abc\0", 4)));
  EXPECT_NE(digestText(""), digestText(std::string_view("\0", 1)));
  QBuffer closed;
  EXPECT_EQ(digestText(closed), "") << "what cannot be read has none";
}

}  // namespace
}  // namespace vellix::demo
