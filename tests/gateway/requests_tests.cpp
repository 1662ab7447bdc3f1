// How a request is put together.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "support/awaiting.hpp"
#include "support/desk.hpp"

namespace vellix {
namespace {

using testing::ElementsAre;
using testing::Pair;

constexpr const char* kBuiltIn = "https://proofs.tessarine.example";

const ScriptedHttp::Exchange& sent(Desk& desk, API::Request request) {
  std::optional<API::Result<HttpResponse>> ignored;
  desk.tasks.start(deliver(desk.api.send(std::move(request)), &ignored));
  return desk.http.exchanges.back();
}

TEST(BaseUrl, IsTheBuiltInOneWithoutAServerUrl) {
  Desk desk;
  EXPECT_EQ(desk.api.base(), kBuiltIn);
}

TEST(BaseUrl, IsTheServerUrlWhenItParses) {
  Desk desk;
  desk.defaults.texts["ServerURL"] = "http://127.0.0.1:9000/v";
  EXPECT_EQ(desk.api.base(), "http://127.0.0.1:9000/v");
}

TEST(BaseUrl, FallsBackWhenTheServerUrlDoesNotParse) {
  Desk desk;
  for (const char* text : {"", "not a url", "http://", "http://a b", "file:///etc", "https://a:x",
                           "https://a:99999", "http://[::1", "http://a/%zz"}) {
    desk.defaults.texts["ServerURL"] = text;
    EXPECT_EQ(desk.api.base(), kBuiltIn) << text;
    EXPECT_EQ(desk.api.unusableServer(), text);
  }
}

TEST(BaseUrl, TellsAServerUrlThatCannotBeUsedFromNone) {
  Desk desk;
  EXPECT_FALSE(desk.api.unusableServer());
  desk.defaults.texts["ServerURL"] = "https://one.example";
  EXPECT_FALSE(desk.api.unusableServer());
  desk.defaults.texts["ServerURL"] = "127.0.0.1:9000";
  EXPECT_EQ(desk.api.unusableServer(), "127.0.0.1:9000");
  EXPECT_FALSE(sent(desk, {.path = "api/state"}).has("Authorization"));
}

TEST(BaseUrl, IsReadOnEveryCall) {
  Desk desk;
  EXPECT_EQ(sent(desk, {.path = "api/state"}).request.url, std::string{kBuiltIn} + "/api/state");
  desk.defaults.texts["ServerURL"] = "http://127.0.0.1:9000/v/";
  EXPECT_EQ(sent(desk, {.path = "api/state"}).request.url, "http://127.0.0.1:9000/v/api/state");
}

TEST(ClientIdentity, IsTheBuildsOwn) {
  EXPECT_EQ(API::shortVersion(), "1.0");
  EXPECT_EQ(API::buildNumber(), 1);
}

TEST(Request, IsAPlainGetUnlessToldOtherwise) {
  Desk desk{std::nullopt};
  const auto& request = sent(desk, {.path = "api/state"}).request;
  EXPECT_EQ(request.method, "GET");
  EXPECT_FALSE(request.body);
  EXPECT_EQ(request.timeout.count(), 60'000);
  EXPECT_THAT(request.headers, ElementsAre(Pair("User-Agent", "Vellix-Mac/1.0")));
}

TEST(Request, CarriesTheTokenAsBearer) {
  Desk desk{"abc"};
  EXPECT_EQ(sent(desk, {.path = "api/state"}).header("Authorization"), "Bearer abc");
}

TEST(Request, GoesOutWithoutAuthorizationWhenThereIsNoToken) {
  Desk desk{std::nullopt};
  EXPECT_FALSE(sent(desk, {.path = "api/state"}).has("Authorization"));
}

TEST(Request, TakesQueryHeadersEtagAndTimeout) {
  Desk desk;
  const auto& exchange = sent(desk, {.path = "api/files/t 1",
                                     .etag = "W/\"7\"",
                                     .query = {{"v", "2"}, {"q", "a&b"}},
                                     .headers = {{"x-note", "hi"}, {"x-filename", "a%20b"}},
                                     .timeout = Milliseconds{600'000}});
  EXPECT_EQ(exchange.request.url, std::string{kBuiltIn} + "/api/files/t%201?q=a%26b&v=2");
  EXPECT_EQ(exchange.header("If-None-Match"), "W/\"7\"");
  EXPECT_EQ(exchange.header("x-note"), "hi");
  EXPECT_EQ(exchange.header("x-filename"), "a%20b");
  EXPECT_EQ(exchange.request.timeout.count(), 600'000);
}

TEST(Request, HasNoIfNoneMatchWithoutAnEtag) {
  Desk desk;
  EXPECT_FALSE(sent(desk, {.path = "api/state"}).has("If-None-Match"));
}

TEST(Request, SendsJsonAsJson) {
  Desk desk;
  const auto& exchange =
      sent(desk, {.path = "api/x", .method = "POST", .json = API::jsonOf(Me{"a@b", "A \"B\""})});
  EXPECT_EQ(exchange.request.body, R"({"email":"a@b","name":"A \"B\""})");
  EXPECT_EQ(exchange.header("Content-Type"), "application/json");
}

TEST(Request, PrefersJsonToRawBytes) {
  Desk desk;
  const auto& exchange = sent(desk, {.path = "api/x",
                                     .method = "POST",
                                     .json = API::jsonOf(NoBody{}),
                                     .data = "raw",
                                     .contentType = "image/jpeg"});
  EXPECT_EQ(exchange.request.body, "{}");
  EXPECT_EQ(exchange.header("Content-Type"), "application/json");
}

TEST(Request, SendsRawBytesUntouchedAsTheirType) {
  Desk desk;
  const std::string bytes{"%PDF\0\xff\r\n", 8};
  const auto& exchange = sent(
      desk, {.path = "api/x", .method = "PUT", .data = bytes, .contentType = "application/pdf"});
  EXPECT_EQ(exchange.request.body, bytes);
  EXPECT_EQ(exchange.header("Content-Type"), "application/pdf");
}

TEST(Request, CallsRawBytesWithoutATypeAnOctetStream) {
  Desk desk;
  const auto& exchange = sent(desk, {.path = "api/x", .method = "PUT", .data = ""});
  EXPECT_EQ(exchange.request.body, "");
  EXPECT_EQ(exchange.header("Content-Type"), "application/octet-stream");
}

TEST(Request, HandsAStreamOnAsItsType) {
  Desk desk;
  const auto pdf = std::make_shared<FakeBody>(5);
  const auto& exchange = sent(
      desk, {.path = "api/x", .method = "PUT", .stream = pdf, .contentType = "application/pdf"});
  EXPECT_EQ(exchange.request.stream, pdf);
  EXPECT_FALSE(exchange.request.body);
  EXPECT_EQ(exchange.header("Content-Type"), "application/pdf");
  EXPECT_EQ(sent(desk, {.path = "api/x", .method = "PUT", .stream = pdf}).header("Content-Type"),
            "application/octet-stream");
}

TEST(Request, PrefersRawBytesToAStream) {
  Desk desk;
  const auto& exchange = sent(
      desk,
      {.path = "api/x", .method = "PUT", .data = "raw", .stream = std::make_shared<FakeBody>(5)});
  EXPECT_EQ(exchange.request.body, "raw");
  EXPECT_FALSE(exchange.request.stream);
}

TEST(Request, HasNoContentTypeWithoutABody) {
  Desk desk;
  const auto& exchange = sent(desk, {.path = "api/x", .method = "POST", .contentType = "a/b"});
  EXPECT_FALSE(exchange.request.body);
  EXPECT_FALSE(exchange.has("Content-Type"));
}

TEST(Request, WritesAHeaderOnceWhenACallerSetsOneOfItsOwn) {
  Desk desk{"abc"};
  const auto& exchange = sent(
      desk,
      {.path = "api/x", .headers = {{"authorization", "Bearer other"}, {"user-agent", "Mine"}}});
  EXPECT_THAT(exchange.request.headers,
              ElementsAre(Pair("User-Agent", "Mine"), Pair("authorization", "Bearer abc")));
}

struct BlobKey {
  const char* key;
  const char* url;
};
BOOST_DESCRIBE_STRUCT(BlobKey, (), (key, url))

class BlobUrls : public testing::TestWithParam<BlobKey> {};

TEST_P(BlobUrls, KeepSlashesAndEncodeWhatWouldChangeTheirMeaning) {
  Desk desk;
  EXPECT_EQ(sent(desk, {.path = std::string{"api/blob/"} + GetParam().key}).request.url,
            std::string{kBuiltIn} + "/api/blob/" + GetParam().url);
}

INSTANTIATE_TEST_SUITE_P(All, BlobUrls,
                         testing::Values(BlobKey{"p/t1/0.jpg", "p/t1/0.jpg"},
                                         BlobKey{"a b", "a%20b"}, BlobKey{"a?b#c", "a%3Fb%23c"},
                                         BlobKey{"100%", "100%25"}, BlobKey{"a%2Fb", "a%252Fb"},
                                         BlobKey{"ü\n", "%C3%BC%0A"},
                                         BlobKey{"a\"<>\\^`{|}", "a%22%3C%3E%5C%5E%60%7B%7C%7D"},
                                         BlobKey{"x@y:z;w,v+u=t&s", "x@y:z;w,v+u=t&s"}));

struct LaneCase {
  const char* name;
  const char* method;
  const char* path;
  HttpLane lane;
};
BOOST_DESCRIBE_STRUCT(LaneCase, (), (name, method, path))

class Lanes : public testing::TestWithParam<LaneCase> {};

TEST_P(Lanes, KeepPicturesAndTransfersOutOfTheWayOfCalls) {
  Desk desk;
  const auto& exchange =
      sent(desk, {.path = GetParam().path, .method = GetParam().method, .data = "x"});
  EXPECT_EQ(exchange.request.lane, GetParam().lane);
}

INSTANTIATE_TEST_SUITE_P(
    All, Lanes,
    testing::Values(LaneCase{"Poll", "GET", "api/state", HttpLane::calls},
                    LaneCase{"Action", "POST", "api/findings/f", HttpLane::calls},
                    LaneCase{"Picture", "GET", "api/blob/p/0.jpg", HttpLane::pictures},
                    LaneCase{"PictureNamedPdf", "GET", "api/blob/p/pdf", HttpLane::pictures},
                    LaneCase{"Upload", "PUT", "api/files/t/versions", HttpLane::transfers},
                    LaneCase{"Photo", "PUT", "api/me/photo", HttpLane::transfers},
                    LaneCase{"Report", "GET", "api/reports/r/pdf", HttpLane::transfers}),
    [](const auto& each) { return each.param.name; });

struct Measure {
  double value = 0;
};
BOOST_DESCRIBE_STRUCT(Measure, (), (value))

TEST(Request, WhoseBodyJsonCannotHoldIsNotSentAndHasNoWordsForTheUser) {
  Desk desk;
  for (const double value :
       {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity()}) {
    std::optional<API::Result<Json::Object>> outcome;
    desk.tasks.start(deliver(desk.api.post("api/x", Measure{value}), &outcome));
    desk.time.run();
    ASSERT_TRUE(outcome);
    ASSERT_FALSE(*outcome);
    EXPECT_EQ(outcome->error().kind, Failure::Kind::unwritable);
    EXPECT_FALSE(outcome->error().description());
  }
  EXPECT_TRUE(desk.http.exchanges.empty());
}

TEST(Request, WhoseTextIsNoTextIsNotSentEither) {
  Desk desk;
  std::optional<API::Result<Json::Object>> outcome;
  desk.tasks.start(deliver(desk.api.post("api/x", Me{"\xff\xfe", "x"}), &outcome));
  ASSERT_TRUE(outcome);
  ASSERT_FALSE(*outcome);
  EXPECT_FALSE(outcome->error().description());
  EXPECT_TRUE(desk.http.exchanges.empty());
}

}  // namespace
}  // namespace vellix
