// The notes beside the page, as they are read, changed and written, while polls come in.
#include <QClipboard>

#include "views/notes_test.hpp"

namespace vellix {
namespace {

class NotesViews : public NotesViewTest {
 protected:
  NotesViews() {
    serveTheDay();
    store().details.set(
        {{"t1", withNotes({noteBy("n1", "renny"), noteBy("n2", "jorvas", "Later")})}});
    desk.time.run();
    show("Notes/NotesSection", {{"notes", models()["notes"]}, {"pictures", models()["pictures"]}},
         {300, 700});
    calm();
  }
  QQuickItem* composer() { return seen(window()->contentItem(), "Composer").constFirst(); }
  // Opens the menu of the only note that has one.
  void openMenu() {
    ASSERT_TRUE(press("Edit or delete"));
    ASSERT_TRUE(comes([this] { return offers("Edit"); }));
  }
  void edit() {
    openMenu();
    ASSERT_TRUE(press("Edit", QAccessible::MenuItem));
    ASSERT_TRUE(comes([this] { return !offers("Edit") && keyedName() == "Note"; }));
  }
  void openTags() {
    ASSERT_TRUE(press("Tag people"));
    ASSERT_TRUE(comes([this] { return reader().find("Tag people", QAccessible::PopupMenu); }));
  }
  double lines() { return field(kField)->parentItem()->parentItem()->height(); }
};

TEST_F(NotesViews, TellEachNote) {
  Note tagged = noteBy("n3", "jorvas", "For you");
  tagged.tags = std::vector<std::string>{"renny@tessarine.example", "gone@tessarine.example"};
  Note done = noteBy("n4", "jorvas", "Long done");
  done.resolved = 1;
  done.resolved_by = "jorvas@tessarine.example";
  bring({noteBy("n1", "renny"), tagged, done});
  EXPECT_TRUE(reader().find("Notes", QAccessible::Heading));
  EXPECT_EQ(reader().names(QAccessible::ListItem).size(), 3);
  for (const QString text : {"1", "2", "You", "Jorvas", "Too dark", "For you", "Long done",
                             "gone@tessarine.example", "Note on page 1", "Or click the page"}) {
    EXPECT_TRUE(says(text)) << text.toStdString();
  }
  EXPECT_FALSE(says("3"));
  EXPECT_FALSE(says("No notes on this page yet."));
  EXPECT_EQ(reader().enabled("Edit or delete"), 1);
  EXPECT_EQ(reader().enabled("Resolve"), 2);
  EXPECT_EQ(reader().enabled("Resolved by Jorvas. Reopen it."), 1);
  const auto rows = seen(window()->contentItem(), "NoteRow");
  ASSERT_EQ(rows.size(), 3);
  const auto grounds = [](const QQuickItem* row) {
    return std::ranges::count_if(row->childItems(), [](const QQuickItem* each) {
      return isOfType(each, "QQuickRectangle") && each->isVisible();
    });
  };
  EXPECT_EQ(grounds(rows[0]), 0);
  EXPECT_EQ(rows[0]->property("pad").toInt(), 0);
  EXPECT_EQ(grounds(rows[1]), 1) << "it tags who is signed in";
  EXPECT_EQ(rows[1]->property("pad").toInt(), 8);
}

TEST_F(NotesViews, SayThatThereAreNone) {
  bring({});
  EXPECT_TRUE(says("No notes on this page yet."));
  EXPECT_TRUE(field(kField));
}

TEST_F(NotesViews, ResolveANoteOfSomebodyElse) {
  const auto rows = seen(window()->contentItem(), "NoteRow");
  ASSERT_EQ(rows.size(), 2);
  bring({noteBy("n2", "jorvas")});
  ASSERT_TRUE(press("Resolve"));
  EXPECT_EQ(posted("api/comments/n2"), std::vector<std::string>{R"({"resolved":true})"});
  ASSERT_TRUE(press("Resolve"));
  EXPECT_EQ(posted("api/comments/n2").size(), 1U) << "it is on its way";
  EXPECT_FALSE(item("Edit or delete"));
}

TEST_F(NotesViews, DeleteAtTheSecondPressAlone) {
  openMenu();
  ASSERT_TRUE(press("Delete…", QAccessible::MenuItem));
  EXPECT_TRUE(offers("Delete this note?"));
  EXPECT_FALSE(offers("Delete…"));
  key(Qt::Key_Escape);
  ASSERT_TRUE(comes([this] { return !offers("Edit"); }));
  EXPECT_TRUE(posted("api/comments/n1").empty());
  openMenu();
  ASSERT_TRUE(press("Delete this note?", QAccessible::MenuItem));
  EXPECT_EQ(posted("api/comments/n1"), std::vector<std::string>{R"({"deleted":true})"});
  EXPECT_TRUE(comes([this] { return !offers("Edit"); }));
}

TEST_F(NotesViews, AskAnewOnceTheRowIsBuiltAnew) {
  openMenu();
  ASSERT_TRUE(press("Delete…", QAccessible::MenuItem));
  bring({noteBy("n1", "renny", "Darker")});
  EXPECT_TRUE(offers("Delete this note?")) << "a poll does not build it anew";
  bring({});
  bring({noteBy("n1", "renny")}, 3);
  ASSERT_TRUE(comes([this] { return !offers("Edit"); }));
  openMenu();
  EXPECT_TRUE(offers("Delete…"));
}

TEST_F(NotesViews, AskOfOneNoteAlone) {
  bring({noteBy("n1", "renny"), noteBy("n2", "jorvas"), noteBy("n3", "renny")});
  openMenu();
  ASSERT_TRUE(press("Delete…", QAccessible::MenuItem));
  key(Qt::Key_Escape);
  ASSERT_TRUE(comes([this] { return !offers("Edit"); }));
  bring({noteBy("n3", "renny")}, 3);
  openMenu();
  EXPECT_TRUE(offers("Delete…"));
}

TEST_F(NotesViews, DeleteNothingAtADoubleClick) {
  QGuiApplication::styleHints()->setMouseDoubleClickInterval(60'000);
  openMenu();
  QQuickItem* entry = item("Delete…", QAccessible::MenuItem);
  ASSERT_TRUE(entry);
  const QPoint spot = entry->mapToScene({20, 10}).toPoint();
  QTest::mouseMove(window(), spot);
  settle();
  QTest::mouseClick(window(), Qt::LeftButton, {}, spot);
  settle();
  QTest::mouseClick(window(), Qt::LeftButton, {}, spot);
  settle();
  EXPECT_TRUE(posted("api/comments/n1").empty());
  EXPECT_TRUE(offers("Delete this note?"));
}

TEST_F(NotesViews, DeleteAtOnceForWhoHasNoPointerOnIt) {
  QGuiApplication::styleHints()->setMouseDoubleClickInterval(60'000);
  openMenu();
  ASSERT_TRUE(press("Delete…", QAccessible::MenuItem));
  ASSERT_TRUE(press("Delete this note?", QAccessible::MenuItem));
  EXPECT_EQ(posted("api/comments/n1"), std::vector<std::string>{R"({"deleted":true})"});
}

TEST_F(NotesViews, OfferNothingOfANoteThatIsBeingChanged) {
  store().busy.set({"n-n1"});
  openMenu();
  EXPECT_EQ(reader().enabled("Edit", QAccessible::MenuItem), 0);
  EXPECT_EQ(reader().enabled("Delete…", QAccessible::MenuItem), 0);
}

TEST_F(NotesViews, OfferNoEditOfWhatTheyCutShort) {
  bring({noteBy("n1", "renny", std::string(20'001, 'w'))});
  openMenu();
  EXPECT_EQ(reader().enabled("Edit", QAccessible::MenuItem), 0);
  EXPECT_EQ(reader().enabled("Delete…", QAccessible::MenuItem), 1);
}

TEST_F(NotesViews, HandTheKeyboardOnFromANoteThatGoes) {
  bring({noteBy("n1", "renny"), noteBy("n2", "jorvas"), noteBy("n3", "jorvas")});
  focus(item("Edit or delete"));
  bring({noteBy("n2", "jorvas"), noteBy("n3", "jorvas")}, 3);
  QQuickItem* first = seen(window()->contentItem(), "NoteRow")[0];
  EXPECT_TRUE(first->isAncestorOf(keyed())) << keyedName().toStdString();
  bring({noteBy("n3", "jorvas")}, 4);
  EXPECT_EQ(keyedName(), "Resolve");
  bring({}, 5);
  EXPECT_EQ(keyedName(), kField);
}

TEST_F(NotesViews, EditANoteAndSaveIt) {
  edit();
  EXPECT_EQ(textOf(keyed()), "Too dark");
  EXPECT_FALSE(says("Too dark"));
  type("er");
  ASSERT_TRUE(press("Save"));
  EXPECT_EQ(posted("api/comments/n1"), std::vector<std::string>{R"({"text":"Too darker"})"});
  EXPECT_FALSE(field("Note"));
  EXPECT_EQ(keyedName(), "Edit or delete");
}

TEST_F(NotesViews, SaveByKey) {
  edit();
  key(Qt::Key_Return);
  type("it");
  key(Qt::Key_Return, Qt::ControlModifier);
  EXPECT_EQ(posted("api/comments/n1"), std::vector<std::string>{R"({"text":"Too dark\nit"})"});
  EXPECT_FALSE(field("Note"));
}

TEST_F(NotesViews, SaveNoBlanks) {
  edit();
  key(Qt::Key_A, Qt::ControlModifier);
  key(Qt::Key_Space);
  EXPECT_EQ(reader().enabled("Save"), 0);
  key(Qt::Key_Return, Qt::ControlModifier);
  EXPECT_TRUE(posted("api/comments/n1").empty());
  EXPECT_TRUE(field("Note"));
}

TEST_F(NotesViews, CancelAnEdit) {
  for (const bool byKey : {false, true}) {
    edit();
    type("!");
    if (byKey) {
      key(Qt::Key_Escape);
    } else {
      ASSERT_TRUE(press("Cancel"));
    }
    EXPECT_FALSE(field("Note"));
    EXPECT_TRUE(says("Too dark"));
    EXPECT_EQ(keyedName(), "Edit or delete");
  }
  EXPECT_TRUE(posted("api/comments/n1").empty());
}

TEST_F(NotesViews, LetPollsComeInWhileANoteIsEdited) {
  edit();
  type("er");
  key(Qt::Key_Left);
  QQuickItem* before = keyed();
  bring({noteBy("n0", "jorvas"), noteBy("n1", "renny", "Much too dark"), noteBy("n2", "jorvas")});
  EXPECT_EQ(keyed(), before);
  type("d");
  EXPECT_EQ(textOf(before), "Too darkedr");
}

TEST_F(NotesViews, LetPollsComeInWhileAMenuIsOpen) {
  focus(item("Edit or delete"));
  key(Qt::Key_Space);
  ASSERT_TRUE(comes([this] { return keyedName() == "Edit"; }));
  key(Qt::Key_Down);
  ASSERT_EQ(keyedName(), "Delete…");
  bring({noteBy("n0", "jorvas"), noteBy("n1", "renny", "Much too dark"), noteBy("n2", "jorvas")});
  EXPECT_EQ(keyedName(), "Delete…");
  EXPECT_TRUE(says("Much too dark"));
  key(Qt::Key_Escape);
  EXPECT_TRUE(comes([this] { return keyedName() == "Edit or delete"; }));
}

TEST_F(NotesViews, OpenTheComposerWithTheKeyboard) {
  const double idle = lines();
  EXPECT_FALSE(item("Post"));
  focus(field(kField));
  EXPECT_GT(lines(), idle);
  EXPECT_TRUE(item("Post"));
  EXPECT_TRUE(says("Ctrl+Return to post"));
  EXPECT_TRUE(item("Tag people"));
  EXPECT_EQ(reader().enabled("Post"), 0);
  focus(item("Edit or delete"));
  EXPECT_EQ(lines(), idle);
  EXPECT_FALSE(item("Post"));
}

TEST_F(NotesViews, StayOpenWhileTheyHoldAnything) {
  focus(field(kField));
  const double two = lines();
  type("x");
  focus(item("Edit or delete"));
  EXPECT_EQ(lines(), two);
  EXPECT_TRUE(item("Post"));
  field(kField)->setProperty("text", "");
  settle();
  EXPECT_FALSE(item("Post"));
}

TEST_F(NotesViews, GrowFromTwoLinesToSix) {
  focus(field(kField));
  const double two = lines();
  QList<double> heights;
  for (int row = 0; row < 8; ++row) {
    key(Qt::Key_Return);
    heights.append(lines());
  }
  EXPECT_EQ(heights[0], two) << "two lines";
  EXPECT_GT(heights[1], two);
  EXPECT_GT(heights[4], heights[3]) << "six lines";
  EXPECT_NEAR(heights[4], 3 * two, 0.01);
  EXPECT_EQ(heights[5], heights[4]);
  EXPECT_EQ(heights[7], heights[4]);
  // The caret is in sight at the end and at the beginning.
  const auto caret = [this] {
    QQuickItem* edit = field(kField);
    const QRectF spot = edit->property("cursorRectangle").toRectF();
    QQuickItem* view = edit->parentItem()->parentItem();
    return view->boundingRect().contains(edit->mapRectToItem(view, spot));
  };
  EXPECT_TRUE(caret());
  key(Qt::Key_Home, Qt::ControlModifier);
  EXPECT_TRUE(caret());
  key(Qt::Key_PageDown);
  EXPECT_GT(keyed()->property("cursorPosition").toInt(), 3);
  EXPECT_TRUE(caret());
  key(Qt::Key_Down, Qt::ControlModifier);
  EXPECT_EQ(keyed()->property("cursorPosition").toInt(), 8);
  key(Qt::Key_PageUp, Qt::ShiftModifier);
  EXPECT_GT(keyed()->property("selectedText").toString().size(), 2);
  key(Qt::Key_Up, Qt::ControlModifier);
  EXPECT_EQ(keyed()->property("cursorPosition").toInt(), 0);
}

TEST_F(NotesViews, PostByTheButtonAndKeepTheKeyboard) {
  focus(field(kField));
  type(" a note ");
  focus(item("Post"));
  key(Qt::Key_Space);
  ASSERT_EQ(posted("api/comments").size(), 1U);
  EXPECT_NE(posted("api/comments")[0].find(R"("page":0,"text":"a note","tags":[])"),
            std::string::npos);
  EXPECT_EQ(keyedName(), kField);
  EXPECT_EQ(textOf(keyed()), "");
  EXPECT_TRUE(item("Posting…"));
  EXPECT_EQ(reader().enabled("Posting…"), 0);
}

TEST_F(NotesViews, PostByKeyFromAnywhereInThem) {
  focus(field(kField));
  type("one");
  key(Qt::Key_Return, Qt::ControlModifier);
  ASSERT_EQ(posted("api/comments").size(), 1U);
  type("two");
  key(Qt::Key_Return, Qt::ControlModifier);
  EXPECT_EQ(posted("api/comments").size(), 1U) << "one at a time";
  EXPECT_EQ(textOf(field(kField)), "two");
  store().busy.set({});
  settle();
  focus(item("Tag people"));
  key(Qt::Key_Enter, Qt::ControlModifier | Qt::KeypadModifier);
  EXPECT_EQ(posted("api/comments").size(), 2U);
}

TEST_F(NotesViews, PostNoBlanks) {
  focus(field(kField));
  key(Qt::Key_Space);
  key(Qt::Key_Return);
  EXPECT_EQ(reader().enabled("Post"), 0);
  key(Qt::Key_Return, Qt::ControlModifier);
  press("Post");
  EXPECT_TRUE(posted("api/comments").empty());
  EXPECT_EQ(textOf(keyed()), " \n");
}

TEST_F(NotesViews, TakeTheirTextAlongToAnotherPage) {
  focus(field(kField));
  type("a note");
  store().goToPage("t1", 2);
  settle();
  EXPECT_TRUE(says("Note on page 3"));
  EXPECT_EQ(textOf(field(kField)), "a note");
  EXPECT_EQ(keyedName(), kField);
  key(Qt::Key_Return, Qt::ControlModifier);
  ASSERT_EQ(posted("api/comments").size(), 1U);
  EXPECT_NE(posted("api/comments")[0].find(R"("page":2,)"), std::string::npos);
}

TEST_F(NotesViews, PutNothingBackThatCouldNotBePosted) {
  routes.set("POST api/comments", answerOf(500));
  focus(field(kField));
  type("a note");
  key(Qt::Key_Return, Qt::ControlModifier);
  EXPECT_EQ(desk.toastText(), kRefusedText);
  EXPECT_EQ(textOf(field(kField)), "");
  EXPECT_TRUE(item("Post"));
}

TEST_F(NotesViews, TagPeopleByTheMenu) {
  focus(field(kField));
  openTags();
  EXPECT_EQ(reader().names(QAccessible::MenuItem), QStringList{"Jorvas"});
  EXPECT_EQ(reader().find("Jorvas", QAccessible::MenuItem)->text(QAccessible::Description),
            "Tag Jorvas");
  ASSERT_TRUE(press("Jorvas", QAccessible::MenuItem));
  EXPECT_EQ(seen(composer(), "TagChip").size(), 1);
  auto* entry = reader().find("Jorvas", QAccessible::MenuItem);
  EXPECT_EQ(entry->text(QAccessible::Description), "Tagged");
  EXPECT_TRUE(entry->state().checked);
  key(Qt::Key_Escape);
  ASSERT_TRUE(comes([this] { return keyedName() == kField; }));
  type("See");
  key(Qt::Key_Return, Qt::ControlModifier);
  ASSERT_EQ(posted("api/comments").size(), 1U);
  EXPECT_NE(posted("api/comments")[0].find(R"("tags":["jorvas@tessarine.example"])"),
            std::string::npos);
  EXPECT_TRUE(seen(composer(), "TagChip").isEmpty());
}

TEST_F(NotesViews, StayOpenWhileTheirMenuIs) {
  focus(item("Edit or delete"));
  focus(field(kField));
  focus(item("Tag people"));
  key(Qt::Key_Space);
  ASSERT_TRUE(comes([this] { return keyedName() == "Jorvas"; }));
  EXPECT_TRUE(item("Post"));
  bring({noteBy("n2", "jorvas")});
  EXPECT_EQ(keyedName(), "Jorvas") << "after a poll";
  key(Qt::Key_Escape);
  EXPECT_TRUE(comes([this] { return keyedName() == "Tag people"; }));
}

TEST_F(NotesViews, LetPollsComeInWhileANoteIsWritten) {
  focus(field(kField));
  type("a nte");
  key(Qt::Key_Left);
  key(Qt::Key_Left);
  bring({noteBy("n0", "jorvas")});
  EXPECT_EQ(keyedName(), kField);
  type("o");
  EXPECT_EQ(textOf(keyed()), "a note");
  key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_NE(textOf(keyed()), "a note");
}

TEST_F(NotesViews, LeaveTheFieldByTab) {
  focus(field(kField));
  type("x");
  key(Qt::Key_Tab);
  EXPECT_EQ(keyedName(), "Tag people");
  EXPECT_TRUE(keyed()->property("visualFocus").toBool());
  key(Qt::Key_Tab);
  EXPECT_EQ(keyedName(), "Post");
  key(Qt::Key_Backtab, Qt::ShiftModifier);
  key(Qt::Key_Backtab, Qt::ShiftModifier);
  EXPECT_EQ(keyedName(), kField);
  key(Qt::Key_Backtab, Qt::ShiftModifier);
  EXPECT_EQ(keyedName(), "Resolve");
  EXPECT_EQ(textOf(field(kField)), "x");
}

TEST_F(NotesViews, TakeAVeryLongTextAndEveryScript) {
  focus(field(kField));
  QString text;
  while (text.size() < 100'000) text += u"word \u05e9\u05dc\u05d5\u05dd \U0001f600 wordwithoutend ";
  QGuiApplication::clipboard()->setText(text);
  key(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(textOf(keyed()).size(), text.size());
  EXPECT_LT(lines(), 140) << "six lines";
  type("!");
  key(Qt::Key_Return, Qt::ControlModifier);
  ASSERT_EQ(posted("api/comments").size(), 1U);
  EXPECT_NE(posted("api/comments")[0].find("\u05e9\u05dc\u05d5\u05dd \U0001f600"),
            std::string::npos);
}

TEST_F(NotesViews, SetATextFromTheSideThatItIsReadFrom) {
  focus(field(kField));
  keyed()->setProperty("text", u"\u05e9\u05dc\u05d5\u05dd"_qs);
  EXPECT_EQ(keyed()->property("effectiveHorizontalAlignment").toInt(), Qt::AlignRight);
  keyed()->setProperty("text", "word");
  EXPECT_EQ(keyed()->property("effectiveHorizontalAlignment").toInt(), Qt::AlignLeft);
}

TEST_F(NotesViews, KeepWhatIsWrittenInSightOfThePanel) {
  bring({noteBy("n1", "renny"), noteBy("n2", "jorvas"), noteBy("n3", "jorvas")});
  show("Inspector/Inspector",
       {{"inspector", models()["inspector"]},
        {"notes", models()["notes"]},
        {"history", models()["history"]},
        {"pictures", models()["pictures"]}},
       {300, 260});
  calm();
  const auto inSight = [this](QQuickItem* at, QRectF part) {
    return QRectF{0, 0, 300, 260}.contains(at->mapRectToScene(part));
  };
  const auto caret = [&] {
    return inSight(keyed(), keyed()->property("cursorRectangle").toRectF());
  };
  focus(field(kField));
  EXPECT_TRUE(inSight(item("Post"), item("Post")->boundingRect()));
  for (int row = 0; row < 12; ++row) {
    key(Qt::Key_Return);
    EXPECT_TRUE(caret()) << row;
    EXPECT_TRUE(inSight(item("Post"), item("Post")->boundingRect())) << row;
  }
  key(Qt::Key_Home, Qt::ControlModifier);
  EXPECT_TRUE(caret());
  // Who scrolls away is left there by a poll.
  QQuickItem* scroll = seen(window()->contentItem(), "ScrollArea")[0];
  scroll->setProperty("contentY", 0);
  bring({noteBy("n0", "jorvas"), noteBy("n1", "renny")}, 3);
  EXPECT_EQ(scroll->property("contentY"), 0);
}

TEST_F(NotesViews, HoldLongWordsWithinTheirWidth) {
  Note note = noteBy("n1", "renny", std::string(400, 'w'));
  note.tags = std::vector<std::string>{std::string(90, 't') + "@tessarine.example"};
  bring({note, noteBy("n2", std::string(90, 'n'))});
  for (const char* type : {"Label", "TagChip", "IconButton"}) {
    for (const QQuickItem* each : seen(window()->contentItem(), type)) {
      EXPECT_LE(each->mapRectToScene(each->boundingRect()).right(), 300) << type;
    }
  }
}

TEST_F(NotesViews, StandWithTwoHundredNotes) {
  std::vector<Note> notes;
  notes.reserve(200);
  for (int i = 0; i < 200; ++i) notes.push_back(noteBy("m" + std::to_string(i), "renny"));
  bring(notes);
  EXPECT_EQ(reader().names(QAccessible::ListItem).size(), 200);
  EXPECT_TRUE(says("200"));
}

}  // namespace
}  // namespace vellix
