// Sending a new version: what goes out, and what becomes of it.
#include "store/revision_test.hpp"

namespace vellix {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Revision : public RevisionTest {};

TEST_F(Revision, IsSentAsItIsThenItsTicketAndTheBoardAreFetched) {
  store().etag = "\"b1\"";
  store().viewVersion.set({{"t1", 2}, {"t2", 1}});
  store().page.set({{"t1", 4}, {"t2", 3}});
  upload(kPdf, "Fixed p25");
  EXPECT_THAT(desk.files.opened, ElementsAre(kPdf));
  ASSERT_THAT(lines(), ElementsAre(kPut));
  const auto& put = desk.http.exchanges[0];
  ASSERT_TRUE(put.request.stream);
  EXPECT_EQ(put.request.stream->size(), 1'000);
  EXPECT_FALSE(put.request.body);
  EXPECT_EQ(put.header("Content-Type"), "application/pdf");
  EXPECT_EQ(put.header("x-filename"), "The%20Light%2Epdf");
  EXPECT_EQ(put.header("x-note"), "Fixed%20p25");
  EXPECT_EQ(put.header("Authorization"), "Bearer token-1");
  EXPECT_EQ(put.request.timeout, Milliseconds{600'000});
  EXPECT_EQ(put.request.lane, HttpLane::transfers);
  EXPECT_THAT(store().busy(), ElementsAre("revision"));
  EXPECT_FALSE(store().toast());
  EXPECT_EQ(store().viewVersion().at("t1"), 2) << "nothing ahead of the answer";

  answer(0, answerOf(200, R"({"version":4})"));
  EXPECT_EQ(desk.toastText(), "Uploaded v4. The Mac mini is checking it against v3.");
  EXPECT_FALSE(desk.toast()->undoLabel);
  EXPECT_EQ(store().viewVersion(), (std::map<std::string, Int>{{"t2", 1}}));
  EXPECT_EQ(store().page(), (std::map<std::string, Int>{{"t1", 0}, {"t2", 3}}));
  ASSERT_THAT(lines(), ElementsAre(kPut, kStateLine));
  EXPECT_FALSE(desk.http.exchanges[1].has("If-None-Match"));

  serveDetail(detailOf(nextVersion()));
  answer(1, answerOf(200, jsonOf(boardOf({nextVersion()}))));
  EXPECT_THAT(lines(), ElementsAre(kPut, kStateLine, kDetailLine, kDetailLine));
  EXPECT_FALSE(desk.http.exchanges[3].has("If-None-Match")) << "by force";
  EXPECT_EQ(store().currentDetail()->version, 4);
  EXPECT_TRUE(store().busy().empty());
}

TEST_F(Revision, IsHeldUntilItsDetailIsIn) {
  routes.set(kStateLine, answerOf(304));
  upload();
  answer(0, answerOf(200, "{}"));
  ASSERT_THAT(lines(), ElementsAre(kPut, kStateLine, kDetailLine));
  EXPECT_THAT(store().busy(), ElementsAre("revision"));
  answer(2, answerOf(200, jsonOf(detailOf(nextVersion()))));
  EXPECT_TRUE(store().busy().empty());
}

struct HeaderCase {
  const char* name;
  std::string path;
  std::string note;
  const char* fileHeader;
  const char* noteHeader;
};
BOOST_DESCRIBE_STRUCT(HeaderCase, (), (name, path, note, fileHeader, noteHeader))

class RevisionHeaders : public RevisionTest, public testing::WithParamInterface<HeaderCase> {};

TEST_P(RevisionHeaders, KeepLettersAndDigitsAlone) {
  desk.files.sizes[GetParam().path] = 9;
  upload(GetParam().path, GetParam().note);
  ASSERT_THAT(lines(), ElementsAre(kPut));
  EXPECT_TRUE(desk.http.exchanges[0].has("x-filename"));
  EXPECT_TRUE(desk.http.exchanges[0].has("x-note"));
  EXPECT_EQ(desk.http.exchanges[0].header("x-filename"), GetParam().fileHeader);
  EXPECT_EQ(desk.http.exchanges[0].header("x-note"), GetParam().noteHeader);
}

INSTANTIATE_TEST_SUITE_P(
    All, RevisionHeaders,
    testing::Values(HeaderCase{"Plain", "/a/b/rain2.pdf", "", "rain2%2Epdf", ""},
                    HeaderCase{"Blank", "/a b/c d.pdf", "one two", "c%20d%2Epdf", "one%20two"},
                    HeaderCase{"OtherScripts", "/é/漢.PDF", "é", "%E6%BC%A2%2EPDF", "%C3%A9"},
                    HeaderCase{"Marks", "/-._~%&+#\".pdf", "50% & \"more\"\r\nX: y",
                               "%2D%2E%5F%7E%25%26%2B%23%22%2Epdf",
                               "50%25%20%26%20%22more%22%0D%0AX%3A%20y"},
                    HeaderCase{"NoFolder", "rain.pdf", "", "rain%2Epdf", ""},
                    HeaderCase{"NoText", "/a/\xff.pdf", "\xed\xa0\x80", "", ""}),
    [](const auto& each) { return each.param.name; });

struct AnswerCase {
  const char* name;
  std::optional<Int> version;  // the ticket's
  const char* answer;
  const char* said;
};
BOOST_DESCRIBE_STRUCT(AnswerCase, (), (name, version, answer, said))

class RevisionAnswers : public RevisionTest, public testing::WithParamInterface<AnswerCase> {};

TEST_P(RevisionAnswers, TellTheNumberOrLeaveItToTheTicket) {
  file.version = GetParam().version;
  routes.set(kStateLine, answerOf(304));
  upload();
  answer(0, answerOf(200, GetParam().answer));
  EXPECT_EQ(desk.toastText(), GetParam().said);
}

constexpr const char* kFourth = "Uploaded v4. The Mac mini is checking it against v3.";
constexpr const char* kSecond = "Uploaded v2. The Mac mini is checking it against v1.";

INSTANTIATE_TEST_SUITE_P(
    All, RevisionAnswers,
    testing::Values(
        AnswerCase{"Told", 3, R"({"version":7,"id":"t1"})",
                   "Uploaded v7. The Mac mini is checking it against v6."},
        AnswerCase{"NotTold", 3, "{}", kFourth}, AnswerCase{"FirstOne", {}, "{}", kSecond},
        AnswerCase{"Null", 3, R"({"version":null})", kFourth},
        AnswerCase{"Text", 3, R"({"version":"5"})", kFourth},
        AnswerCase{"Fraction", 3, R"({"version":4.5})", kFourth},
        AnswerCase{"List", 3, R"([{"version":5}])", kFourth}, AnswerCase{"NoBody", 3, "", kFourth},
        AnswerCase{"NoJson", 3, "<html>", kFourth},
        AnswerCase{"Least", 3, R"({"version":-9223372036854775808})",
                   "Uploaded v-9223372036854775808. The Mac mini is checking it against "
                   "v-9223372036854775808."},
        AnswerCase{"Greatest", 9'223'372'036'854'775'807, "{}",
                   "Uploaded v9223372036854775807. The Mac mini is checking it against "
                   "v9223372036854775806."}),
    [](const auto& each) { return each.param.name; });

struct SizeCase {
  const char* name;
  std::int64_t bytes;
  bool sent;
};
BOOST_DESCRIBE_STRUCT(SizeCase, (), (name, bytes, sent))

class RevisionSizes : public RevisionTest, public testing::WithParamInterface<SizeCase> {};

TEST_P(RevisionSizes, AreJudgedAheadOfTheFirstByte) {
  desk.files.sizes[kPdf] = GetParam().bytes;
  upload();
  EXPECT_EQ(lines().size(), GetParam().sent ? 1U : 0U);
  EXPECT_EQ(
      desk.toastText(),
      GetParam().sent ? "" : "That PDF is too big. Use one under 60 MB, like the low-res export.");
  EXPECT_EQ(store().busy().size(), GetParam().sent ? 1U : 0U);
}

INSTANTIATE_TEST_SUITE_P(All, RevisionSizes,
                         testing::Values(SizeCase{"Nothing", 0, true},
                                         SizeCase{"JustUnder", 59'999'999, true},
                                         SizeCase{"Sixty", 60'000'000, false},
                                         SizeCase{"Huge", std::int64_t{1} << 40, false}),
                         [](const auto& each) { return each.param.name; });

struct FailureCase {
  const char* name;
  HttpResult answer;
  const char* text;
};
BOOST_DESCRIBE_STRUCT(FailureCase, (), (name, text))

class FailedRevisions : public RevisionTest, public testing::WithParamInterface<FailureCase> {};

TEST_P(FailedRevisions, AreToldOnceAndChangeNothing) {
  store().etag = "\"b1\"";
  store().viewVersion.set({{"t1", 2}});
  store().page.set({{"t1", 4}});
  upload();
  answer(0, GetParam().answer);
  EXPECT_EQ(desk.toastText(), GetParam().text);
  EXPECT_FALSE(desk.toast()->undoLabel);
  EXPECT_THAT(lines(), ElementsAre(kPut)) << "nothing is sent again";
  EXPECT_EQ(store().viewVersion().at("t1"), 2);
  EXPECT_EQ(store().page().at("t1"), 4);
  EXPECT_EQ(store().etag, "\"b1\"");
  EXPECT_TRUE(store().busy().empty());
  EXPECT_TRUE(store().signedIn());
}

INSTANTIATE_TEST_SUITE_P(
    All, FailedRevisions,
    testing::Values(FailureCase{"TooLarge", answerOf(413, R"({"error":"Keep it under 60 MB."})"),
                                "Keep it under 60 MB."},
                    FailureCase{"TooLargeWithoutWords", answerOf(413), kRefusedText},
                    FailureCase{"Broken", answerOf(500, "<html>"), kRefusedText},
                    FailureCase{"Offline", std::unexpected(HttpError::notConnected), kOfflineText},
                    FailureCase{"Cut", std::unexpected(HttpError::connectionLost), kOfflineText},
                    FailureCase{"Stalled", std::unexpected(HttpError::timedOut), kUnreachableText},
                    FailureCase{"FileChanged", std::unexpected(HttpError::bodyLost),
                                "The upload didn't go through. Try again."}),
    [](const auto& each) { return each.param.name; });

TEST_F(Revision, ThatCannotBeReadDidNotGoThrough) {
  upload("/home/renny/gone.pdf");
  EXPECT_EQ(desk.toastText(), kNotSent);
  EXPECT_TRUE(desk.http.exchanges.empty());
  EXPECT_TRUE(store().busy().empty());
}

TEST_F(Revision, SignsOutWhenItIsNotKnown) {
  upload();
  answer(0, answerOf(401));
  EXPECT_FALSE(store().signedIn());
  EXPECT_FALSE(store().board());
  EXPECT_EQ(desk.toastText(), kSignedOutText);
  EXPECT_THAT(lines(), ElementsAre(kPut));
  EXPECT_TRUE(store().busy().empty());
}

}  // namespace
}  // namespace vellix
