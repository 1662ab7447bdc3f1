// Each field of the board's records lands in the right place, with the right value.
#include "records/record_cases.hpp"

namespace vellix::test {
namespace {

TEST(BoardValues, OfTheBoardItself) {
  const auto board = decoded<BoardState>(fullDocument("BoardState"));
  EXPECT_EQ(board.rev, 41);
  EXPECT_EQ(board.me, (Me{.email = "ann@x.example", .name = "Ann Lee"}));
  ASSERT_EQ(board.users.size(), 1u);
  EXPECT_EQ(board.users[0].email, "ann@x.example");
  ASSERT_EQ(board.files.size(), 2u);
  EXPECT_EQ(board.files[0].id, "f1");
  EXPECT_EQ(board.files[1].id, "f2");
  EXPECT_EQ(board.files[1].status, "reviewed");
  ASSERT_TRUE(board.sync);
  EXPECT_EQ(board.sync->id, "s1");
  ASSERT_EQ(board.jobs.size(), 1u);
  EXPECT_EQ(board.jobs[0].id, "j1");
  ASSERT_EQ(board.reports.size(), 1u);
  EXPECT_EQ(board.reports[0].id, "r1");
  ASSERT_EQ(board.events.size(), 1u);
  EXPECT_EQ(board.events[0].id, 9);
  EXPECT_EQ(board.guests, (std::vector{Guest{.email = "gil@y.example", .name = std::nullopt}}));
  EXPECT_EQ(board.approvers, (std::vector{Guest{.email = "kay@y.example", .name = "Kay"}}));
}

TEST(BoardValues, OfAPerson) {
  const auto board = decoded<BoardState>(fullDocument("Person"));
  EXPECT_EQ(board.users.at(0), (Person{.email = "bo@x.example",
                                       .name = "Bo Ray",
                                       .photo = "blob-1",
                                       .color = "#a0b1c2",
                                       .tz = "Europe/Vienna",
                                       .last_seen = 1700000000123.5}));
}

TEST(BoardValues, OfAReport) {
  const auto board = decoded<BoardState>(fullDocument("Report"));
  EXPECT_EQ(board.reports.at(0), (Report{.id = "r1",
                                         .job_id = "j1",
                                         .file_ids = {"f1", "f2"},
                                         .title = "Week 7",
                                         .size = 5'000'000'000,
                                         .drive_link = "https://drive.example/r1",
                                         .by = "ann@x.example",
                                         .at = 1700000000001.5}));
}

TEST(BoardValues, OfAnEvent) {
  const auto board = decoded<BoardState>(fullDocument("Event"));
  EXPECT_EQ(board.events.at(0), (Event{.id = 77,
                                       .at = 1700000000002.5,
                                       .by = "bo@x.example",
                                       .kind = "tag",
                                       .file_id = "f1",
                                       .page = 3,
                                       .text = "Bo tagged you"}));
}

TEST(BoardValues, OfAJob) {
  const auto job = decoded<Job>(fullDocument("Job"));
  EXPECT_EQ(job,
            (Job{.id = "j1",
                 .kind = "report",
                 .status = "running",
                 .requested_by = "ann@x.example",
                 .created = 1.5,
                 .started = 2.5,
                 .finished = 3.5,
                 .beat = 4.5,
                 .step = "Comparing",
                 .steps = {{"Reading", "Comparing"}},
                 .summary = Summary{.done = {{"a"}}, .changed = {}, .check = {}},
                 .result = JobResult{.new_files = 3, .report_id = {}, .drive_link = {}, .cost = {}},
                 .args = JobArgs{.file_ids = {{"f1"}}}}));
}

TEST(BoardValues, OfAJobsParts) {
  EXPECT_EQ(decoded<Job>(fullDocument("JobArgs")).args, (JobArgs{.file_ids = {{"f1", "f2"}}}));
  EXPECT_EQ(decoded<Job>(fullDocument("JobResult")).result,
            (JobResult{.new_files = 3,
                       .report_id = "r1",
                       .drive_link = "https://drive.example/r1",
                       .cost = 0.125}));
  EXPECT_EQ(decoded<Job>(fullDocument("Summary")).summary,
            (Summary{.done = {{"a", "b"}}, .changed = {{"c"}}, .check = {{"d"}}}));
}

TEST(BoardValues, AJobIsActiveWhileQueuedOrRunning) {
  const auto active = [](const std::string& status) {
    return Job{.id = "j",
               .kind = "sync",
               .status = status,
               .requested_by = {},
               .created = {},
               .started = {},
               .finished = {},
               .beat = {},
               .step = {},
               .steps = {},
               .summary = {},
               .result = {},
               .args = {}}
        .active();
  };
  EXPECT_TRUE(active("queued"));
  EXPECT_TRUE(active("running"));
  for (const auto* ended : {"done", "failed", "", "Running", "canceled"})
    EXPECT_FALSE(active(ended));
}

TEST(BoardEdges, ATicketNeedsItsIdAndStatusAlone) {
  const auto ticket = decoded<FileItem>(R"({"id":"f1","status":"new"})");
  FileItem expected;
  expected.id = "f1";
  expected.status = "new";
  EXPECT_EQ(ticket, expected);
}

TEST(BoardEdges, ATicketWithoutStatusFailsTheWholeBoard) {
  const auto board = decode<BoardState>(
      R"({"rev":1,"me":{"email":"a","name":"b"},"users":[],"files":[{"id":"1","status":"new"},
          {"id":"2","status":"new"},{"id":"3","status":"new"},{"id":"4","title":"T"}],
          "jobs":[],"reports":[],"events":[]})");
  ASSERT_FALSE(board);
  EXPECT_EQ(board.error().where, "files[3].status");
  EXPECT_EQ(board.error().why, "the value is missing");
}

