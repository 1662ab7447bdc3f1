// What the codec does with documents that are broken, extreme or hostile.
#include <chrono>
#include <limits>

#include "records/record_cases.hpp"

namespace vellix::test {
namespace {

std::string feed(const std::string& build, const std::string& more = "") {
  return R"({"version":"1","build":)" + build + R"(,"url":"u")" + more + "}";
}
std::optional<Int> buildOf(const std::string& number) {
  const auto info = decode<VersionInfo>(feed(number));
  return info ? std::optional{info->build} : std::nullopt;
}
std::string stats(const std::string& at) { return R"({"at":)" + at + R"(,"users":{}})"; }
std::string times(std::size_t count, std::string_view text) {
  std::string all;
  all.reserve(count * text.size());
  for (std::size_t i = 0; i < count; ++i) all += text;
  return all;
}

struct NumberCase {
  std::string text;
  std::optional<Int> whole;
};

TEST(Numbers, AWholeNumberIsExactOrRefused) {
  const std::vector<NumberCase> cases = {
      {"0", 0},
      {"-0", 0},
      {"-17", -17},
      {"9007199254740993", 9007199254740993},
      {"9223372036854775807", std::numeric_limits<Int>::max()},
      {"-9223372036854775808", std::numeric_limits<Int>::min()},
      {"3.0", 3},
      {"-3.0", -3},
      {"1e3", 1000},
      {"9223372036854774784.0", 9223372036854774784},
      {"-9223372036854775808.0", std::numeric_limits<Int>::min()},
      {"9223372036854775808", {}},
      {"9223372036854775808.0", {}},
      {"18446744073709551615", {}},
      {"18446744073709551616", {}},
      {"-9223372036854775809", {}},
      {"1e19", {}},
      {"-1e19", {}},
      {"1.5", {}},
      {"-0.5", {}},
      {"1e-1", {}},
      {"1e400", {}},
      {"NaN", {}},
      {"Infinity", {}},
      {"01", {}},
      {"+1", {}},
      {".5", {}},
      {"0x10", {}},
      {"1.", {}},
  };
  for (const auto& each : cases) {
    EXPECT_EQ(buildOf(each.text), each.whole) << each.text;
  }
}

TEST(Numbers, ARefusedWholeNumberIsNamed) {
  const auto fraction = decode<VersionInfo>(feed("1.5"));
  ASSERT_FALSE(fraction);
  EXPECT_EQ(fraction.error().where, "build");
  EXPECT_EQ(fraction.error().why, "a whole number was expected");
  const auto great = decode<VersionInfo>(feed("9223372036854775808"));
  ASSERT_FALSE(great);
  EXPECT_EQ(great.error().where, "build");
  EXPECT_EQ(great.error().why, "the number is out of range");
}

TEST(Numbers, ADoubleTakesAnyFiniteNumber) {
  EXPECT_EQ(decoded<Stats>(stats("7")).at, 7.0);
  EXPECT_EQ(decoded<Stats>(stats("-7")).at, -7.0);
  EXPECT_EQ(decoded<Stats>(stats("1e308")).at, 1e308);
  EXPECT_EQ(decoded<Stats>(stats("-1.7976931348623157e308")).at,
            std::numeric_limits<double>::lowest());
  EXPECT_EQ(decoded<Stats>(stats("5e-324")).at, std::numeric_limits<double>::denorm_min());
  EXPECT_EQ(decoded<Stats>(stats("9223372036854775808")).at, 0x1p63);
  EXPECT_EQ(decoded<Stats>(stats("0.1")).at, 0.1);
  EXPECT_FALSE(decode<Stats>(stats("1e400")));
  EXPECT_FALSE(decode<Stats>(stats("-1e400")));
}

TEST(Numbers, EveryDoubleReadsBackTheSame) {
  for (const double value : {0.1, 1.0 / 3, 1e308, -1e-300, 5e-324, 1700000000123.25, 1e21, 3.0,
                             std::numeric_limits<double>::max()}) {
    const auto text = encode(Stats{.at = value, .users = {}});
    ASSERT_TRUE(text);
    EXPECT_EQ(decoded<Stats>(*text).at, value) << *text;
  }
}

TEST(Numbers, WhatIsNotFiniteCannotBeEncoded) {
  for (const double value :
       {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity(),
        -std::numeric_limits<double>::infinity()}) {
    const auto text = encode(Stats{.at = value, .users = {}});
    ASSERT_FALSE(text);
    EXPECT_EQ(text.error().why, "a number is not finite");
  }
}

TEST(Keys, ARepeatedUnknownKeyIsIgnored) {
  EXPECT_TRUE(decode<VersionInfo>(feed("1", R"(,"odd":1,"odd":{"build":2})")));
}

TEST(Keys, ARepeatedKnownKeyFailsAlsoWhenEscapedOrNull) {
  for (const auto* more : {R"(,"build":1)", R"(,"build":null)", R"(,"\u0062uild":1)",
                           R"(,"notes":null,"notes":"a")"}) {
    const auto info = decode<VersionInfo>(feed("1", more));
    ASSERT_FALSE(info) << more;
    EXPECT_EQ(info.error().why, "the key is repeated");
  }
}

TEST(Keys, ARepeatedKeyOfAMapFails) {
  const auto detail = decode<FileDetail>(
      R"({"file":{"id":"f","status":"s"},"findings":[],"comments":[],
          "approval":{"asked":[],"answers":{"k":{"kind":"a"},"l":{"kind":"a"},"k":{"kind":"b"}}}})");
  ASSERT_FALSE(detail);
  EXPECT_EQ(detail.error().where, "approval.answers.k");
  EXPECT_EQ(detail.error().why, "the key is repeated");
}

TEST(Keys, AreReadThroughEscapes) {
  EXPECT_EQ(decoded<VersionInfo>(R"({"version":"1","\u0062\u0075ild":4,"url":"u"})").build, 4);
}

TEST(Documents, WhatIsNotOneObjectFails) {
  const std::string whole = feed("1");
  for (const std::string& text :
       {std::string{}, std::string{" \n\t"}, std::string{"[]"}, "[" + whole + "]",
        std::string{"null"}, std::string{"7"}, std::string{"\"a\""}, whole + "x", whole + whole,
        whole + ",", whole + std::string(1, '\0'), "{" + whole, std::string{"{'version':1}"},
        std::string{"not json"}, std::string{"<html></html>"}}) {
    const auto info = decode<VersionInfo>(text);
    ASSERT_FALSE(info) << text;
    EXPECT_FALSE(info.error().why.empty()) << text;
  }
  EXPECT_FALSE(decode<VersionInfo>(std::string_view{}));
}

TEST(Documents, MayStandAmongWhiteSpace) {
  EXPECT_TRUE(decode<VersionInfo>(" \r\n\t" + feed(" \n 1 ") + " \r\n\t"));
}

TEST(Documents, EveryTruncationFails) {
  const std::string whole = fullDocument("FileItem");
  for (std::size_t length = 0; length < whole.size(); ++length) {
    ASSERT_FALSE(decode<FileItem>(std::string_view{whole}.substr(0, length))) << length;
  }
}

TEST(Documents, AByteOrderMarkIsRefused) {
  const auto info = decode<VersionInfo>("\xEF\xBB\xBF" + feed("1"));
  ASSERT_FALSE(info);
  EXPECT_FALSE(info.error().why.empty());
}

// A decode of anything at all comes back soon; the bound is generous to slow machines.
template <class T>
void expectSoonRefused(const std::string& text) {
  const auto start = std::chrono::steady_clock::now();
  EXPECT_FALSE(decode<T>(text));
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds{10});
}

