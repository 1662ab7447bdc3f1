// Texts through the codec, both ways.
#include "records/record_cases.hpp"

namespace vellix::test {
namespace {

using namespace std::string_literals;

std::expected<std::string, DecodeFailure> textOf(const std::string& literal) {
  auto job = decode<Job>(R"({"id":"j","kind":"k","status":)" + literal + "}");
  if (!job) return std::unexpected(job.error());
  return job->status;
}
std::expected<std::string, EncodeFailure> literalOf(const std::string& text) {
  const auto json = encode(Guest{.email = text, .name = {}});
  if (!json) return std::unexpected(json.error());
  return json->substr(9, json->size() - 10);  // between {"email": and }
}

struct TextCase {
  std::string literal;
  std::string text;
};

TEST(Texts, EscapesAreRead) {
  const std::vector<TextCase> cases = {
      {R"("")", ""},
      {R"("a\"b\\c\/d")", "a\"b\\c/d"},
      {R"("\b\f\n\r\t")", "\b\f\n\r\t"},
      {R"("\u0041\u00e9\u20AC")", "A\u00e9\u20ac"},
      {R"("\ud83d\uDE00")", "\U0001F600"},
      {R"("\ud800\udc00\udbff\udfff")", "\U00010000\U0010FFFF"},
      {R"("a\u0000b")", "a\0b"s},
      {R"("\u0000")", "\0"s},
      {R"("\u001f\u007f\ufffe\uffff")", "\x1f\x7f\ufffe\uffff"},
      {"\"na\u00efve \U0001F4D6\"", "na\u00efve \U0001F4D6"},
  };
  for (const auto& each : cases) {
    const auto text = textOf(each.literal);
    ASSERT_TRUE(text) << each.literal;
    EXPECT_EQ(*text, each.text) << each.literal;
  }
}

TEST(Texts, LoneSurrogatesAndBadEscapesFail) {
  for (const auto* literal :
       {R"("\ud800")", R"("\ud800x")", R"("\udc00")", R"("a\udfffb")", R"("\ud800\ud800")",
        R"("\ud800\u0041")", R"("\udc00\ud800")", R"("\ud83d\n")", R"("\ud83d\ud83d\ude00")",
        R"("\u12")", R"("\u12g4")", R"("\x41")", R"("\)", R"("\a")", R"("open)", "'a'"}) {
    EXPECT_FALSE(textOf(literal)) << literal;
  }
}

TEST(Texts, LoneSurrogatesInKeysFail) {
  for (const auto* key : {R"(\udc00)", R"(\ud800)", R"(a\ude00)"}) {
    EXPECT_FALSE(decode<Stats>(R"({"at":1,"users":{},")" + std::string{key} + R"(":1})")) << key;
  }
}

TEST(Texts, RawControlCharactersFail) {
  for (char c = 0; c < 0x20; ++c) EXPECT_FALSE(textOf("\"a" + std::string(1, c) + "b\"")) << +c;
}

const std::vector<std::string> kNotUtf8 = {
    "\x80",              // a continuation alone
    "\xff",              // never a byte of UTF-8
    "\xc0\xaf",          // overlong
    "\xc1\xbf",          // overlong
    "\xe0\x9f\xbf",      // overlong
    "\xf0\x8f\xbf\xbf",  // overlong
    "\xed\xa0\x80",      // a surrogate
    "\xed\xbf\xbf",      // a surrogate
    "\xf4\x90\x80\x80",  // beyond the last code point
    "\xf5\x80\x80\x80",  // beyond the last code point
    "\xc3",              // cut short
    "\xe2\x82",          // cut short
    "\xf0\x9f\x98",      // cut short
    "\xc3(",             // no continuation
    "\xe2\x28\xa1",      // no continuation
    "\xf0\x9f(\x80",     // no continuation
};

TEST(Texts, WhatIsNotUtf8FailsBothWays) {
  for (const auto& bytes : kNotUtf8) {
    for (const auto& text : {bytes, "a" + bytes, bytes + "b", "a" + bytes + "b"}) {
      EXPECT_FALSE(textOf("\"" + text + "\"")) << testing::PrintToString(text);
      const auto literal = literalOf(text);
      ASSERT_FALSE(literal) << testing::PrintToString(text);
      EXPECT_EQ(literal.error().why, "a text is not UTF-8");
    }
  }
}

TEST(Texts, WhatIsNotUtf8FailsAsTheKeyOfAMapToo) {
  EXPECT_FALSE(encode(Stats{.at = 1, .users = {{"\xff", {}}}}));
  EXPECT_FALSE(decode<Stats>("{\"at\":1,\"users\":{},\"\xff\":1}"));
}

TEST(Texts, AreEncodedWithTheFewestEscapes) {
  const std::vector<TextCase> cases = {
      {R"("")", ""},
      {R"("a\"b\\c/d")", "a\"b\\c/d"},
      {R"("\u0008\u000c\n\u000d\u0009")", "\b\f\n\r\t"},
      {R"("a\u0000b\u001f")", "a\0b\x1f"s},
      {"\"\x7f \u00e9 \u20ac \U0001F600 \U0010FFFF\"", "\x7f \u00e9 \u20ac \U0001F600 \U0010FFFF"},
      {"\"\u0080\u07ff\u0800\ud7ff\ue000\uffff\U00010000\"",
       "\u0080\u07ff\u0800\ud7ff\ue000\uffff\U00010000"},
  };
  for (const auto& each : cases) EXPECT_EQ(literalOf(each.text), each.literal);
}

TEST(Texts, EveryCharacterSurvivesBothWays) {
  std::string all;
  for (char32_t c = 0; c <= 0x10ffff; c += c < 0x3000 ? 1 : 97) {
    if (c >= 0xd800 && c < 0xe000) continue;
    const auto byte = [&](char32_t value) { all += static_cast<char>(value); };
    if (c < 0x80) {
      byte(c);
    } else if (c < 0x800) {
      byte(0xc0 | c >> 6), byte(0x80 | (c & 63));
    } else if (c < 0x10000) {
      byte(0xe0 | c >> 12), byte(0x80 | (c >> 6 & 63)), byte(0x80 | (c & 63));
    } else {
      byte(0xf0 | c >> 18), byte(0x80 | (c >> 12 & 63)), byte(0x80 | (c >> 6 & 63)),
          byte(0x80 | (c & 63));
    }
  }
  const auto literal = literalOf(all);
  ASSERT_TRUE(literal);
  EXPECT_EQ(textOf(*literal), all);
}

TEST(Texts, AMegabyteSurvivesBothWays) {
  std::string text(1 << 20, 'a');
  text[text.size() / 2] = '"';
  text.back() = '\0';
  const auto literal = literalOf(text);
  ASSERT_TRUE(literal);
  EXPECT_EQ(textOf(*literal), text);
}

TEST(Texts, OfAMapsKeysAreEscapedToo) {
  const auto json = encode(Page{.i = 0,
                                .label = {},
                                .w = {},
                                .h = {},
                                .img = {},
                                .thumb = {},
                                .px = {},
                                .refs = {{{"a\"\n", RefPage{}}}},
                                .ocr = {}});
  EXPECT_EQ(json, R"({"i":0,"refs":{"a\"\n":{}}})");
}

}  // namespace
}  // namespace vellix::test
