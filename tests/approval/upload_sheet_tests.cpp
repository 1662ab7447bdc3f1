// Uploading a revision: the file, the line on it, and what changes under the open sheet.
#include "approval/upload_sheet.hpp"

#include <gmock/gmock.h>

#include <limits>

#include "approval/approval_test.hpp"

namespace vellix {
namespace {

using testing::IsEmpty;

class UploadSheets : public ApprovalTest {
 protected:
  UploadSheets() {
    desk.files.sizes["/proofs/new cover.pdf"] = 1'000;
    open();
  }
  void open() { draft = beginUpload(file()); }
  UploadSheetView view() { return uploadSheet(draft, store()); }
  void pollBrings() {
    publish();
    follow(draft, store());
  }
  std::vector<std::string> uploads() {
    desk.time.run();
    std::vector<std::string> lines;
    for (const auto* each : desk.http.matching("PUT")) lines.push_back(each->line());
    return lines;
  }

  UploadDraft draft;
};

TEST_F(UploadSheets, TellTheVersionsTheyAreAbout) {
  EXPECT_EQ(view().title, "Upload v2") << "a ticket without a number is at its first";
  EXPECT_EQ(view().intro,
            "The Mac mini checks it against v1, so you can see exactly what moved. Then send it "
            "back for approval.");
  file().version = 4;
  pollBrings();
  EXPECT_EQ(view().title, "Upload v5");
  file().version = std::numeric_limits<Int>::max();
  pollBrings();
  EXPECT_EQ(view().title, "Upload v" + std::to_string(std::numeric_limits<Int>::max()));
}

TEST_F(UploadSheets, TakeAPdf) {
  EXPECT_EQ(view().icon, "doc.badge.plus");
  EXPECT_EQ(view().file, "No PDF picked yet");
  EXPECT_EQ(view().choose, "Choose PDF…");
  EXPECT_FALSE(view().chosen);
  EXPECT_FALSE(view().canUpload);
  choosePdf(draft, "/proofs/new cover.pdf");
  EXPECT_EQ(view().icon, "doc.fill");
  EXPECT_EQ(view().file, "new cover.pdf");
  EXPECT_EQ(view().choose, "Choose another…");
  EXPECT_TRUE(view().chosen);
  EXPECT_TRUE(view().canUpload);
}

TEST_F(UploadSheets, KeepTheFileWhereAnotherIsNotChosen) {
  choosePdf(draft, "/proofs/new cover.pdf");
  for (const char* none : {"", "/proofs/", "/proofs/notes.txt", "/proofs/pdf", "/x.pdf/notes"}) {
    choosePdf(draft, none);
    EXPECT_EQ(view().file, "new cover.pdf") << none;
  }
  choosePdf(draft, "/proofs/LAST.PDF");
  EXPECT_EQ(view().file, "LAST.PDF");
}

TEST_F(UploadSheets, SendTheFileWithItsLine) {
  choosePdf(draft, "/proofs/new cover.pdf");
  draft.note = " \n Fixed p25 \n";
  EXPECT_TRUE(upload(draft, store()));
  EXPECT_EQ(uploads(), std::vector<std::string>{"PUT api/files/t1/versions"});
  EXPECT_EQ(desk.http.matching("PUT")[0]->header("x-note"), "Fixed%20p25");
}

TEST_F(UploadSheets, SendNoLineOfBlanks) {
  choosePdf(draft, "/proofs/new cover.pdf");
  draft.note = " \t\n";
  EXPECT_TRUE(upload(draft, store()));
  ASSERT_EQ(uploads().size(), 1U);
  EXPECT_TRUE(desk.http.matching("PUT")[0]->has("x-note"));
  EXPECT_EQ(desk.http.matching("PUT")[0]->header("x-note"), "");
}

TEST_F(UploadSheets, SendOnce) {
  choosePdf(draft, "/proofs/new cover.pdf");
  EXPECT_TRUE(upload(draft, store()));
  EXPECT_FALSE(view().canUpload);
  EXPECT_FALSE(upload(draft, store()));
  EXPECT_EQ(uploads().size(), 1U);
}

TEST_F(UploadSheets, SendNothingWithoutAFile) {
  draft.note = "Fixed p25";
  EXPECT_FALSE(upload(draft, store()));
  EXPECT_THAT(uploads(), IsEmpty());
}

TEST_F(UploadSheets, KeepFileAndLineThroughAPoll) {
  choosePdf(draft, "/proofs/new cover.pdf");
  draft.note = "Fixed";
  file().version = 2;
  file().approval = "revised";
  pollBrings();
  EXPECT_EQ(draft.note, "Fixed");
  EXPECT_EQ(view().file, "new cover.pdf");
  EXPECT_TRUE(view().canUpload);
}

TEST_F(UploadSheets, EndWithTheTicketAndKeepTheLine) {
  choosePdf(draft, "/proofs/new cover.pdf");
  draft.note = "Fixed p25";
  file().version = 2;
  pollBrings();
  board.files.erase(board.files.begin());
  pollBrings();
  EXPECT_EQ(view().title, "Upload v3");
  EXPECT_EQ(view().trouble, "This ticket isn't on the board any more.");
  EXPECT_FALSE(view().canUpload);
  EXPECT_FALSE(upload(draft, store()));
  EXPECT_EQ(draft.note, "Fixed p25");
  EXPECT_THAT(uploads(), IsEmpty());
}

struct RevisableCase {
  const char* state;
  const char* trouble;
};
BOOST_DESCRIBE_STRUCT(RevisableCase, (), (state, trouble))

class RevisedUnderTheSheet : public UploadSheets,
                             public testing::WithParamInterface<RevisableCase> {};

TEST_P(RevisedUnderTheSheet, IsTakenOnlyWhereItMay) {
  choosePdf(draft, "/proofs/new cover.pdf");
  file().approval = GetParam().state;
  pollBrings();
  const std::string trouble = GetParam().trouble;
  EXPECT_EQ(view().trouble, trouble);
  EXPECT_EQ(view().canUpload, trouble.empty());
  EXPECT_EQ(upload(draft, store()), trouble.empty());
  EXPECT_EQ(uploads().size(), trouble.empty() ? 1U : 0U);
}

INSTANTIATE_TEST_SUITE_P(
    All, RevisedUnderTheSheet,
    testing::Values(RevisableCase{"pending", "This ticket has moved on: Out for approval."},
                    RevisableCase{"changes", ""}, RevisableCase{"revised", ""},
                    RevisableCase{"on_hold", ""},
                    RevisableCase{"approved", "This ticket has moved on: Approved."},
                    RevisableCase{"sent", "This ticket has moved on: Sent."}),
    [](const auto& each) { return each.param.state; });

TEST_F(UploadSheets, SendNothingInAnotherSession) {
  choosePdf(draft, "/proofs/new cover.pdf");
  store().signOut(true);
  desk.time.run();
  follow(draft, store());
  EXPECT_FALSE(upload(draft, store()));
  EXPECT_THAT(uploads(), IsEmpty());
}

}  // namespace
}  // namespace vellix
