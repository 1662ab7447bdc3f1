// The raw log of a job, as it comes from the service.
#include "jobs/technical_log_fetch.hpp"

#include <gmock/gmock.h>

#include "store/store_test.hpp"

namespace vellix {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class TechnicalLogFetches : public StoreTest {
 protected:
  void press(const std::string& job = "a") {
    fetch.press(job);
    desk.time.run();
  }
  void expectText(std::optional<std::string> text) {
    EXPECT_EQ(fetch.log().text(), text);
    EXPECT_FALSE(fetch.log().loading());
  }
  static HttpResponse logged(const std::string& text) {
    return answerOf(200, R"({"id":"a","log":")" + text + "\"}");
  }

  int told = 0;
  TechnicalLogFetch fetch{desk.api, [this] { ++told; }};
};

TEST_F(TechnicalLogFetches, AskForOneJob) {
  press();
  EXPECT_THAT(lines(), ElementsAre("GET api/jobs/a"));
  EXPECT_TRUE(fetch.log().loading());
  EXPECT_EQ(told, 0);
  answer(0, logged("09:41 began"));
  expectText("09:41 began");
  EXPECT_EQ(told, 1);
  EXPECT_FALSE(store().toast());
}

TEST_F(TechnicalLogFetches, AskOnceForTwoPresses) {
  press();
  press();
  EXPECT_THAT(lines(), ElementsAre("GET api/jobs/a"));
  expectText(std::nullopt);
  answer(0, logged("late"));
  expectText(std::nullopt);
  press();
  answer(1, logged("anew"));
  expectText("anew");
}

TEST_F(TechnicalLogFetches, AskNobodyForNothing) {
  press("");
  EXPECT_THAT(lines(), IsEmpty());
}

TEST_F(TechnicalLogFetches, TakeTheAnswerOfTheLastJobAlone) {
  press("a");
  press("b");
  EXPECT_THAT(lines(), ElementsAre("GET api/jobs/a", "GET api/jobs/b"));
  answer(1, logged("of b"));
  answer(0, logged("of a"));
  expectText("of b");
}

TEST_F(TechnicalLogFetches, EndWithThePanel) {
  press();
  fetch.discard();
  answer(0, logged("late"));
  expectText(std::nullopt);
  EXPECT_EQ(fetch.log().job(), "");
}

TEST_F(TechnicalLogFetches, GiveUpWhatNobodyWaitsFor) {
  press();
  fetch.discard();
  desk.time.run();
  EXPECT_EQ(told, 1) << "cancelled, of which nothing is shown";
  expectText(std::nullopt);
  EXPECT_EQ(fetch.log().job(), "");
}

struct AnswerCase {
  const char* name;
  std::string answer;
  std::optional<std::string> log;
};
BOOST_DESCRIBE_STRUCT(AnswerCase, (), (name, answer, log))

class TechnicalLogAnswers : public TechnicalLogFetches,
                            public testing::WithParamInterface<AnswerCase> {};

TEST_P(TechnicalLogAnswers, AreReadForTheirLog) {
  press();
  answer(0, answerOf(200, GetParam().answer));
  expectText(GetParam().log);
  EXPECT_FALSE(store().toast()) << "nothing is said";
}

INSTANTIATE_TEST_SUITE_P(
    All, TechnicalLogAnswers,
    testing::Values(
        AnswerCase{"Text", R"({"log": "one\ntwo"})", "one\ntwo"},
        AnswerCase{"AmongTheRest", R"({"id": "j", "log": "one", "steps": []})", "one"},
        AnswerCase{"WithALongId", R"({"id": 9223372036854775807, "log": "one"})", "one"},
        AnswerCase{"WithALongerId", R"({"id": 184467440737095516150, "log": "one"})", "one"},
        AnswerCase{"Empty", R"({"log": ""})", ""},
        AnswerCase{"Number", R"({"log": 7})", std::nullopt},
        AnswerCase{"Null", R"({"log": null})", std::nullopt},
        AnswerCase{"ListOfTexts", R"({"log": ["one"]})", std::nullopt},
        AnswerCase{"NoLog", R"({"id": "j"})", std::nullopt},
        AnswerCase{"DeeperDown", R"({"job": {"log": "one"}})", std::nullopt},
        AnswerCase{"NoObject", R"(["log"])", std::nullopt},
        AnswerCase{"TextAlone", R"("log")", std::nullopt},
        AnswerCase{"NoJson", "<html>", std::nullopt}, AnswerCase{"Nothing", "", std::nullopt},
        AnswerCase{"CutShort", R"({"log": "on)", std::nullopt}),
    [](const auto& each) { return each.param.name; });

struct FailureCase {
  const char* name;
  HttpResult answer;
};
BOOST_DESCRIBE_STRUCT(FailureCase, (), (name))

class TechnicalLogFailures : public TechnicalLogFetches,
                             public testing::WithParamInterface<FailureCase> {};

TEST_P(TechnicalLogFailures, AreSilent) {
  press();
  answer(0, GetParam().answer);
  expectText(std::nullopt);
  EXPECT_EQ(told, 1);
  EXPECT_FALSE(store().toast());
  press();
  answer(1, logged("again"));
  expectText("again");
}

INSTANTIATE_TEST_SUITE_P(
    All, TechnicalLogFailures,
    testing::Values(FailureCase{"Offline", std::unexpected(HttpError::notConnected)},
                    FailureCase{"TooLarge", std::unexpected(HttpError::tooLarge)},
                    FailureCase{"Unknown", answerOf(404, R"({"error":"gone"})")},
                    FailureCase{"SignedOut", answerOf(401)}, FailureCase{"Broken", answerOf(500)}),
    [](const auto& each) { return each.param.name; });

}  // namespace
}  // namespace vellix
