// What the notes' model tells its views.
#include <QSignalSpy>

#include "notes/NotesModel.hpp"
#include "store/store_test.hpp"

namespace vellix {
namespace {

const std::string kMine = "renny@tessarine.example";
const QString kOther = QStringLiteral("jorvas@tessarine.example");

class NotesModels : public StoreTest {
 protected:
  NotesModels() {
    serve();
    poll();
  }

  static Note noteOn(std::string id, Int page = 0) {
    Note note;
    note.id = std::move(id);
    note.file_id = "t1";
    note.page = page;
    note.text = "Too dark";
    note.by = kMine;
    return note;
  }
  void serve(std::vector<Note> notes = {noteOn("n1"), noteOn("n2"), noteOn("n3", 1)}, Int rev = 1) {
    FileDetail detail = detailOf(ticketAt("t1", rev));
    detail.file.pages = pagesOf(2);
    detail.comments = std::move(notes);
    FileItem file = detail.file;
    file.pages.reset();
    const std::string tag = std::to_string(rev);
    serveBoard(boardOf({file}), "\"b" + tag + "\"");
    serveDetail(detail, "\"d" + tag + "\"");
  }
  // The ticket is on show when the model comes up.
  NotesModel& model() {
    if (!model_) model_.emplace(store(), desk.time, desk.calendar);
    return *model_;
  }
  QStringList ids() {
    QStringList all;
    const auto rows = model().rows();
    for (const QVariant& row : rows) all.append(row.toMap()["id"].toString());
    return all;
  }
  static DraftNote draftOn(Int page, double x = 0.5) {
    return {"t1", page, "supplier", x, 0.5, 0, 0, std::nullopt};
  }

