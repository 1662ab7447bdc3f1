// Work asked of the Mac mini.
#include <gmock/gmock.h>

#include "store/store_test.hpp"

namespace vellix {
namespace {

using testing::ElementsAre;

struct Asking {
  const char* name;
  std::function<void(Store&)> ask;
  const char* key;
  const char* line;
  const char* body;
  const char* text;
};
BOOST_DESCRIBE_STRUCT(Asking, (), (name, key, line, body, text))

class JobRequests : public StoreTest, public testing::WithParamInterface<Asking> {
 protected:
  void ask() {
    GetParam().ask(store());
    desk.time.run();
  }
};

TEST_P(JobRequests, GoOutUnderTheirKeyAndFetchTheBoard) {
  const auto& each = GetParam();
  store().etag = "\"b1\"";
  ask();
  EXPECT_THAT(store().busy(), ElementsAre(each.key));
  ASSERT_THAT(lines(), ElementsAre(each.line));
  EXPECT_EQ(desk.http.exchanges[0].request.body, each.body);
  EXPECT_EQ(desk.http.exchanges[0].header("Authorization"), "Bearer token-1");
  EXPECT_FALSE(store().toast());
  answer(0, answerOf(200, "{}"));
  EXPECT_EQ(desk.toastText(), each.text);
  EXPECT_THAT(lines(), ElementsAre(each.line, kStateLine));
  EXPECT_FALSE(desk.http.exchanges[1].has("If-None-Match"));
  EXPECT_THAT(store().busy(), ElementsAre(each.key)) << "held until the board is in";
  answer(1, answerOf(200, jsonOf(boardOf({}))));
  EXPECT_TRUE(store().busy().empty());
}

TEST_P(JobRequests, ChangeNothingWhenTheyAreRefused) {
  const auto& each = GetParam();
  store().board.set(boardOf({}));
  ask();
  answer(0, answerOf(400, R"({"error": "A sync is running already."})"));
  EXPECT_EQ(desk.toastText(), "A sync is running already.");
  EXPECT_THAT(lines(), ElementsAre(each.line)) << "no refresh";
  EXPECT_TRUE(store().busy().empty());
  EXPECT_EQ(store().board(), boardOf({}));
}

TEST_P(JobRequests, SignOutWhenTheyAreNotKnown) {
  ask();
  answer(0, answerOf(401));
  EXPECT_FALSE(store().signedIn());
  EXPECT_EQ(desk.toastText(), kSignedOutText);
  EXPECT_TRUE(store().busy().empty());
}

TEST_P(JobRequests, TakeAnyAnswerForAYes) {
  ask();
  answer(0, answerOf(200, ""));
  EXPECT_EQ(desk.toastText(), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    All, JobRequests,
    testing::Values(Asking{"Sync", [](Store& store) { store.requestSync(); }, "sync",
                           "POST api/jobs", R"({"kind":"sync"})", "Asked the Mac mini to sync."},
                    Asking{"ReportOnOne", [](Store& store) { store.requestReport({"t1"}); },
                           "report", "POST api/jobs", R"({"kind":"report","file_ids":["t1"]})",
                           "Asked the Mac mini for the report."},
                    Asking{"ReportOnSeveral",
                           [](Store& store) { store.requestReport({"t2", "t1"}); }, "report",
                           "POST api/jobs", R"({"kind":"report","file_ids":["t2","t1"]})",
                           "Asked the Mac mini for the report."},
                    Asking{"Stop", [](Store& store) { store.stopJob(jobOf("running", "sync")); },
                           "stop-j", "POST api/jobs/j/stop", "{}", "Stopping."}),
    [](const auto& each) { return each.param.name; });

class Jobs : public StoreTest {};

TEST_F(Jobs, AreStoppedSideBySide) {
  Job one = jobOf("running");
  Job other = jobOf("queued");
  other.id = "k";
  store().stopJob(one);
  store().stopJob(other);
  desk.time.run();
  EXPECT_THAT(store().busy(), ElementsAre("stop-j", "stop-k"));
  EXPECT_THAT(lines(), ElementsAre("POST api/jobs/j/stop", "POST api/jobs/k/stop"));
}

}  // namespace
}  // namespace vellix
