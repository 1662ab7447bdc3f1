// Side by side, overlay and blink.

#include "compare/canvas_view.hpp"
#include "store/store_test.hpp"

namespace vellix {
namespace {

class Modes : public StoreTest {
 protected:
  Modes() {
    detail.file.pages = pagesOf(1);
    page().img = "supplier-0";
    page().refs = {{"submitted", RefPage{.img = "submitted-0"}}, {"fbc", RefPage{.img = "fbc-0"}}};
  }
  Page& page() { return detail.file.pages->front(); }
  CanvasView view() { return canvasView(store(), detail, state); }
  std::string staged() {
    std::string keys;
    for (const auto& pane : view().panes) {
      keys += (keys.empty() ? "" : " ") + (pane.onStage ? pane.img : "(" + pane.img + ")");
    }
    return keys;
  }

  FileDetail detail = detailOf(ticketOf("t1"));
  CanvasState state;
};

TEST_F(Modes, AreThreeWithTheirWords) {
  const auto modes = compareModes();
  ASSERT_EQ(modes.size(), 3U);
  EXPECT_EQ(modes[0], (ModeView{"side", "Side by side"}));
  EXPECT_EQ(modes[1], (ModeView{"overlay", "Overlay"}));
  EXPECT_EQ(modes[2], (ModeView{"blink", "Blink"}));
  for (const auto& mode : modes) EXPECT_EQ(keyOf(modeOf(mode.key).value()), mode.key);
  EXPECT_FALSE(modeOf("riddle"));
}

TEST_F(Modes, PutAllPanesSideBySide) {
  EXPECT_EQ(staged(), "supplier-0 submitted-0 fbc-0");
  EXPECT_EQ(view().bar.mode, "side");
  EXPECT_FALSE(view().bar.overlay);
  for (const auto& pane : view().panes) EXPECT_EQ(pane.under, "");
}

TEST_F(Modes, LayTheSecondPaneOverTheFirst) {
  store().mode.set(CompareMode::overlay);
  EXPECT_EQ(staged(), "supplier-0");
  EXPECT_EQ(view().panes[0].under, "submitted-0");
  EXPECT_FALSE(view().panes[0].difference);
  EXPECT_TRUE(view().bar.overlay);
  EXPECT_EQ(view().bar.opacity, 0.5);
  state.opacity = 0.8;
  EXPECT_EQ(view().bar.opacity, 0.8);
}

TEST_F(Modes, ShowTheDifferenceOfTwo) {
  store().mode.set(CompareMode::overlay);
  state.difference = true;
  EXPECT_TRUE(view().panes[0].difference);
  EXPECT_TRUE(view().bar.difference);
  store().shown.set({"third"});
  EXPECT_EQ(staged(), "fbc-0");
  EXPECT_EQ(view().panes[0].under, "");
  EXPECT_FALSE(view().panes[0].difference) << "there is nothing to differ from";
  store().mode.set(CompareMode::side);
  EXPECT_FALSE(view().panes[0].difference);
}

TEST_F(Modes, LayTheThirdPaneOverOursWithoutTheSuppliers) {
  store().mode.set(CompareMode::overlay);
  store().shown.set({"submitted", "third"});
  EXPECT_EQ(staged(), "submitted-0");
  EXPECT_EQ(view().panes[0].under, "fbc-0");
}

TEST_F(Modes, LayNothingOverWhereTheSecondPaneHasNoPicture) {
  store().mode.set(CompareMode::overlay);
  page().refs->at("submitted").img.reset();
  EXPECT_EQ(view().panes[0].under, "");
}

TEST_F(Modes, BlinkThroughThePanesInTurn) {
  store().mode.set(CompareMode::blink);
  EXPECT_EQ(staged(), "supplier-0 (submitted-0) (fbc-0)");
  state.blink = 1;
  EXPECT_EQ(staged(), "(supplier-0) submitted-0 (fbc-0)");
  state.blink = 5;
  EXPECT_EQ(staged(), "(supplier-0) (submitted-0) fbc-0");
  store().shown.set({"supplier", "third"});
  EXPECT_EQ(staged(), "(supplier-0) fbc-0");
  store().shown.set({"third"});
  EXPECT_EQ(staged(), "fbc-0");
  EXPECT_TRUE(takesTurns(store()));
}

TEST_F(Modes, OfATicketWithoutPagesHaveNothingOnStage) {
  detail.file.pages.reset();
  for (const auto mode : {CompareMode::side, CompareMode::overlay, CompareMode::blink}) {
    store().mode.set(mode);
    EXPECT_TRUE(view().panes.empty());
    EXPECT_EQ(view().bar.empty, "No pages in this file.");
    EXPECT_EQ(view().bar.mode, keyOf(mode));
  }
}

TEST_F(Modes, KeepTheMarksOfEveryPaneThatIsBuilt) {
  detail.findings = {findingOf("f1")};
  store().mode.set(CompareMode::overlay);
  EXPECT_EQ(view().panes[0].boxes.size(), 1U) << "the reference is built, if not on the stage";
  store().shown.set({"supplier", "third"});
  EXPECT_TRUE(view().panes[0].boxes.empty());
}

TEST_F(Modes, TellWhetherANoteIsDrawnAndWritten) {
  EXPECT_TRUE(view().bar.draws);
  EXPECT_FALSE(view().bar.drafting);
  store().draft.set(DraftNote{.fileID = "t1", .page = 0, .side = "supplier"});
  EXPECT_TRUE(view().bar.drafting);
  store().prefs.drawToComment.set(false);
  EXPECT_FALSE(view().bar.draws);
  store().draft.set(DraftNote{.fileID = "t1", .page = 3, .side = "supplier"});
  EXPECT_FALSE(view().bar.drafting);
}

TEST_F(Modes, TellOfADraftWhoeversTurnItIs) {
  store().mode.set(CompareMode::blink);
  store().draft.set(DraftNote{.fileID = "t1", .page = 0, .side = "supplier"});
  for (state.blink = 0; state.blink < 3; ++state.blink) EXPECT_TRUE(view().bar.drafting);
}

TEST_F(Modes, GivePanesTheSideOfTheirNotes) {
  EXPECT_EQ(view().panes[0].side, "supplier");
  EXPECT_EQ(view().panes[1].side, "ours");
  EXPECT_EQ(view().panes[2].side, "ours");
}

TEST_F(Modes, OpenTheLoupeByTheRolesOnShow) {
  detail.findings = {findingOf("f1")};
  store().focus.set("f1");
  EXPECT_EQ(view().loupe.crops.size(), 3U);
  store().shown.set({"supplier", "third"});
  EXPECT_EQ(view().loupe.crops.size(), 2U);
  store().shown.set({"supplier"});
  EXPECT_EQ(view().loupe.crops.size(), 2U) << "the finding's own reference";
}

}  // namespace
}  // namespace vellix
