// Writing a note at a place of the page.
#include "notes/composer.hpp"
#include "notes/notes_test.hpp"

namespace vellix {
namespace {

using Lines = std::vector<std::string>;

class WrittenDrafts : public NotesTest {
 protected:
  WrittenDrafts() { show(); }

  DraftCardView card() { return draftCard(store(), detail); }
  static DraftNote draftOn(Int page = 0) {
    return {"t1", page, "ours", 0.25, 0.5, 0.125, 0.0625, std::nullopt};
  }
};

TEST_F(WrittenDrafts, TellWhetherTheyHaveAnArea) {
  struct Case {
    double w;
    double h;
    const char* title;
  };
  for (const auto& each :
       {Case{0, 0, "Note here, pv"}, Case{0.004, 0.5, "Note here, pv"},
        Case{0.5, 0.004, "Note here, pv"}, Case{0.0041, 0.0041, "Note on this area, pv"}}) {
    DraftNote draft = draftOn();
    draft.w = each.w;
    draft.h = each.h;
    EXPECT_EQ(draftTitle(draft, "v"), each.title);
  }
}

TEST_F(WrittenDrafts, AreHereOnTheirOwnPageAlone) {
  EXPECT_EQ(card(), DraftCardView{});
  store().draft.set(draftOn(1));
  EXPECT_EQ(card(), DraftCardView{});
  store().page.set({{"t1", 1}});
  EXPECT_EQ(card(), (DraftCardView{true, "Note on this area, piv"}));
  DraftNote other = draftOn(1);
  other.fileID = "t2";
  store().draft.set(other);
  EXPECT_EQ(card(), DraftCardView{});
}

TEST_F(WrittenDrafts, AreTheSameNoteWhileTheyStayOnTheirPage) {
  DraftNote moved = draftOn();
  moved.x = 0.75;
  moved.side = "supplier";
  moved.findingID = "f1";
  DraftNote otherTicket = draftOn();
  otherTicket.fileID = "t2";
  EXPECT_TRUE(samePage(draftOn(), moved));
  EXPECT_FALSE(samePage(draftOn(), draftOn(1)));
  EXPECT_FALSE(samePage(draftOn(), otherTicket));
  EXPECT_FALSE(samePage(draftOn(), std::nullopt));
  EXPECT_FALSE(samePage(std::nullopt, draftOn()));
  EXPECT_FALSE(samePage(std::nullopt, std::nullopt));
}

TEST_F(WrittenDrafts, ArePostedAtTheirPlaceAndEnd) {
  DraftNote draft = draftOn(2);
  draft.findingID = "f7";
  store().draft.set(draft);
  EXPECT_TRUE(postDraft(store(), " Too dark\n", {kJorvas}));
  EXPECT_EQ(sent(), Lines{R"(POST api/comments {"file_id":"t1","page":2,"text":"Too dark",)"
                          R"("tags":["jorvas@tessarine.example"],"version":1,"x":0.25,"y":0.5,)"
                          R"("w":0.125,"h":0.0625,"side":"ours","finding_id":"f7"})"});
  EXPECT_FALSE(store().draft());
}

TEST_F(WrittenDrafts, ArePostedWhileAnotherNoteIsOnItsWay) {
  store().draft.set(draftOn());
  store().busy.set({"note"});
  EXPECT_TRUE(postDraft(store(), "Too dark", {}));
  EXPECT_EQ(sent().size(), 1U);
}

TEST_F(WrittenDrafts, StayWhereNothingCanBePosted) {
  store().draft.set(draftOn());
  EXPECT_FALSE(postDraft(store(), " \n", {kJorvas}));
  EXPECT_TRUE(store().draft());
  DraftNote other = draftOn();
  other.fileID = "t2";
  store().draft.set(other);
  EXPECT_FALSE(postDraft(store(), "Too dark", {}));
  store().selection.set({});
  EXPECT_FALSE(postDraft(store(), "Too dark", {}));
  EXPECT_EQ(store().draft(), other);
  EXPECT_EQ(sent(), Lines{});
}

}  // namespace
}  // namespace vellix
