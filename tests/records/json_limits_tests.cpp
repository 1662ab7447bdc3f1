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
  for (const double value :
       {0x1p63, 0x1p64, -0x1p63, -0x1p64, 123456789012345680000.0, -1e20, -0.0, 0.1, 1.0 / 3, 1e308,
        -1e-300, 5e-324, 1700000000123.25, 1e21, 3.0, std::numeric_limits<double>::max()}) {
    const auto text = encode(Stats{.at = value, .users = {}});
    ASSERT_TRUE(text);
    EXPECT_EQ(decoded<Stats>(*text).at, value) << *text;
  }
}

TEST(Numbers, AWholeNumberOfManyDigitsIsADouble) {
  EXPECT_EQ(decoded<Stats>(stats("18446744073709551616")).at, 0x1p64);
  EXPECT_EQ(decoded<Stats>(stats("-123456789012345678901234567890")).at,
            -123456789012345678901234567890.0);
  EXPECT_EQ(buildOf("123456789012345678901234567890"), std::nullopt);
  EXPECT_FALSE(decode<Stats>(stats("0123456789012345678901")));
  EXPECT_FALSE(decode<Stats>(stats("1234567890123456789012e400")));
}

TEST(Numbers, AWholeNumberOfManyDigitsUnderAnUnknownKeyDoesNoHarm) {
  const auto info = decode<VersionInfo>(
      feed("7", R"(,"odd":[18446744073709551616,{"a":-99999999999999999999999}],"notes":)"
                R"("\"12345678901234567890123\\")"));
  ASSERT_TRUE(info) << info.error().why;
  EXPECT_EQ(info->build, 7);
  EXPECT_EQ(info->notes, R"("12345678901234567890123\)") << "a text stays as it is";
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

constexpr const char* kTooLarge = "the document is too large";

std::string boardOfTickets(std::size_t count, const std::string& ticket) {
  return R"({"rev":1,"me":{"email":"a","name":"b"},"users":[],"jobs":[],"reports":[],"events":[],)"
         R"("files":[)" +
         times(count - 1, ticket + ",") + ticket + "]}";
}

// As a service sends it: some 1.1 kB, with all that is known of a ticket.
constexpr const char* kWholeTicket =
    R"({"id":"ticket-1234","key":"files/1234/v1","po":"PO-41234","title":"The Harbour at First )"
    R"(Light, Volume 1234","component":"Text","supplier":"Calder & Sons","filename":)"
    R"("harbour_first_light_1234_text_proof_v1.pdf","kind":"text","sender":)"
    R"("prepress@harrow.example","received":1.7e12,"page_count":64,"links":{"gmail":)"
    R"("https://mail.tessarine.example/mail/1234","drive":)"
    R"("https://drive.tessarine.example/file/1234"},"refs":[{"role":"submitted","name":)"
    R"("harbour_1234.pdf","page_count":64,"matched":64},{"role":"fbc","name":)"
    R"("harbour_fbc_1234.pdf","page_count":64,"matched":62,"note":"Two pages of the advert )"
    R"(section were left out."}],"summary":"One word differs on page 12, and the barcode of the )"
    R"(cover could not be read.","counts":{"pages":64,"high":1,"medium":2,"low":3},"status":"new",)"
    R"("status_by":"renny@tessarine.example","status_at":1.7e12,"created":1.7e12,"rev":3,"thumb":)"
    R"("files/1234/v1/thumb.jpg","tally":{"open":1,"issues":2,"total":9},"track":"new_title",)"
    R"("assignee":"renny@tessarine.example","due":1.7e12,"due_by":"jorvas@tessarine.example",)"
    R"("share":{"enabled":true,"url":"https://proofs.tessarine.example/s/1234567890abcdef"},)"
    R"("version":1,"approvers":["editor@tessarine.example","author@tessarine.example"]})";

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

