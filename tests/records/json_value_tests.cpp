// JSON whose shape is not known beforehand.
#include "records/record_cases.hpp"

namespace vellix::test {
namespace {

template <class T>
Json json(T value) {
  Json made;
  made.value = std::move(value);
  return made;
}

TEST(JsonValue, HoldsEveryKindOfValue) {
  const auto value = decoded<Json>(R"({"none":null,"yes":true,"whole":-7,"real":1.5,"text":"a",
                                       "list":[1,"b",[]],"object":{"k":{}}})");
  ASSERT_TRUE(value.object());
  EXPECT_EQ(value.object()->size(), 7u);
  EXPECT_EQ(*value.find("none"), Json{});
  EXPECT_EQ(*value.find("yes"), json(true));
  EXPECT_EQ(*value.find("whole"), json(Int{-7}));
  EXPECT_EQ(*value.find("real"), json(1.5));
  EXPECT_EQ(*value.find("text"), json(std::string{"a"}));
  EXPECT_EQ(*value.find("list"),
            json(Json::List{json(Int{1}), json(std::string{"b"}), json(Json::List{})}));
  EXPECT_EQ(*value.find("object"), json(Json::Object{{"k", json(Json::Object{})}}));
}

TEST(JsonValue, MayBeAnythingAtTheTop) {
  EXPECT_EQ(decoded<Json>("null"), Json{});
  EXPECT_EQ(decoded<Json>("false"), json(false));
  EXPECT_EQ(decoded<Json>("\"a\""), json(std::string{"a"}));
  EXPECT_EQ(decoded<Json>("[]"), json(Json::List{}));
  EXPECT_EQ(decoded<Json>("9223372036854775807"), json(Int{9223372036854775807}));
  EXPECT_EQ(decoded<Json>("9223372036854775808"), json(0x1p63));
}

TEST(JsonValue, FindsNothingWhereThereIsNothing) {
  const auto object = decoded<Json>(R"({"error":"no","at":{"error":7}})");
  ASSERT_TRUE(object.find("error"));
  ASSERT_TRUE(object.find("error")->text());
  EXPECT_EQ(*object.find("error")->text(), "no");
  EXPECT_EQ(object.find("Error"), nullptr);
  EXPECT_EQ(object.find(""), nullptr);
  EXPECT_EQ(object.find("at")->find("error")->text(), nullptr) << "a number is no text";
  EXPECT_EQ(object.find("error")->find("error"), nullptr) << "a text has no members";
  EXPECT_EQ(decoded<Json>(R"(["error"])").find("error"), nullptr);
  EXPECT_EQ(Json{}.find("error"), nullptr);
  EXPECT_EQ(Json{}.object(), nullptr);
}

TEST(JsonValue, FailsLikeARecord) {
  for (const auto* text : {"", "{", "[1,]", "{\"a\":1}x", "\"\\udc00\"", "1e400", "\"\xff\""}) {
    EXPECT_FALSE(decodeJson(text)) << text;
  }
  const auto twice = decodeJson(R"({"a":[{"b":1,"b":2}]})");
  ASSERT_FALSE(twice);
  EXPECT_EQ(twice.error().where, "a[0].b");
  EXPECT_EQ(twice.error().why, "the key is repeated");
}

}  // namespace
}  // namespace vellix::test
