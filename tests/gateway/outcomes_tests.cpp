// What becomes of an answer, or of the want of one.
#include <gtest/gtest.h>

#include "support/awaiting.hpp"
#include "support/desk.hpp"

namespace vellix {
namespace {

constexpr const char* kOffline = "This Mac is offline. Vellix will catch up when it's back.";
constexpr const char* kUnreachable = "Can't reach the Vellix server right now. Trying again…";
constexpr const char* kRefused = "The server didn't take that. Try again in a moment.";
constexpr const char* kSignedOut = "You're signed out. Sign in again.";

API::Result<HttpResponse> outcomeOf(HttpResult result) {
  Desk desk;
  std::optional<API::Result<HttpResponse>> outcome;
  desk.tasks.start(deliver(desk.api.send({.path = "api/state"}), &outcome));
  desk.http.answer(0, std::move(result));
  desk.time.run();
  EXPECT_EQ(desk.http.exchanges.size(), 1U) << "nothing is retried";
  return outcome.value();
}

struct TransferCase {
  const char* name;
  HttpError error;
  const char* text;
};
BOOST_DESCRIBE_STRUCT(TransferCase, (), (name, text))

class FailedTransfers : public testing::TestWithParam<TransferCase> {};

TEST_P(FailedTransfers, AreOfflineWithTheirText) {
  const auto outcome = outcomeOf(std::unexpected(GetParam().error));
  ASSERT_FALSE(outcome);
  EXPECT_EQ(outcome.error(), Failure::offline(GetParam().text));
  EXPECT_EQ(outcome.error().description(), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    All, FailedTransfers,
    testing::Values(TransferCase{"NotConnected", HttpError::notConnected, kOffline},
                    TransferCase{"ConnectionLost", HttpError::connectionLost, kOffline},
                    TransferCase{"TimedOut", HttpError::timedOut, kUnreachable},
                    TransferCase{"Cancelled", HttpError::cancelled, kUnreachable},
                    TransferCase{"TooLarge", HttpError::tooLarge, kUnreachable},
                    TransferCase{"Other", HttpError::other, kUnreachable},
                    TransferCase{"NotHttp", HttpError::notHttp,
                                 "Can't reach the Vellix server right now."}),
    [](const auto& each) { return each.param.name; });

TEST(LostBody, HasNoWordsForTheUser) {
  const auto outcome = outcomeOf(std::unexpected(HttpError::bodyLost));
  ASSERT_FALSE(outcome);
  EXPECT_EQ(outcome.error().kind, Failure::Kind::unwritable);
  EXPECT_FALSE(outcome.error().description());
}

struct RefusalCase {
  const char* name;
  int status;
  const char* body;
  Failure failure;
};
BOOST_DESCRIBE_STRUCT(RefusalCase, (), (name, status, body))

class Refusals : public testing::TestWithParam<RefusalCase> {};

TEST_P(Refusals, AreToldInTheServersWordsOrInTheStandingOnes) {
  const auto outcome = outcomeOf(answerOf(GetParam().status, GetParam().body));
  ASSERT_FALSE(outcome);
  EXPECT_EQ(outcome.error(), GetParam().failure);
}

INSTANTIATE_TEST_SUITE_P(
    All, Refusals,
    testing::Values(
        RefusalCase{"SignedOut", 401, "", Failure::signedOut()},
        RefusalCase{"SignedOutWhateverTheBody", 401, R"({"error":"No."})", Failure::signedOut()},
        RefusalCase{"BadRequest", 400, R"({"error":"No such state."})",
                    Failure::server("No such state.")},
        RefusalCase{"Forbidden", 403, R"({"error":"Not yours.","more":[1]})",
                    Failure::server("Not yours.")},
        RefusalCase{"EmptyError", 400, R"({"error":""})", Failure::server("")},
        RefusalCase{"ErrorNotAString", 400, R"({"error": 5})", Failure::server(kRefused)},
        RefusalCase{"ErrorNull", 400, R"({"error": null})", Failure::server(kRefused)},
        RefusalCase{"NoError", 404, R"({"other":"x"})", Failure::server(kRefused)},
        RefusalCase{"List", 404, R"(["error"])", Failure::server(kRefused)},
        RefusalCase{"Text", 409, R"("error")", Failure::server(kRefused)},
        RefusalCase{"Empty", 502, "", Failure::server(kRefused)},
        RefusalCase{"CutJson", 500, R"({"error":"x)", Failure::server(kRefused)},
        RefusalCase{"Html", 500, "<html><h1>Internal Server Error</h1></html>",
                    Failure::server(kRefused)},
        RefusalCase{"Beyond", 599, "", Failure::server(kRefused)}),
    [](const auto& each) { return each.param.name; });

TEST(Failure, HasItsDescription) {
  EXPECT_EQ(Failure::server("a").description(), "a");
  EXPECT_EQ(Failure::offline("b").description(), "b");
  EXPECT_EQ(Failure::signedOut().description(), kSignedOut);
  EXPECT_FALSE(Failure::unreadable("a.b: why").description());
  EXPECT_FALSE(Failure::unwritable("why").description());
  EXPECT_FALSE(Failure::cancelled().description());
}

class Successes : public testing::TestWithParam<int> {};

TEST_P(Successes, HandBackStatusBodyAndHeaders) {
  const auto outcome = outcomeOf(answerOf(GetParam(), "body", "\"e\""));
  ASSERT_TRUE(outcome);
  EXPECT_EQ(outcome->status, GetParam());
  EXPECT_EQ(outcome->body, "body");
  EXPECT_EQ(outcome->header("etag"), "\"e\"");
}

INSTANTIATE_TEST_SUITE_P(All, Successes, testing::Values(200, 201, 204, 302, 304, 399));

TEST(NotModified, WithAnEmptyBodyIsASuccess) {
  const auto outcome = outcomeOf(answerOf(304));
  ASSERT_TRUE(outcome);
  EXPECT_EQ(outcome->status, 304);
  EXPECT_EQ(outcome->body, "");
}

TEST(Send, EndsAsCancelledWhenItIsStopped) {
  Desk desk;
  std::stop_source stop;
  std::optional<API::Result<HttpResponse>> outcome;
  desk.tasks.start(
      deliver(desk.api.send({.path = "api/state", .stop = stop.get_token()}), &outcome));
  stop.request_stop();
  desk.time.run();
  ASSERT_TRUE(outcome);
  ASSERT_FALSE(*outcome);
  EXPECT_EQ(outcome->error(), Failure::offline(kUnreachable));
}

using Asked = API::Result<API::Answer<VersionInfo>>;

Asked askedFor(HttpResult result) {
  Desk desk;
  std::optional<Asked> outcome;
  desk.tasks.start(deliver(desk.api.ask<VersionInfo>({.path = "version.json"}), &outcome));
  desk.http.answer(0, std::move(result));
  desk.time.run();
  return std::move(outcome.value());
}

TEST(Ask, BringsTheRecordWithStatusAndHeaders) {
  const auto outcome = askedFor(answerOf(200, R"({"version":"2","build":7,"url":"u"})", "\"e\""));
  ASSERT_TRUE(outcome);
  EXPECT_EQ(outcome->record, (VersionInfo{.version = "2", .build = 7, .url = "u"}));
  EXPECT_EQ(outcome->response.status, 200);
  EXPECT_EQ(outcome->response.header("etag"), "\"e\"");
  EXPECT_TRUE(outcome->response.body.empty());
}

TEST(Ask, SaysWhatIsWrongWithARecord) {
  const auto outcome = askedFor(answerOf(200, R"({"version":"2","url":"u"})"));
  ASSERT_TRUE(outcome);
  ASSERT_FALSE(outcome->record);
  EXPECT_EQ(outcome->record.error().where, "build");
}

TEST(Ask, ReadsNothingOfWhatIsNotModified) {
  const auto outcome = askedFor(answerOf(304, R"({"version":"2","build":7,"url":"u"})"));
  ASSERT_TRUE(outcome);
  EXPECT_EQ(outcome->response.status, 304);
  EXPECT_FALSE(outcome->record);
}

TEST(Ask, PassesTheCallsFailureOn) {
  EXPECT_EQ(askedFor(answerOf(401)).error(), Failure::signedOut());
  EXPECT_EQ(askedFor(answerOf(400, R"({"error":"No."})")).error(), Failure::server("No."));
  EXPECT_EQ(askedFor(std::unexpected(HttpError::tooLarge)).error(), Failure::offline(kUnreachable));
}

API::Result<Json::Object> postedTo(HttpResult result) {
  Desk desk;
  std::optional<API::Result<Json::Object>> outcome;
  desk.tasks.start(deliver(desk.api.post("api/jobs", Me{"a", "b"}), &outcome));
  EXPECT_EQ(desk.http.exchanges.at(0).line(), "POST api/jobs");
  EXPECT_EQ(desk.http.exchanges.at(0).request.body, R"({"email":"a","name":"b"})");
  EXPECT_FALSE(desk.http.exchanges.at(0).has("If-None-Match"));
  desk.http.answer(0, std::move(result));
  desk.time.run();
  return outcome.value();
}

TEST(Post, GivesTheAnswersObject) {
  const auto outcome = postedTo(answerOf(200, R"({"version":3,"share":{"url":"u"}})"));
  ASSERT_TRUE(outcome);
  EXPECT_EQ(outcome->at("version"), Json{Int{3}});
  EXPECT_EQ(*outcome->at("share").find("url")->text(), "u");
}

class UnreadAnswers : public testing::TestWithParam<const char*> {};

TEST_P(UnreadAnswers, AreAnEmptyObjectAndNoFailure) {
  const auto outcome = postedTo(answerOf(200, GetParam()));
  ASSERT_TRUE(outcome);
  EXPECT_TRUE(outcome->empty());
}

INSTANTIATE_TEST_SUITE_P(All, UnreadAnswers,
                         testing::Values("", "[1,2]", "[]", "5", "\"x\"", "null", "garbage",
                                         "{\"a\":", "<html>", "{}"));

TEST(Post, PassesTheCallsFailureOn) {
  EXPECT_EQ(postedTo(answerOf(401)).error(), Failure::signedOut());
  EXPECT_EQ(postedTo(answerOf(400, R"({"error":"No."})")).error(), Failure::server("No."));
  EXPECT_EQ(postedTo(std::unexpected(HttpError::notConnected)).error(), Failure::offline(kOffline));
}

}  // namespace
}  // namespace vellix
