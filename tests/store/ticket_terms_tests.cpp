// A ticket's due date, urgency and track.
#include <gmock/gmock.h>

#include "store/store_test.hpp"

namespace vellix {
namespace {

using testing::ElementsAre;

struct TermCase {
  const char* name;
  std::function<void(Store&, const FileItem&)> change;
  const char* key;
  const char* line;
  const char* body;
  const char* said;
};
BOOST_DESCRIBE_STRUCT(TermCase, (), (name, key, line, body, said))

class TicketTerms : public StoreTest, public testing::WithParamInterface<TermCase> {
 protected:
  FileItem file = ticketOf("t1");

  void SetUp() override {
    store().board.set(boardOf({file}));
    routes.set("GET api/files/t1", answerOf(304));
  }
  void change() {
    GetParam().change(store(), file);
    desk.time.run();
  }
};

TEST_P(TicketTerms, ChangeWithTheBoardAlone) {
  store().etag = "\"b1\"";
  change();
  EXPECT_EQ(store().board(), boardOf({file})) << "the service works the deadline out";
  EXPECT_THAT(store().busy(), ElementsAre(GetParam().key));
  ASSERT_THAT(lines(), ElementsAre(GetParam().line));
  EXPECT_EQ(desk.http.exchanges[0].request.body, GetParam().body);
  EXPECT_FALSE(store().toast());
  answer(0, answerOf(200, "{}"));
  EXPECT_EQ(desk.toastText(), GetParam().said);
  EXPECT_FALSE(desk.toast()->undoLabel);
  ASSERT_THAT(lines(), ElementsAre(GetParam().line, kStateLine));
  EXPECT_FALSE(desk.http.exchanges[1].has("If-None-Match"));
  EXPECT_THAT(store().busy(), ElementsAre(GetParam().key));
  FileItem settled = file;
  settled.due = 1'700'000'000'000;
  answer(1, answerOf(200, jsonOf(boardOf({settled}))));
  EXPECT_EQ(store().board()->files[0], settled);
  EXPECT_TRUE(store().busy().empty());
}

TEST_P(TicketTerms, StayWhenTheyAreRefused) {
  change();
  answer(0, answerOf(400, R"({"error":"That is too late."})"));
  EXPECT_EQ(desk.toastText(), "That is too late.");
  EXPECT_THAT(lines(), ElementsAre(GetParam().line));
  EXPECT_EQ(store().board(), boardOf({file}));
  EXPECT_TRUE(store().busy().empty());
}

TEST_P(TicketTerms, SignOutWhenTheyAreNotKnown) {
  change();
  answer(0, answerOf(401));
  EXPECT_FALSE(store().signedIn());
  EXPECT_EQ(desk.toastText(), kSignedOutText);
  EXPECT_TRUE(store().busy().empty());
}

INSTANTIATE_TEST_SUITE_P(
    All, TicketTerms,
    testing::Values(
        TermCase{"Due",
                 [](Store& store, const FileItem& file) {
                   store.setDueDate(file, momentOf(1'700'000'123'456.0));
                 },
                 "due", "POST api/files/t1/due", R"({"due":1700000123456})", "Due date set."},
        TermCase{"Urgent", [](Store& store, const FileItem& file) { store.setUrgent(file, true); },
                 "due", "POST api/files/t1/due", R"({"urgent":true})", "Marked urgent. Due today."},
        TermCase{"NotUrgent",
                 [](Store& store, const FileItem& file) { store.setUrgent(file, false); }, "due",
                 "POST api/files/t1/due", R"({"urgent":false})", "No longer urgent."},
        TermCase{"Reset", [](Store& store, const FileItem& file) { store.resetDue(file); }, "due",
                 "POST api/files/t1/due", R"({"reset":true})", "Due 48 hours after it came in."},
        TermCase{
            "Reprint", [](Store& store, const FileItem& file) { store.setTrack(file, "reprint"); },
            "track", "POST api/files/t1/track", R"({"track":"reprint"})", "Moved to Reprints."},
        TermCase{"NewTitle",
                 [](Store& store, const FileItem& file) { store.setTrack(file, "new_title"); },
                 "track", "POST api/files/t1/track", R"({"track":"new_title"})",
                 "Moved to New titles."}),
    [](const auto& each) { return each.param.name; });

TEST(TicketTermFailures, WithoutADescriptionDidNotGoThrough) {
  Desk desk;
  desk.store().setTrack(ticketOf("t1"), "\xff");
  desk.time.run();
  EXPECT_EQ(desk.toastText(), "That didn't go through. Try again.");
  EXPECT_TRUE(desk.store().busy().empty());
}

}  // namespace
}  // namespace vellix
