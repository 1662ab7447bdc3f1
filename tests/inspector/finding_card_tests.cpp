// One finding's card.
#include "inspector/panel_test.hpp"

namespace vellix {
namespace {

class FindingCards : public PanelTest {
 protected:
  FindingCards() {
    store().board.set(boardOf({}));
    detail.findings = {finding("f1", {})};
    held().detail = "\"ligth\" for \"light\"";
  }
  Finding& held() { return detail.findings.front(); }
  void decide(std::string state, std::string by, double minutesAgo) {
    held().state = std::move(state);
    held().state_by = std::move(by);
    held().state_at = wireOf(desk.time.now()) - minutesAgo * 60'000;
  }
};

TEST_F(FindingCards, ShowTheFindingsWords) {
  EXPECT_EQ(card(), (FindingCardView{.id = "f1",
                                     .caption = "Words · vs what we sent",
                                     .title = "One word changed",
                                     .detail = "\"ligth\" for \"light\"",
                                     .decision = "open",
                                     .triage = true,
                                     .noteable = true,
                                     .selectable = true,
                                     .foldedIcon = "checkmark.circle.fill",
                                     .foldedTone = "green"}));
}

TEST_F(FindingCards, HaveNoDetailWhenThereIsNone) {
  held().detail.reset();
  EXPECT_EQ(card().detail, "");
}

TEST_F(FindingCards, TellTheTwoWordings) {
  using Wordings = std::vector<WordingView>;
  held().kind = "barcode";  // stays on show whatever it is against
  EXPECT_EQ(card().wordings, Wordings{});
  held().before = "light";
  held().after = "ligth";
  EXPECT_EQ(card().wordings, (Wordings{{"What we sent", "light"}, {"Supplier file", "ligth"}}));
  detail.file.supplier = "Harrow Print";
  held().against = "previous";
  held().before.reset();
  EXPECT_EQ(card().wordings, (Wordings{{"Last version", ""}, {"Harrow Print file", "ligth"}}));
  held().against = "submitted";
  held().before = "";
  held().after.reset();
  EXPECT_EQ(card().wordings, Wordings{}) << "an empty one is absent";
}

TEST_F(FindingCards, LightTheDecisionThatHolds) {
  held().state = "issue";
  EXPECT_TRUE(card().issue);
  EXPECT_FALSE(card().fine);
  held().state = "fine";
  EXPECT_FALSE(card().issue);
  EXPECT_TRUE(card().fine);
  held().state = "odd";
  EXPECT_FALSE(card().issue);
  EXPECT_FALSE(card().fine);
}

TEST_F(FindingCards, TellWhoDecidedAndWhen) {
  EXPECT_EQ(card().decided, "");
  decide("issue", "jorvas@tessarine.example", 5);
  EXPECT_EQ(card().decided, "Real issue · Jorvas · 5 min ago");
  decide("fine", "renny@tessarine.example", 0);
  EXPECT_EQ(card().decided, "Fine · You · just now");
}

TEST_F(FindingCards, TakeANameFromTheAddressOfSomebodyUnknown) {
  decide("fine", "ines@elsewhere.example", 0);
  EXPECT_EQ(card().decided, "Fine · Ines · just now");
}

TEST_F(FindingCards, TellNoMomentThatIsNotKnown) {
  decide("fine", "renny@tessarine.example", 0);
  held().state_at.reset();
  EXPECT_EQ(card().decided, "Fine · You");
}

TEST_F(FindingCards, TellNobodyOfAnOpenFindingOrAnUnsignedDecision) {
  decide("open", "renny@tessarine.example", 5);
  EXPECT_EQ(card().decided, "");
  held().state = "issue";
  held().state_by.reset();
  EXPECT_EQ(card().decided, "");
}

TEST_F(FindingCards, TellWhatTheyAreWhenFolded) {
  decide("issue", "jorvas@tessarine.example", 5);
  EXPECT_EQ(card().foldedIcon, "exclamationmark.triangle.fill");
  EXPECT_EQ(card().foldedTone, "red");
  EXPECT_EQ(card().foldedHelp, "Real issue · Jorvas · 5 min ago. Click to open.");
  held().state = "fine";
  EXPECT_EQ(card().foldedIcon, "checkmark.circle.fill");
  EXPECT_EQ(card().foldedTone, "green");
  held().state_by.reset();
  EXPECT_EQ(card().foldedHelp, "Fine · 5 min ago. Click to open.");
  held().state_at.reset();
  EXPECT_EQ(card().foldedHelp, "Fine. Click to open.");
  held().state = "open";
  EXPECT_EQ(card().foldedHelp, "");
}

TEST_F(FindingCards, FoldOnceDecidedWhenDecidedOnesFold) {
  EXPECT_FALSE(card().folds);
  for (const char* state : {"issue", "fine"}) {
    held().state = state;
    store().prefs.foldDecided.set(true);
    EXPECT_TRUE(card().folds);
    store().prefs.foldDecided.set(false);
    EXPECT_FALSE(card().folds);
  }
}

TEST_F(FindingCards, AreSelectedByTheFocus) {
  EXPECT_FALSE(card().selected);
  store().focus.set("f2");
  EXPECT_FALSE(card().selected);
  store().focus.set("f1");
  EXPECT_TRUE(card().selected);
}

TEST_F(FindingCards, AreSelectableByTheirBox) {
  EXPECT_TRUE(card().selectable);
  held().box.reset();
  EXPECT_FALSE(card().selectable);
}

TEST_F(FindingCards, AreBusyWhileTheirDecisionIsOnItsWay) {
  EXPECT_FALSE(card().busy);
  store().busy.set({"f2"});
  EXPECT_FALSE(card().busy);
  store().busy.set({"f1"});
  EXPECT_TRUE(card().busy);
}

TEST_F(FindingCards, TakeANoteWhereTheyHaveAPlace) {
  EXPECT_TRUE(card().noteable);
  held().box = {0.1, 0.1, 0.2};
  EXPECT_FALSE(card().noteable);
  EXPECT_TRUE(card().selectable);
  held().box.reset();
  EXPECT_FALSE(card().noteable);
}

TEST_F(FindingCards, AreBriefAndNeverFoldWhereThereIsNothingToDecide) {
  EXPECT_FALSE(card().compact);
  for (const char* kind : {"pass", "expected"}) {
    held().kind = kind;
    held().state = "fine";
    const FindingCardView passed = panel().passed.at(0);
    EXPECT_TRUE(passed.compact) << kind;
    EXPECT_FALSE(passed.triage) << kind;
    EXPECT_FALSE(passed.folds) << kind;
  }
}

TEST_F(FindingCards, HoldTheirNotesInTheServicesOrder) {
  const auto on = [](std::string id, std::optional<std::string> finding) {
    Note note;
    note.id = std::move(id);
    note.page = 0;
    note.by = "jorvas@tessarine.example";
    note.finding_id = std::move(finding);
    return note;
  };
  EXPECT_TRUE(card().notes.empty());
  EXPECT_EQ(card().noteCount, "");
  detail.comments = {on("n1", "f1"), on("n2", std::nullopt), on("n3", "f2"), on("n4", "f1")};
  detail.comments[0].page = 7;
  detail.comments[3].resolved = 1;
  ASSERT_EQ(card().notes.size(), 2U) << "wherever they stand, and resolved or not";
  EXPECT_EQ(card().notes[0].id, "n1");
  EXPECT_EQ(card().notes[0].number, 0) << "of a page that is not on show";
  EXPECT_EQ(card().notes[1].id, "n4");
  EXPECT_TRUE(card().notes[1].resolved);
  EXPECT_EQ(card().notes[1].number, 0);
  EXPECT_EQ(card().noteCount, "2");
}

}  // namespace
}  // namespace vellix