constexpr auto kBoardStart = R"({"rev":1,"me":{"email":"a","name":"b"},"users":[],"files":[])";

TEST(BoardEdges, ABoardDecodesWithoutGuests) {
  const auto board =
      decoded<BoardState>(std::string{kBoardStart} + R"(,"jobs":[],"reports":[],"events":[]})");
  EXPECT_EQ(board.guests, std::nullopt);
  EXPECT_EQ(board.approvers, std::nullopt);
  EXPECT_EQ(board.sync, std::nullopt);
}

TEST(BoardEdges, ABoardWithoutJobsDoesNotDecode) {
  const auto board =
      decode<BoardState>(std::string{kBoardStart} + R"(,"reports":[],"events":[],"guests":[]})");
  ASSERT_FALSE(board);
  EXPECT_EQ(board.error().where, "jobs");
}

TEST(BoardEdges, AJobNeedsItsIdKindAndStatusAlone) {
  const auto job = decoded<Job>(R"({"id":"j1","kind":"sync","status":"queued"})");
  EXPECT_EQ(job.id, "j1");
  EXPECT_EQ(job.kind, "sync");
  EXPECT_EQ(job.status, "queued");
  EXPECT_EQ(job.args, std::nullopt);
}

TEST(BoardEdges, AJobsArgsMayBeEmpty) {
  const auto job = decoded<Job>(R"({"id":"j1","kind":"sync","status":"queued","args":{}})");
  ASSERT_TRUE(job.args);
  EXPECT_EQ(job.args->file_ids, std::nullopt);
}

TEST(BoardEdges, AnEmptyListIsNotNone) {
  const auto ticket = decoded<FileItem>(R"({"id":"f","status":"s","refs":[],"pages":null})");
  ASSERT_TRUE(ticket.refs);
  EXPECT_TRUE(ticket.refs->empty());
  EXPECT_FALSE(ticket.pages);
}

}  // namespace
}  // namespace vellix::test