template <class T>
DecodeFailure refusalOf(const std::string& text) {
  auto value = decode<T>(text);
  EXPECT_FALSE(value);
  return value ? DecodeFailure{} : value.error();
}

// One ticket with so many of the same in one of its lists.
std::string boardWith(const std::string& list, std::size_t count, const std::string& each) {
  return boardOfTickets(1, R"({"id":"f","status":"s",")" + list + "\":[" +
                               times(count - 1, each + ",") + each + "]}");
}

TEST(Hostile, ALongListOfTheWrongThingTakesNoMemoryInAdvance) {
  const auto zeros = times(1'000'000, "0,") + "0";
  const auto failure = refusalOf<BoardState>(R"({"files":[)" + zeros + "]}");
  EXPECT_EQ(failure.where, "files");
  EXPECT_EQ(failure.why, kTooLarge);
}

TEST(Hostile, WhatIsMuchLargerDecodedIsRefused) {
  const std::size_t tickets = kMostDecoded / sizeof(FileItem) + 1;
  const auto board = refusalOf<BoardState>(boardOfTickets(tickets, R"({"id":"","status":""})"));
  EXPECT_EQ(board.where, "files");
  EXPECT_EQ(board.why, kTooLarge);
  // Each of these texts is a block of the heap.
  const auto texts = refusalOf<BoardState>(boardWith("approvers", 900'000, "\"sixteen letters.\""));
  EXPECT_TRUE(texts.where.starts_with("files[0].approvers[")) << texts.where;
  EXPECT_EQ(texts.why, kTooLarge);
  const auto pages = refusalOf<BoardState>(boardWith("pages", 150'000, R"({"i":1,"px":[1,2]})"));
  EXPECT_TRUE(pages.where.starts_with("files[0].pages[")) << pages.where;
  EXPECT_EQ(pages.why, kTooLarge);
  EXPECT_EQ(refusalOf<Json>("[" + times(1'000'000, "[],") + "0]").why, kTooLarge);
}

TEST(Hostile, ManyEntriesOfAMapAreRefused) {
  std::string kinds;
  for (int i = 0; i < 700'000; ++i) {
    kinds += (i > 0 ? ",\"" : "\"") + std::to_string(i) + "\":0";
  }
  const auto failure = refusalOf<Stats>(R"({"at":1,"users":{"a":{"by_kind":{)" + kinds + "}}}}");
  EXPECT_TRUE(failure.where.starts_with("users.a.by_kind")) << failure.where;
  EXPECT_EQ(failure.why, kTooLarge);
  EXPECT_EQ(refusalOf<Json>("{" + kinds + "}").why, kTooLarge);
}

TEST(Hostile, MoreValuesThanAnyBoardHasAreNotParsed) {
  for (const auto* each : {"0,", "[],", "{},"}) {
    const auto failure =
        refusalOf<VersionInfo>(feed("1", ",\"odd\":[" + times(kMostValues, each) + "0]"));
    EXPECT_EQ(failure.why, "it holds too many values");
  }
  const auto lists = times(900, "[") + times(900, "]");
  EXPECT_EQ(
      refusalOf<VersionInfo>(feed("1", ",\"odd\":[" + times(kMostValues / 900, lists + ",") + "0]"))
          .why,
      "it holds too many values");
  EXPECT_TRUE(decode<VersionInfo>(feed("1", ",\"odd\":[" + times(kMostValues - 100, "0,") + "0]")));
}

TEST(Documents, TenThousandTicketsAreNotTooMuch) {
  const auto board = decode<BoardState>(boardOfTickets(10'000, kWholeTicket));
  ASSERT_TRUE(board) << board.error().where << ": " << board.error().why;
  EXPECT_EQ(board->files.size(), 10'000U);
}

TEST(Documents, ALongTextIsNotTooMuch) {
  const std::string text(30'000'000, 'a');
  EXPECT_EQ(decoded<VersionInfo>(feed("1", ",\"notes\":\"" + text + "\"")).notes, text);
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
