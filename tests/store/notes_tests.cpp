// Writing a note: what is sent, and what becomes of the draft.
#include "store/note_test.hpp"

namespace vellix {
namespace {

using testing::ElementsAre;

constexpr const char* kPost = "POST api/comments";

class WrittenNote : public NoteTest {};

DraftNote draftAt(double w, double h, std::string id = "t1",
                  std::optional<std::string> finding = std::nullopt) {
  return {.fileID = std::move(id),
          .page = 2,
          .side = "submitted",
          .x = 0.25,
          .y = 0.5,
          .w = w,
          .h = h,
          .findingID = std::move(finding)};
}

TEST_F(WrittenNote, IsPostedThenItsTicketAndTheBoardAreFetched) {
  store().etag = "\"b1\"";
  store().fileTags["t1#0"] = "\"d1\"";
  write("\n  Move it. ", std::nullopt, {"jorvas@tessarine.example"});
  ASSERT_THAT(lines(), ElementsAre(kPost));
  EXPECT_EQ(body(),
            R"({"file_id":"t1","page":2,"text":"Move it.","tags":["jorvas@tessarine.example"]})");
  EXPECT_THAT(store().busy(), ElementsAre("note"));
  EXPECT_FALSE(store().toast());
  answer(0, answerOf(200, "{}"));
  ASSERT_THAT(lines(), ElementsAre(kPost, kDetail));
  EXPECT_FALSE(desk.http.exchanges[1].has("If-None-Match")) << "by force";
  EXPECT_FALSE(store().toast());
  FileDetail detail = detailOf(file);
  detail.comments.resize(1);
  answer(1, answerOf(200, jsonOf(detail)));
  EXPECT_EQ(store().details().at("t1").comments.size(), 1U);
  EXPECT_EQ(desk.toastText(), "Note added.");
  EXPECT_FALSE(desk.toast()->undoLabel);
  ASSERT_THAT(lines(), ElementsAre(kPost, kDetail, kStateLine));
  EXPECT_FALSE(desk.http.exchanges[2].has("If-None-Match"));
  EXPECT_THAT(store().busy(), ElementsAre("note")) << "held until the board is in";
  answer(2, answerOf(200, jsonOf(boardOf({file}))));
  EXPECT_TRUE(store().busy().empty());
}

TEST_F(WrittenNote, OfBlanksSendsNothingAndLeavesTheDraft) {
  store().draft.set(draftAt(0.1, 0.1));
  write(" \n\t\u00a0\u2003\r\n");
  EXPECT_TRUE(desk.http.exchanges.empty());
  EXPECT_EQ(store().draft(), draftAt(0.1, 0.1));
  EXPECT_FALSE(store().toast());
  EXPECT_TRUE(store().busy().empty());
}

TEST_F(WrittenNote, EndsTheDraftAheadOfTheRequest) {
  store().draft.set(draftAt(0.1, 0.1));
  store().draftPin.set(std::pair{0.1, 0.2});
  store().draftFinding.set("f9");
  store().pinning.set(true);
  store().addNote("Move it.", file, 2, {});
  EXPECT_TRUE(desk.http.exchanges.empty());
  EXPECT_FALSE(store().draft());
  EXPECT_FALSE(store().draftPin());
  EXPECT_FALSE(store().draftFinding());
  EXPECT_FALSE(store().pinning());
}

TEST_F(WrittenNote, OnThePageAsAWholeLeavesTheDraftAndItsPlace) {
  store().shown.set({"submitted"});
  store().draft.set(draftAt(0.1, 0.1));
  store().addPageNote(" Move it. ", file, 2, {});
  EXPECT_EQ(store().draft(), draftAt(0.1, 0.1));
  desk.time.run();
  EXPECT_EQ(body(), R"({"file_id":"t1","page":2,"text":"Move it.","tags":[]})");
  store().addPageNote(" \n", file, 2, {});
  desk.time.run();
  EXPECT_EQ(desk.http.count(kPost), 1U) << "blanks";
}

TEST_F(WrittenNote, BegunOnTheSuppliersPageShowsThatPane) {
  store().shown.set({"third"});
  store().beginDraft(draftAt(0.1, 0.1));
  EXPECT_EQ(store().draft(), draftAt(0.1, 0.1));
  EXPECT_THAT(store().shown(), ElementsAre("third"));
  auto draft = draftAt(0.2, 0.2);
  draft.side = "supplier";
  store().beginDraft(draft);
  EXPECT_EQ(store().draft(), draft);
  EXPECT_THAT(store().shown(), ElementsAre("supplier", "third"));
  store().dropDraft();
  EXPECT_FALSE(store().draft());
}

struct PlaceCase {
  const char* name;
  std::optional<DraftNote> draft;
  bool pin;
  std::optional<std::string> finding;
  const char* rest;  // of the body, behind the tags
};
BOOST_DESCRIBE_STRUCT(PlaceCase, (), (name, pin, finding, rest))

class NotePlaces : public WrittenNote, public testing::WithParamInterface<PlaceCase> {};

TEST_P(NotePlaces, ComeFromTheDraftOrThePin) {
  store().draft.set(GetParam().draft);
  if (GetParam().pin) store().draftPin.set(std::pair{0.75, 0.125});
  write("Move it.", GetParam().finding);
  EXPECT_EQ(body(), std::string{R"({"file_id":"t1","page":2,"text":"Move it.","tags":[])"} +
                        GetParam().rest + "}");
  EXPECT_FALSE(store().draft());
  EXPECT_FALSE(store().draftPin());
}

INSTANTIATE_TEST_SUITE_P(
    All, NotePlaces,
    testing::Values(
        PlaceCase{"None", std::nullopt, false, std::nullopt, ""},
        PlaceCase{"Area", draftAt(0.5, 0.25), false, std::nullopt,
                  R"(,"x":0.25,"y":0.5,"w":0.5,"h":0.25,"side":"submitted")"},
        PlaceCase{"Point", draftAt(0, 0), false, std::nullopt,
                  R"(,"x":0.25,"y":0.5,"side":"submitted")"},
        PlaceCase{"TooNarrow", draftAt(0.004, 0.5), false, std::nullopt,
                  R"(,"x":0.25,"y":0.5,"side":"submitted")"},
        PlaceCase{"TooLow", draftAt(0.5, 0.004), false, std::nullopt,
                  R"(,"x":0.25,"y":0.5,"side":"submitted")"},
        PlaceCase{"OnAFinding", draftAt(0.5, 0.25, "t1", "f1"), false, std::nullopt,
                  R"(,"x":0.25,"y":0.5,"w":0.5,"h":0.25,"side":"submitted","finding_id":"f1")"},
        PlaceCase{"OnAnotherFinding", draftAt(0, 0, "t1", "f1"), false, "f2",
                  R"(,"x":0.25,"y":0.5,"side":"submitted","finding_id":"f2")"},
        PlaceCase{"DraftBeforePin", draftAt(0, 0), true, std::nullopt,
                  R"(,"x":0.25,"y":0.5,"side":"submitted")"},
        PlaceCase{"Pin", std::nullopt, true, std::nullopt, R"(,"x":0.75,"y":0.125)"},
        PlaceCase{"PinOnAFinding", std::nullopt, true, "f2",
                  R"(,"x":0.75,"y":0.125,"finding_id":"f2")"},
        PlaceCase{"OthersDraft", draftAt(0.5, 0.5, "t2", "f1"), false, std::nullopt, ""},
        PlaceCase{"OthersDraftAndPin", draftAt(0.5, 0.5, "t2"), true, std::nullopt,
                  R"(,"x":0.75,"y":0.125)"}),
    [](const auto& each) { return each.param.name; });

struct VersionCase {
  const char* name;
  std::optional<FileDetail> detail;
  const char* version;  // as the body tells it, or nothing
};
BOOST_DESCRIBE_STRUCT(VersionCase, (), (name, detail, version))

FileDetail versionOf(std::optional<Int> ofDetail, std::optional<Int> ofFile) {
  FileDetail detail = detailOf(ticketAt("t1", 1, ofFile));
  detail.version = ofDetail;
  return detail;
}

class NoteVersions : public WrittenNote, public testing::WithParamInterface<VersionCase> {};

TEST_P(NoteVersions, ComeFromTheDetail) {
  if (GetParam().detail) store().details.set({{"t1", *GetParam().detail}});
  write("Move it.");
  EXPECT_EQ(body(), std::string{R"({"file_id":"t1","page":2,"text":"Move it.","tags":[])"} +
                        GetParam().version + "}");
}

INSTANTIATE_TEST_SUITE_P(
    All, NoteVersions,
    testing::Values(VersionCase{"NoDetail", std::nullopt, ""},
                    VersionCase{"OfTheDetail", versionOf(3, 2), R"(,"version":3)"},
                    VersionCase{"OfItsTicket", versionOf(std::nullopt, 2), R"(,"version":2)"},
                    VersionCase{"OfNeither", versionOf(std::nullopt, std::nullopt),
                                R"(,"version":1)"}),
    [](const auto& each) { return each.param.name; });

TEST_F(WrittenNote, FetchesItsOwnTicketWhicheverIsOnShow) {
  write("Move it.");
  store().board.set(boardOf({file, ticketAt("t2", 1)}));
  store().selection.set({"t2"});
  answer(0, answerOf(200, "{}"));
  EXPECT_EQ(detailRequests("t1"), 1U);
  EXPECT_EQ(detailRequests("t2"), 0U);
}

struct RefusedNote {
  const char* name;
  HttpResult answer;
  const char* text;
};
BOOST_DESCRIBE_STRUCT(RefusedNote, (), (name, text))

class RefusedNotes : public WrittenNote, public testing::WithParamInterface<RefusedNote> {};

TEST_P(RefusedNotes, AreSaidAndNothingIsFetchedOrPutBack) {
  store().draft.set(draftAt(0.1, 0.1));
  write("Move it.");
  answer(0, GetParam().answer);
  EXPECT_EQ(desk.toastText(), GetParam().text);
  EXPECT_THAT(lines(), ElementsAre(kPost));
  EXPECT_FALSE(store().draft());
  EXPECT_TRUE(store().busy().empty());
  EXPECT_TRUE(store().signedIn());
}

INSTANTIATE_TEST_SUITE_P(
    All, RefusedNotes,
    testing::Values(RefusedNote{"Refused", answerOf(409, R"({"error":"The page is gone."})"),
                                "The page is gone."},
                    RefusedNote{"Broken", answerOf(500), kRefusedText},
                    RefusedNote{"Offline", std::unexpected(HttpError::notConnected), kOfflineText}),
    [](const auto& each) { return each.param.name; });

TEST_F(WrittenNote, ThatJsonCannotHoldDidNotGoThrough) {
  write("\xff");
  EXPECT_EQ(desk.toastText(), "That didn't go through. Try again.");
  EXPECT_TRUE(desk.http.exchanges.empty());
  EXPECT_TRUE(store().busy().empty());
}

TEST_F(WrittenNote, SignsOutWhenItIsNotKnown) {
  store().draft.set(draftAt(0.1, 0.1));
  write("Move it.");
  answer(0, answerOf(401));
  EXPECT_FALSE(store().signedIn());
  EXPECT_EQ(desk.toastText(), kSignedOutText);
  EXPECT_THAT(lines(), ElementsAre(kPost));
  EXPECT_FALSE(store().draft());
  EXPECT_TRUE(store().busy().empty());
}

TEST_F(WrittenNote, OutlivesASignOutInTheMiddle) {
  write("Move it.");
  store().signOut(true);
  answer(0, answerOf(200, "{}"));
  EXPECT_THAT(lines(), ElementsAre(kPost));
  EXPECT_EQ(desk.toastText(), kSignedOutText);
  EXPECT_TRUE(store().busy().empty());
}

TEST_F(WrittenNote, OutlivesTheStore) {
  write("Move it.");
  desk.endStore();
  answer(0, answerOf(200, "{}"));
  EXPECT_EQ(desk.http.exchanges.size(), 1U);
}

}  // namespace
}  // namespace vellix
