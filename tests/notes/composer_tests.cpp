// Writing a note on the open page.
#include "notes/composer.hpp"

#include "notes/notes_test.hpp"

namespace vellix {
namespace {

using Lines = std::vector<std::string>;

class Composing : public NotesTest {
 protected:
  Composing() { show(); }

  ComposerView view() { return composer(store(), detail); }
};

TEST_F(Composing, NamesTheOpenPage) {
  EXPECT_EQ(view().title, "Note on page 1");
  store().page.set({{"t1", 1}});
  EXPECT_EQ(view().title, "Note on page iv");
  store().page.set({{"t1", 99}});
  EXPECT_EQ(view().title, "Note on page 3") << "held to the pages there are";
  detail.file.pages.reset();
  EXPECT_EQ(view().title, "Note on page 1");
}

TEST_F(Composing, HintsAtThePageWhileItTakesClicks) {
  EXPECT_EQ(view().hint, "Or click the page");
  store().prefs.drawToComment.set(false);
  EXPECT_EQ(view().hint, "");
}

TEST_F(Composing, SaysThatItIsPosting) {
  EXPECT_EQ(view().post, "Post");
  EXPECT_FALSE(view().posting);
  store().busy.set({"n-note"});
  EXPECT_FALSE(view().posting);
  store().busy.set({"note"});
  EXPECT_EQ(view().post, "Posting…");
  EXPECT_TRUE(view().posting);
}

TEST_F(Composing, PostsTheTrimmedTextOnThePageAsAWhole) {
  store().page.set({{"t1", 1}});
  EXPECT_TRUE(postNote(store(), "\n Too dark \u2003", {kJorvas}));
  EXPECT_EQ(sent(), Lines{R"(POST api/comments {"file_id":"t1","page":1,"text":"Too dark",)"
                          R"("tags":["jorvas@tessarine.example"],"version":1})"});
}

TEST_F(Composing, PostsNoBlanks) {
  for (const char* blank : {"", " ", "\n\t ", "\u00a0\u2003\u3000"}) {
    EXPECT_TRUE(isBlank(blank));
    EXPECT_FALSE(postNote(store(), blank, {kJorvas}));
  }
  EXPECT_FALSE(isBlank(" . "));
  EXPECT_EQ(sent(), Lines{});
}

TEST_F(Composing, PostsOneAtATime) {
  store().busy.set({"note"});
  EXPECT_FALSE(postNote(store(), "Too dark", {}));
  EXPECT_EQ(sent(), Lines{});
}

TEST_F(Composing, PostsNothingWithoutATicket) {
  store().selection.set({});
  EXPECT_FALSE(postNote(store(), "Too dark", {}));
  EXPECT_EQ(sent(), Lines{});
}

TEST_F(Composing, LeavesTheDraftItsPlace) {
  const DraftNote draft{"t1", 0, "supplier", 0.25, 0.5, 0.25, 0.5, "f1"};
  store().draft.set(draft);
  EXPECT_TRUE(postNote(store(), "Too dark", {}));
  EXPECT_EQ(sent(), Lines{R"(POST api/comments {"file_id":"t1","page":0,"text":"Too dark",)"
                          R"("tags":[],"version":1})"});
  EXPECT_EQ(store().draft(), draft);
}

}  // namespace
}  // namespace vellix
