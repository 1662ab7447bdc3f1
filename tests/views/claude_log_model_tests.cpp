// What the model of the worker's log tells its views.
#include "jobs/ClaudeLogModel.hpp"

#include <QSignalSpy>

#include "store/store_test.hpp"

namespace vellix {
namespace {

class ClaudeLogModels : public StoreTest {
 protected:
  ClaudeLogModels() {
    board = boardOf({ticketAt("t1", 1)});
    board.sync = jobOf("running", "sync");
    board.sync->id = "s";
    board.sync->started = wireOf(desk.time.now());
    showBoard();
  }
  void showBoard() {
    store().board.set(board);
    desk.time.run();
  }
  ClaudeLogModel& model() {
    if (!model_) model_.emplace(store(), desk.api, desk.time, desk.calendar);
    return *model_;
  }
  void read(bool reading = true) { model().reads(&reader, reading); }
  QVariantMap technical() { return model().log()["technical"].toMap(); }
  void pressTechnical() {
    model().pressTechnical();
    desk.time.run();
  }
  void answerTechnical(const char* log) {
    const auto open = desk.http.matching("GET api/jobs/");
    desk.http.answer(*open.back(), answerOf(200, std::string{R"({"log":")"} + log + "\"}"));
    desk.time.run();
  }

  BoardState board;
  QObject reader;

 private:
  std::optional<ClaudeLogModel> model_;
};

TEST_F(ClaudeLogModels, AreAwakeAlsoWhileNobodyReads) {
  EXPECT_TRUE(model().busy());
  const QSignalSpy told{&model(), &ClaudeLogModel::busyChanged};
  board.sync->status = "done";
  showBoard();
  EXPECT_FALSE(model().busy());
  EXPECT_EQ(told.count(), 1);
}

TEST_F(ClaudeLogModels, TellTheLogWhileItIsRead) {
  const QSignalSpy told{&model(), &ClaudeLogModel::logChanged};
  EXPECT_FALSE(model().log()["busy"].toBool()) << "nobody reads it";
  EXPECT_EQ(told.count(), 0);
  read();
  EXPECT_EQ(told.count(), 1);
  EXPECT_EQ(model().log()["sync"].toMap()["kind"], "running");
  store().selection.set({"t1"});
  desk.time.run();
  EXPECT_EQ(told.count(), 1) << "nothing else is told";
  read(false);
  board.sync->status = "done";
  showBoard();
  EXPECT_EQ(told.count(), 1);
  read();
  EXPECT_EQ(model().log()["sync"].toMap()["kind"], "result");
}

TEST_F(ClaudeLogModels, TellTheTimeAnewAfterAPoll) {
  serveBoard(board);
  poll();
  read();
  const auto footer = [this] { return model().log()["sync"].toMap()["footer"].toString(); };
  EXPECT_TRUE(footer().endsWith("just now")) << footer().toStdString();
  desk.time.advance(Milliseconds{300'000});
  poll();
  EXPECT_TRUE(footer().endsWith("5 min ago")) << footer().toStdString();
}

TEST_F(ClaudeLogModels, StopAJob) {
  read();
  model().stop("s");
  desk.time.run();
  EXPECT_EQ(desk.http.exchanges.back().line(), "POST api/jobs/s/stop");
  EXPECT_TRUE(model().log()["sync"].toMap()["stopping"].toBool());
  model().stop("s");
  model().stop("gone");
  desk.time.run();
  EXPECT_EQ(desk.http.matching("POST ").size(), 1U);
}

TEST_F(ClaudeLogModels, OpenAReport) {
  board.reports = {{.id = "r"}};
  showBoard();
  model().open("r");
  model().open("gone");
  desk.time.run();
  ASSERT_EQ(desk.http.matching("GET api/reports/").size(), 1U);
  EXPECT_EQ(desk.http.exchanges.back().line(), "GET api/reports/r/pdf");
}

TEST_F(ClaudeLogModels, ShowTheTechnicalLogUntilNobodyReads) {
  read();
  pressTechnical();
  EXPECT_EQ(desk.http.exchanges.back().line(), "GET api/jobs/s");
  EXPECT_TRUE(technical()["loading"].toBool());
  answerTechnical("09:41 began");
  EXPECT_EQ(technical()["text"], "09:41 began");
  std::optional<QObject> other(std::in_place);
  model().reads(&*other, true);
  read(false);
  EXPECT_EQ(technical()["text"], "09:41 began") << "somebody does";
  other.reset();
  read();
  EXPECT_FALSE(technical()["shown"].toBool());
  EXPECT_EQ(desk.http.matching("GET api/jobs/").size(), 1U) << "asked for by a press alone";
}

TEST_F(ClaudeLogModels, HideTheTechnicalLogAgain) {
  read();
  pressTechnical();
  answerTechnical("09:41 began");
  pressTechnical();
  EXPECT_FALSE(technical()["shown"].toBool());
  EXPECT_EQ(desk.http.matching("GET api/jobs/").size(), 1U);
}

TEST_F(ClaudeLogModels, DropTheTechnicalLogWithTheBoardItWasOf) {
  read();
  pressTechnical();
  answerTechnical("09:41 began");
  store().board.set(std::nullopt);
  desk.time.run();
  showBoard();
  EXPECT_FALSE(technical()["shown"].toBool()) << "one session follows another";
}

TEST_F(ClaudeLogModels, DropTheTechnicalLogWithTheSession) {
  read();
  pressTechnical();
  const auto* asked = desk.http.matching("GET api/jobs/").back();
  store().signOut(false);
  desk.time.run();
  EXPECT_TRUE(technical()["job"].toString().isEmpty());
  desk.http.answer(*asked, answerOf(200, R"({"log":"of the session before"})"));
  desk.time.run();
  showBoard();
  EXPECT_EQ(technical()["job"], "s");
  EXPECT_FALSE(technical()["shown"].toBool());
  EXPECT_FALSE(technical()["loading"].toBool());
}

}  // namespace
}  // namespace vellix
