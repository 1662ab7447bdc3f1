// Changing a note that is there.
#include "store/note_test.hpp"

namespace vellix {
namespace {

using testing::ElementsAre;

struct ChangeCase {
  const char* name;
  std::optional<std::string> text;
  std::optional<bool> resolved;
  bool remove;
  const char* body;
  const char* said;
};
BOOST_DESCRIBE_STRUCT(ChangeCase, (), (name, text, resolved, remove, body, said))

class ChangedNotes : public NoteTest, public testing::WithParamInterface<ChangeCase> {
 protected:
  void change() {
    Note note;
    note.id = "n1";
    store().updateNote(note, GetParam().text, GetParam().resolved, GetParam().remove);
    desk.time.run();
  }
};

TEST_P(ChangedNotes, AreSentUnderTheirKeyThenTheTicketIsFetched) {
  store().fileTags["t1#0"] = "\"d1\"";
  change();
  ASSERT_THAT(lines(), ElementsAre("POST api/comments/n1"));
  EXPECT_EQ(body(), GetParam().body);
  EXPECT_THAT(store().busy(), ElementsAre("n-n1"));
  EXPECT_FALSE(store().toast());
  answer(0, answerOf(200, "{}"));
  ASSERT_THAT(lines(), ElementsAre("POST api/comments/n1", kDetail));
  EXPECT_FALSE(desk.http.exchanges[1].has("If-None-Match")) << "by force";
  answer(1, answerOf(200, jsonOf(detailOf(file))));
  EXPECT_EQ(desk.toastText(), GetParam().said);
  EXPECT_FALSE(desk.toast()->undoLabel);
  EXPECT_THAT(store().busy(), ElementsAre("n-n1"));
  answer(2, answerOf(200, jsonOf(boardOf({file}))));
  EXPECT_TRUE(store().busy().empty());
}

TEST_P(ChangedNotes, AreSaidToHaveFailedAndNothingIsFetched) {
  change();
  answer(0, answerOf(500));
  EXPECT_EQ(desk.toastText(), kRefusedText);
  EXPECT_EQ(desk.http.exchanges.size(), 1U);
  EXPECT_TRUE(store().busy().empty());
}

TEST_P(ChangedNotes, FetchNoTicketWhenNoneIsOnShow) {
  serveBoard(boardOf({file}));
  change();
  store().selection.set({"t1", "t2"});
  answer(0, answerOf(200, "{}"));
  EXPECT_THAT(lines(), ElementsAre("POST api/comments/n1", kStateLine));
  EXPECT_EQ(desk.toastText(), GetParam().said);
}

INSTANTIATE_TEST_SUITE_P(
    All, ChangedNotes,
    testing::Values(
        ChangeCase{"Text", "Anew", std::nullopt, false, R"({"text":"Anew"})", "Saved."},
        ChangeCase{"Resolved", std::nullopt, true, false, R"({"resolved":true})", "Resolved."},
        ChangeCase{"Reopened", std::nullopt, false, false, R"({"resolved":false})", "Reopened."},
        ChangeCase{"TextAndResolved", "Anew", true, false, R"({"text":"Anew","resolved":true})",
                   "Resolved."},
        ChangeCase{"Deleted", std::nullopt, std::nullopt, true, R"({"deleted":true})",
                   "Note deleted."},
        ChangeCase{"DeletedAndResolved", std::nullopt, true, true,
                   R"({"resolved":true,"deleted":true})", "Note deleted."},
        ChangeCase{"Nothing", std::nullopt, std::nullopt, false, "{}", "Saved."}),
    [](const auto& each) { return each.param.name; });

}  // namespace
}  // namespace vellix