TEST(Hostile, DeepNestingFails) {
  for (const std::size_t depth : {std::size_t{1'025}, std::size_t{100'000}}) {
    const auto lists = times(depth, "[") + times(depth, "]");
    const auto objects = times(depth, R"({"a":)") + "1" + times(depth, "}");
    for (const auto& deep : {lists, objects, times(depth, "["), times(depth, R"({"a":)")}) {
      expectSoonRefused<VersionInfo>(feed("1", ",\"odd\":" + deep));
      expectSoonRefused<VersionInfo>(feed(deep));
      expectSoonRefused<Json>(deep);
    }
  }
}

TEST(Hostile, NestingWithinTheLimitIsNoMatterUnderAnUnknownKey) {
  EXPECT_TRUE(decode<VersionInfo>(feed("1", ",\"odd\":" + times(1'000, "[") + times(1'000, "]"))));
}

TEST(Hostile, ALongListOfTheWrongThingTakesNoMemoryInAdvance) {
  const auto zeros = times(20'000'000, "0,") + "0";
  const auto board = decode<BoardState>(R"({"files":[)" + zeros + "]}");
  ASSERT_FALSE(board);
  EXPECT_EQ(board.error().where, "files[0]");
}

TEST(Hostile, ManyUnknownKeysAreSkippedInBoundedTime) {
  std::string more;
  for (int i = 0; i < 100'000; ++i) more += ",\"k" + std::to_string(i) + "\":0";
  const auto start = std::chrono::steady_clock::now();
  EXPECT_TRUE(decode<VersionInfo>(feed("1", more)));
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds{10});
}

}  // namespace
}  // namespace vellix::test