 private:
  std::optional<NotesModel> model_;
};

TEST_F(NotesModels, TellOfTheOpenPage) {
  EXPECT_EQ(ids(), (QStringList{"n1", "n2"}));
  EXPECT_EQ(model().composer()["title"], "Note on page 1");
  store().goToPage("t1", 1);
  desk.time.run();
  EXPECT_EQ(ids(), QStringList{"n3"});
  EXPECT_EQ(model().composer()["title"], "Note on page 2");
}

TEST_F(NotesModels, SignalOnlyWhatDiffers) {
  const QSignalSpy rows{&model(), &NotesModel::rowsChanged};
  const QSignalSpy composers{&model(), &NotesModel::composerChanged};
  const QSignalSpy drafts{&model(), &NotesModel::draftChanged};
  poll();
  serve({noteOn("n1"), noteOn("n2"), noteOn("n3", 1), noteOn("n4", 1)}, 2);
  poll();
  EXPECT_EQ(rows.count() + composers.count() + drafts.count(), 0) << "another page's note";
  serve({noteOn("n1"), noteOn("n3", 1)}, 3);
  poll();
  EXPECT_EQ(rows.count(), 1);
  EXPECT_EQ(composers.count() + drafts.count(), 0);
}

TEST_F(NotesModels, LetTheMinutesPassWithThePolls) {
  Note note = noteOn("n1");
  note.at = wireOf(desk.time.now()) - 120'000;
  serve({note}, 2);
  poll();
  EXPECT_EQ(model().rows()[0].toMap()["when"], "2 min ago");
  desk.time.advance(Milliseconds{60'000});
  poll();
  EXPECT_EQ(model().rows()[0].toMap()["when"], "3 min ago");
}

TEST_F(NotesModels, AreEmptiedBySigningOut) {
  store().draft.set(draftOn(0));
  desk.time.run();
  ASSERT_FALSE(ids().isEmpty());
  store().signOut(false);
  desk.time.run();
  EXPECT_TRUE(ids().isEmpty());
  EXPECT_EQ(model().composer()["title"], "");
  EXPECT_FALSE(model().draft()["here"].toBool());
}

TEST_F(NotesModels, LeaveNothingThatWasWrittenToTheNextSession) {
  store().draft.set(draftOn(0));
  desk.time.run();
  model().setDraftText("Mine alone");
  model().draftTags()->press(kOther);
  store().signOut(false);
  desk.time.run();
  EXPECT_EQ(model().draftText(), "");
  EXPECT_TRUE(model().draftTags()->empty());
  desk.api.setToken("token-2");
  store().signedIn.set(true);
  poll();
  EXPECT_FALSE(model().draft()["here"].toBool());
}

TEST_F(NotesModels, FollowThePreferenceAndTheWorkUnderWay) {
  model();
  store().prefs.drawToComment.set(false);
  store().busy.set({"note", "n-n2"});
  desk.time.run();
  EXPECT_EQ(model().composer()["hint"], "");
  EXPECT_EQ(model().composer()["post"], "Posting…");
  EXPECT_FALSE(model().rows()[0].toMap()["busy"].toBool());
  EXPECT_TRUE(model().rows()[1].toMap()["busy"].toBool());
}

TEST_F(NotesModels, PostAndEmptyTheTags) {
  Tags tags;
  tags.setNotes(&model());
  tags.press(kOther);
  EXPECT_FALSE(model().post("  ", &tags));
  EXPECT_FALSE(tags.empty());
  EXPECT_TRUE(model().post("Too dark", &tags));
  EXPECT_TRUE(tags.empty());
  desk.time.run();
  const auto sent = desk.http.matching("POST api/comments");
  ASSERT_EQ(sent.size(), 1U);
  EXPECT_NE(sent[0]->request.body->find(kOther.toStdString()), std::string::npos);
}

TEST_F(NotesModels, ChangeANoteByItsId) {
  model().resolve("n1");
  model().save("n2", "Darker \u05d0\U0001f600");
  desk.time.run();
  EXPECT_EQ(desk.http.matching("POST api/comments/n1").size(), 1U);
  const auto saved = desk.http.matching("POST api/comments/n2");
  ASSERT_EQ(saved.size(), 1U);
  EXPECT_EQ(saved[0]->request.body, "{\"text\":\"Darker \u05d0\U0001f600\"}");
  model().remove("n3");
  desk.time.run();
  EXPECT_EQ(desk.http.matching("POST api/comments/n3").size(), 1U);
}

TEST_F(NotesModels, KeepADraftsWordsAsLongAsTheDraft) {
  const auto write = [this] {
    store().draft.set(draftOn(0));
    desk.time.run();
    model().setDraftText("Too dark");
    if (model().draftTags()->empty()) model().draftTags()->press(kOther);
  };
  const auto kept = [this] {
    desk.time.run();
    return model().draftText() == "Too dark" && !model().draftTags()->empty();
  };
  write();
  EXPECT_TRUE(kept());
  store().draft.set(draftOn(0, 0.75));
  EXPECT_TRUE(kept()) << "it only moved";
  store().goToPage("t1", 1);
  EXPECT_TRUE(kept()) << "it stays on its page";
  EXPECT_FALSE(model().draft()["here"].toBool());
  store().draft.set(draftOn(1));
  EXPECT_FALSE(kept()) << "another one";
  EXPECT_TRUE(model().draftText().isEmpty());
  EXPECT_TRUE(model().draftTags()->empty());
  store().goToPage("t1", 0);
  write();
  model().dropDraft();
  EXPECT_FALSE(kept());
  EXPECT_FALSE(store().draft());
}

TEST_F(NotesModels, PostADraftWithItsWords) {
  store().draft.set(draftOn(0));
  desk.time.run();
  model().postDraft();
  EXPECT_TRUE(store().draft()) << "nothing is written yet";
  model().setDraftText(" Too dark");
  model().draftTags()->press(kOther);
  model().postDraft();
  desk.time.run();
  EXPECT_FALSE(store().draft());
  EXPECT_TRUE(model().draftText().isEmpty());
  EXPECT_TRUE(model().draftTags()->empty());
  const auto sent = desk.http.matching("POST api/comments");
  ASSERT_EQ(sent.size(), 1U);
  EXPECT_NE(sent[0]->request.body->find(R"("text":"Too dark","tags":["jorvas)"), std::string::npos);
}

TEST_F(NotesModels, KeepTheDraftsTitleWhileItLeaves) {
  store().draft.set(draftOn(0));
  desk.time.run();
  EXPECT_EQ(model().draft()["title"], "Note here, p1");
  model().dropDraft();
  desk.time.run();
  EXPECT_FALSE(model().draft()["here"].toBool());
  EXPECT_EQ(model().draft()["title"], "Note here, p1");
}

TEST_F(NotesModels, TellTheTagsOfTheBoardsPeople) {
  Tags tags;
  tags.setNotes(&model());
  const QSignalSpy entries{&tags, &Tags::entriesChanged};
  const QSignalSpy chips{&tags, &Tags::chipsChanged};
  ASSERT_EQ(tags.entries().size(), 1);
  EXPECT_EQ(tags.entries()[0].toMap()["help"], "Tag Jorvas");
  tags.press(kOther);
  EXPECT_EQ(tags.entries()[0].toMap()["help"], "Tagged");
  EXPECT_EQ(tags.chips()[0].toMap()["name"], "Jorvas Lind");
  poll();
  EXPECT_EQ(entries.count(), 1);
  EXPECT_EQ(chips.count(), 1);
  store().board.edit([](std::optional<BoardState>& board) { board->users.pop_back(); });
  desk.time.run();
  EXPECT_TRUE(tags.entries().isEmpty());
  EXPECT_EQ(tags.chips()[0].toMap()["name"], kOther) << "who has left stays tagged";
  tags.press(kOther);
  EXPECT_TRUE(tags.empty());
}

}  // namespace
}  // namespace vellix
