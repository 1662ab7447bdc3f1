// Each field of a ticket's detail lands in the right place, with the right value.
#include "records/record_cases.hpp"

namespace vellix::test {
namespace {

TEST(DetailValues, OfTheDetailItself) {
  const auto detail = decoded<FileDetail>(fullDocument("FileDetail"));
  EXPECT_EQ(detail.file.id, "f1");
  EXPECT_TRUE(detail.findings.empty());
  ASSERT_EQ(detail.comments.size(), 1u);
  EXPECT_EQ(detail.comments[0].id, "n1");
  EXPECT_EQ(detail.version, 2);
  ASSERT_TRUE(detail.versions);
  EXPECT_EQ(detail.versions->at(0).n, 1);
  ASSERT_TRUE(detail.approval);
  EXPECT_TRUE(detail.approval->asked.empty());
  ASSERT_TRUE(detail.history);
  EXPECT_EQ(detail.history->at(0).id, 4);
  ASSERT_TRUE(detail.origin);
  EXPECT_EQ(detail.origin->sender, "sam@press.example");
}

TEST(DetailValues, OfAFinding) {
  const auto detail = decoded<FileDetail>(fullDocument("Finding"));
  EXPECT_EQ(detail.findings.at(0), (Finding{.id = "d1",
                                            .file_id = "f1",
                                            .page = 4,
                                            .against = "supplier",
                                            .kind = "text",
                                            .severity = "high",
                                            .title = "A word differs",
                                            .detail = "tide is tied",
                                            .before = "tide",
                                            .after = "tied",
                                            .box = {{0.125, 0.25, 0.5, 0.0625}},
                                            .ref_box = {{0.25, 0.5, 0.125, 0.03125}},
                                            .boxes = {{{0.5, 0.5, 0.25, 0.25}, {}}},
                                            .state = "issue",
                                            .state_by = "ann@x.example",
                                            .state_at = 1700000000010.5,
                                            .ord = 17}));
}

TEST(DetailValues, OfANote) {
  const auto detail = decoded<FileDetail>(fullDocument("Note"));
  EXPECT_EQ(detail.comments.at(0), (Note{.id = "n1",
                                         .file_id = "f1",
                                         .page = 2,
                                         .x = 0.25,
                                         .y = 0.75,
                                         .finding_id = "d1",
                                         .text = "Please look",
                                         .by = "bo@x.example",
                                         .at = 1700000000011.5,
                                         .edited = 1700000000012.5,
                                         .resolved = 1,
                                         .resolved_by = "ann@x.example",
                                         .w = 0.125,
                                         .h = 0.0625,
                                         .side = "submitted",
                                         .tags = {{"ann@x.example", "cy@x.example"}}}));
}

TEST(DetailValues, OfAVersion) {
  const auto detail = decoded<FileDetail>(fullDocument("Version"));
  EXPECT_EQ(detail.versions->at(0), (Version{.n = 2,
                                             .kind = "revision",
                                             .filename = "tide_v2.pdf",
                                             .note = "New spine",
                                             .by = "bo@x.example",
                                             .from = "sam@press.example",
                                             .at = 1700000000013.5,
                                             .size = 1'048'576,
                                             .page_count = 14,
                                             .summary = "All well",
                                             .status = "checked",
                                             .notes = 6}));
}

TEST(DetailValues, OfAnApprovalAndItsAnswers) {
  const auto approval = decoded<FileDetail>(fullDocument("Approval")).approval;
  EXPECT_EQ(
      approval,
      (Approval{.state = "sent",
                .by = "kay@y.example",
                .at = 1700000000014.5,
                .version = 2,
                .asked = {"kay@y.example", "lou@y.example"},
                .requested_by = "ann@x.example",
                .requested_at = 1700000000015.5,
                .note = "By Friday",
                .answers = {{"kay@y.example", Answer{.kind = "approved", .note = {}, .at = {}}}}}));
  const auto answers = decoded<FileDetail>(fullDocument("Answer")).approval->answers;
  EXPECT_EQ(answers.at("kay"),
            (Answer{.kind = "changes", .note = "Spine is off", .at = 1700000000017.5}));
}

TEST(DetailValues, OfAnOrigin) {
  const auto origin = decoded<FileDetail>(fullDocument("Origin")).origin;
  ASSERT_TRUE(origin);
  EXPECT_EQ(origin->supplier, "Harbour Press");
  EXPECT_EQ(origin->sender, "sam@press.example");
  EXPECT_EQ(origin->received, 1700000000016.5);
  EXPECT_EQ(origin->filename, "tide_v1.pdf");
  EXPECT_EQ(origin->refs->at(0).role, "supplier");
  EXPECT_EQ(origin->summary, "As sent");
  EXPECT_EQ(origin->links->drive, "d");
}

TEST(DetailEdges, ADetailWithoutFindingsFailsAsAWhole) {
  const auto detail = decode<FileDetail>(R"({"file":{"id":"f1","status":"new"},"comments":[]})");
  ASSERT_FALSE(detail);
  EXPECT_EQ(detail.error().where, "findings");
}

TEST(DetailEdges, ANoteIsResolvedByAnyNumberButZero) {
  const auto resolved = [](const std::string& member) {
    const auto detail = decoded<FileDetail>(
        R"({"file":{"id":"f","status":"s"},"findings":[],"comments":[{"id":"n","file_id":"f",
            "text":"t","by":"b","at":1)" +
        member + "}]}");
    return detail.comments.at(0).isResolved();
  };
  EXPECT_FALSE(resolved(""));
  EXPECT_FALSE(resolved(R"(,"resolved":null)"));
  EXPECT_FALSE(resolved(R"(,"resolved":0)"));
  EXPECT_TRUE(resolved(R"(,"resolved":1)"));
  EXPECT_TRUE(resolved(R"(,"resolved":-1)"));
  EXPECT_TRUE(resolved(R"(,"resolved":1700000000000)"));
}

TEST(DetailEdges, AnApprovalWithoutAnswersFailsItsDetail) {
  constexpr auto start = R"({"file":{"id":"f","status":"s"},"findings":[],"comments":[],)";
  const auto detail = decode<FileDetail>(std::string{start} + R"("approval":{"asked":["a"]}})");
  ASSERT_FALSE(detail);
  EXPECT_EQ(detail.error().where, "approval.answers");
  const auto empty =
      decoded<FileDetail>(std::string{start} + R"("approval":{"asked":["a"],"answers":{}}})");
  EXPECT_TRUE(empty.approval->answers.empty());
}

TEST(DetailEdges, ADraftComparesByAllItsFields) {
  const DraftNote draft{.fileID = "f",
                        .page = 2,
                        .side = "supplier",
                        .x = 0.1,
                        .y = 0.2,
                        .w = 0.3,
                        .h = 0.4,
                        .findingID = "d"};
  EXPECT_EQ(draft, DraftNote{draft});
  DraftNote other = draft;
  other.findingID.reset();
  EXPECT_NE(draft, other);
  static_assert(!Described<DraftNote>, "a draft never goes over the wire");
}

}  // namespace
}  // namespace vellix::test
