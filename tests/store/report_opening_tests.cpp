// From a finished report to the PDF on the person's screen.
#include <gmock/gmock.h>

#include "store/store_test.hpp"

namespace vellix {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

constexpr const char* kPdfLine = "GET api/reports/r1/pdf";
constexpr const char* kNotOpened = "Couldn't open the report.";

Report reportOf(std::string id, std::optional<std::string> title) {
  Report report;
  report.id = std::move(id);
  report.title = std::move(title);
  return report;
}

class ReportOpening : public StoreTest {
 protected:
  void open() {
    store().openReport(reportOf("r1", "Atlas"));
    desk.time.run();
  }
};

TEST_F(ReportOpening, IsKeptInTheDownloadsAndOpened) {
  open();
  ASSERT_THAT(lines(), ElementsAre(kPdfLine));
  EXPECT_EQ(desk.http.exchanges[0].request.lane, HttpLane::transfers);
  EXPECT_THAT(store().busy(), ElementsAre("open-r1"));
  answer(0, answerOf(200, "%PDF"));
  EXPECT_THAT(desk.downloads.files, ElementsAre(Pair("Atlas.pdf", "%PDF")));
  EXPECT_THAT(desk.opener.opened, ElementsAre("file:///downloads/Atlas.pdf"));
  EXPECT_THAT(store().busy(), IsEmpty());
  EXPECT_FALSE(store().toast());
  EXPECT_EQ(polls(), 0U);
}

TEST_F(ReportOpening, ASecondTimeLeavesOneCopy) {
  routes.set(kPdfLine, answerOf(200, "%PDF"));
  open();
  open();
  EXPECT_THAT(desk.downloads.files, ElementsAre(Pair("Atlas.pdf", "%PDF")));
  EXPECT_THAT(desk.opener.opened,
              ElementsAre("file:///downloads/Atlas.pdf", "file:///downloads/Atlas.pdf"));
}

TEST_F(ReportOpening, AChangedOneComesBesideTheFirst) {
  routes.set(kPdfLine, answerOf(200, "%PDF"));
  open();
  routes.set(kPdfLine, answerOf(200, "%PDF 2"));
  open();
  EXPECT_THAT(desk.downloads.files,
              ElementsAre(Pair("Atlas 2.pdf", "%PDF 2"), Pair("Atlas.pdf", "%PDF")));
  EXPECT_EQ(desk.opener.opened.back(), "file:///downloads/Atlas 2.pdf");
}

TEST_F(ReportOpening, TwoQuickPressesFetchItOnce) {
  store().openReport(reportOf("r1", "Atlas"));
  open();
  EXPECT_EQ(desk.http.count(kPdfLine), 1U);
  answer(0, answerOf(200, "%PDF"));
  EXPECT_EQ(desk.opener.opened.size(), 1U);
  open();
  EXPECT_EQ(desk.http.count(kPdfLine), 2U) << "the one before has ended";
}

TEST_F(ReportOpening, TwoReportsComeTogether) {
  open();
  store().openReport(reportOf("r2", "Bread"));
  desk.time.run();
  EXPECT_THAT(store().busy(), ElementsAre("open-r1", "open-r2"));
  answer(1, answerOf(200, "two"));
  EXPECT_THAT(store().busy(), ElementsAre("open-r1"));
  answer(0, answerOf(200, "one"));
  EXPECT_THAT(desk.downloads.files,
              ElementsAre(Pair("Atlas.pdf", "one"), Pair("Bread.pdf", "two")));
}

struct FailureCase {
  const char* name;
  HttpResult result;
  const char* toast;
};
BOOST_DESCRIBE_STRUCT(FailureCase, (), (name, toast))

class FailedReport : public ReportOpening, public testing::WithParamInterface<FailureCase> {};

TEST_P(FailedReport, IsSaidAndOpensNothing) {
  open();
  answer(0, GetParam().result);
  EXPECT_EQ(desk.toastText(), GetParam().toast);
  EXPECT_THAT(desk.downloads.files, IsEmpty());
  EXPECT_THAT(desk.opener.opened, IsEmpty());
  EXPECT_THAT(store().busy(), IsEmpty());
  EXPECT_TRUE(store().signedIn()) << "the next poll is what ends a session";
}

INSTANTIATE_TEST_SUITE_P(
    Cases, FailedReport,
    testing::Values(
        FailureCase{"Refused", answerOf(404, R"({"error":"There is no such report."})"),
                    "There is no such report."},
        FailureCase{"Broken", answerOf(500), kRefusedText},
        FailureCase{"Unknown", answerOf(401), kSignedOutText},
        FailureCase{"Offline", std::unexpected(HttpError::notConnected), kOfflineText},
        FailureCase{"CutShort", std::unexpected(HttpError::connectionLost), kOfflineText},
        FailureCase{"TooLarge", std::unexpected(HttpError::tooLarge), kUnreachableText}),
    [](const auto& tested) { return std::string{tested.param.name}; });

TEST_F(ReportOpening, AFullDiskIsSaid) {
  desk.downloads.full = true;
  open();
  answer(0, answerOf(200, "%PDF"));
  EXPECT_EQ(desk.toastText(), kNotOpened);
  EXPECT_THAT(desk.opener.opened, IsEmpty());
  EXPECT_THAT(store().busy(), IsEmpty());
}

TEST_F(ReportOpening, AFolderThatTakesNothingIsSaid) {
  desk.downloads.closed = true;
  open();
  answer(0, answerOf(200, "%PDF"));
  EXPECT_EQ(desk.toastText(), kNotOpened);
  EXPECT_THAT(desk.opener.opened, IsEmpty());
}

TEST_F(ReportOpening, WhereNothingOpensPdfsThePdfIsStillThere) {
  desk.opener.works = false;
  open();
  answer(0, answerOf(200, "%PDF"));
  EXPECT_EQ(desk.toastText(), kNotOpened);
  EXPECT_THAT(desk.downloads.files, ElementsAre(Pair("Atlas.pdf", "%PDF")));
}

TEST_F(ReportOpening, AfterASignOutNothingIsKeptOrOpened) {
  store().startLoop();
  open();
  const auto asked = desk.http.matching(kPdfLine);
  ASSERT_EQ(asked.size(), 1U);
  store().signOut(false);
  desk.http.answer(*asked[0], answerOf(200, "%PDF"));
  desk.time.run();
  EXPECT_THAT(desk.downloads.files, IsEmpty());
  EXPECT_THAT(desk.opener.opened, IsEmpty());
  EXPECT_FALSE(store().toast());
}

TEST_F(ReportOpening, TheNextPersonWaitsForNobody) {
  open();
  store().signOut(false);
  desk.api.setToken("token-2");
  store().signedIn.set(true);
  open();
  EXPECT_EQ(desk.http.count(kPdfLine), 2U);
  answer(0, answerOf(500));
  EXPECT_FALSE(store().toast()) << "of the session before";
  EXPECT_THAT(store().busy(), ElementsAre("open-r1"));
}

}  // namespace
}  // namespace vellix
