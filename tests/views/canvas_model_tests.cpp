// The canvas as its model tells it: its own state, the pace of blinking, zooming by hand.
#include <QSignalSpy>

#include "compare/CompareModel.hpp"
#include "store/store_test.hpp"
#include "views/operations.hpp"

namespace vellix {
namespace {

class CanvasModels : public StoreTest {
 protected:
  CanvasModels() {
    BoardState board = boardOf({ticketOf("t1"), ticketOf("t2")});
    std::map<std::string, FileDetail> details;
    for (const char* id : {"t1", "t2"}) {
      FileDetail detail = detailOf(ticketOf(id), {findingOf("f-" + std::string{id})});
      detail.file.pages = pagesOf(2);
      for (auto& page : *detail.file.pages) {
        page.img = "supplier-" + std::to_string(page.i);
        page.px = {400, 400};
        page.refs = {{"submitted", RefPage{.img = "ours-" + std::to_string(page.i)}}};
      }
      details[id] = std::move(detail);
    }
    store().board.set(std::move(board));
    store().details.set(std::move(details));
    store().shown.set({"supplier", "submitted"});
    select("t1");
    model.stage()->lay({1'000, 700}, 1, {}, {});
  }
  void select(const std::string& id) {
    store().selection.set({id});
    desk.time.run();
  }
  void mode(const char* key) {
    model.setMode(key);
    desk.time.run();
  }
  QString onStage() {
    QString keys;
    for (int i = 0; i < model.panes()->rowCount(); ++i) {
      if (fieldOf(model.panes(), i, "onStage").toBool()) {
        keys += fieldOf(model.panes(), i, "img").toString() + ";";
      }
    }
    return keys;
  }
  double left(int pane) {
    return model.stage()->layout()["panes"].toList().at(pane).toMap()["x"].toDouble();
  }

  CompareModel model{store(), desk.time};
};

TEST_F(CanvasModels, SwapThePanesAtTheirPace) {
  mode("blink");
  EXPECT_EQ(onStage(), "supplier-0;");
  desk.time.advance(Milliseconds{699});
  EXPECT_EQ(onStage(), "supplier-0;");
  desk.time.advance(Milliseconds{1});
  EXPECT_EQ(onStage(), "ours-0;");
  desk.time.advance(Milliseconds{700});
  EXPECT_EQ(onStage(), "supplier-0;");
}

TEST_F(CanvasModels, ResumeBlinkingWhereTheyLeftOff) {
  mode("blink");
  desk.time.advance(Milliseconds{700});
  ASSERT_EQ(onStage(), "ours-0;");
  mode("side");
  EXPECT_EQ(desk.time.sleeping(), 0U);
  desk.time.advance(Milliseconds{5'000});
  EXPECT_EQ(onStage(), "supplier-0;ours-0;");
  mode("blink");
  EXPECT_EQ(onStage(), "ours-0;");
}

TEST_F(CanvasModels, KeepTheSamePanesWhileTheyTakeTurns) {
  mode("blink");
  Operations operations{model.panes()};
  desk.time.advance(Milliseconds{700});
  for (const auto& each : operations.take()) EXPECT_TRUE(each.starts_with("change")) << each;
}

TEST_F(CanvasModels, BlinkOnlyWhileACanvasIsOnShow) {
  mode("blink");
  store().selection.set({"t1", "t2"});
  desk.time.run();
  EXPECT_EQ(desk.time.sleeping(), 0U);
  select("t2");
  EXPECT_EQ(desk.time.sleeping(), 1U) << "the mode is the same for all tickets";
}

TEST_F(CanvasModels, BeginAnewWithAnotherTicket) {
  mode("overlay");
  model.setOpacity(0.9);
  model.setDifference(true);
  EXPECT_EQ(model.bar()["opacity"].toDouble(), 0.9);
  EXPECT_TRUE(model.bar()["difference"].toBool());
  model.stepPage(1);
  desk.time.run();
  EXPECT_EQ(model.bar()["opacity"].toDouble(), 0.9) << "another page is the same canvas";
  select("t2");
  EXPECT_EQ(model.bar()["opacity"].toDouble(), 0.5);
  EXPECT_FALSE(model.bar()["difference"].toBool());
  EXPECT_EQ(model.bar()["mode"].toString(), "overlay");
}

TEST_F(CanvasModels, HoldTheOpacityWithinBounds) {
  model.setOpacity(7);
  EXPECT_EQ(model.bar()["opacity"].toDouble(), 1);
  model.setOpacity(-1);
  EXPECT_EQ(model.bar()["opacity"].toDouble(), 0);
  model.setOpacity(std::nan(""));
  EXPECT_EQ(model.bar()["opacity"].toDouble(), 0);
}

TEST_F(CanvasModels, TakeNoOtherWordForAMode) {
  mode("riddle");
  EXPECT_EQ(store().mode(), CompareMode::side);
}

TEST_F(CanvasModels, GlideByStepsAndNotByHand) {
  EXPECT_TRUE(model.stage()->glides());
  model.stage()->wheel(1);
  desk.time.run();
  EXPECT_DOUBLE_EQ(store().zoom(), 1.25);
  EXPECT_FALSE(model.stage()->glides());
  model.zoomIn();
  desk.time.run();
  EXPECT_TRUE(model.stage()->glides());
  model.stage()->pinch(1.3);
  desk.time.run();
  EXPECT_FALSE(model.stage()->glides());
  model.zoomTo(2);
  desk.time.run();
  EXPECT_TRUE(model.stage()->glides());
}

TEST_F(CanvasModels, TellHowTheyGlideBeforeTheZoom) {
  bool gliding = true;
  QObject::connect(&model, &CompareModel::barChanged, [&] { gliding = model.stage()->glides(); });
  model.stage()->wheel(2);
  desk.time.run();
  EXPECT_FALSE(gliding);
}

TEST_F(CanvasModels, BeginEachPinchAnew) {
  model.stage()->pinch(2);
  model.stage()->endPinch();
  model.stage()->pinch(1.5);
  EXPECT_DOUBLE_EQ(store().zoom(), 3);
}

TEST_F(CanvasModels, WheelWithinBounds) {
  model.stage()->wheel(50);
  EXPECT_EQ(store().zoom(), 4);
  model.stage()->wheel(-50);
  EXPECT_EQ(store().zoom(), 1);
}

TEST_F(CanvasModels, LayTheStageOutAnewForOtherPanes) {
  EXPECT_EQ(left(1), 18 + 474 + 16);
  const QSignalSpy stages{model.stage(), &StageModel::layoutChanged};
  model.togglePane("third");
  desk.time.run();
  EXPECT_EQ(stages.count(), 1);
  EXPECT_DOUBLE_EQ(left(1), 18 + 932.0 / 3 + 16);
  model.stepPage(1);
  desk.time.run();
  EXPECT_EQ(stages.count(), 1) << "pages of one shape stand in the same places";
}

TEST_F(CanvasModels, KeepThePlaceUnderTheAnchor) {
  const QPointF to = model.stage()->lay({1'000, 700}, 2, {0, 0}, {255, 273});
  EXPECT_EQ(model.stage()->layout()["width"].toDouble(), 2 * 948 + 16 + 36);
  EXPECT_EQ(to, QPointF(18 + 474 - 255, 36 + 474 - 273));
  EXPECT_EQ(model.stage()->lay({1'000, 700}, 1, to, {500, 350}), QPointF(0, 0));
}

TEST_F(CanvasModels, BringTheSelectedFindingInSight) {
  model.stage()->lay({1'000, 700}, 4, {0, 0}, {0, 0});
  EXPECT_EQ(model.stage()->revealSelected({900, 900}, 0), QPointF(900, 900))
      << "nothing is selected";
  const QSignalSpy selections{&model, &CompareModel::selected};
  model.pressBox("f-t1");
  desk.time.run();
  EXPECT_EQ(selections.count(), 1);
  EXPECT_EQ(model.stage()->revealSelected({0, 0}, 0), QPointF(0, 0)) << "it is in sight";
  // It lies on ours as well, and there it is nearer.
  const double ours = model.stage()->layout()["panes"].toList().at(1).toMap()["page"].toRectF().x();
  EXPECT_EQ(model.stage()->revealSelected({ours, 100}, 0), QPointF(ours, 100));
  EXPECT_NE(model.stage()->revealSelected({ours, 100}, 600), QPointF(ours, 100)) << "it is covered";
}

TEST_F(CanvasModels, BringAPlaceInSight) {
  model.stage()->lay({1'000, 700}, 4, {0, 0}, {0, 0});
  EXPECT_EQ(model.stage()->reveal({100, 100, 50, 50}, {0, 0}, 0), QPointF(0, 0));
  EXPECT_EQ(model.stage()->reveal({1'500, 100, 50, 50}, {0, 0}, 0), QPointF(1'025, 0));
}

TEST_F(CanvasModels, GlideBackToWhereAHandWas) {
  model.stage()->wheel(1);
  desk.time.run();
  model.zoomIn();
  desk.time.run();
  model.zoomOut();
  desk.time.run();
  EXPECT_DOUBLE_EQ(store().zoom(), 1.25);
  EXPECT_TRUE(model.stage()->glides());
  model.stage()->wheel(-3);
  desk.time.run();
  store().stepZoom(Store::kZoomIn);
  desk.time.run();
  store().fitZoom();
  desk.time.run();
  EXPECT_TRUE(model.stage()->glides()) << "also by the menu's commands";
}

TEST_F(CanvasModels, TakeAnotherAnchorOnceThePanesAreOthers) {
  const QPointF spot{100, 100};
  QPointF scroll = model.stage()->lay({1'000, 700}, 2, {0, 0}, spot);
  model.togglePane("supplier");
  desk.time.run();
  const double before =
      model.stage()->layout()["panes"].toList().at(0).toMap()["page"].toRectF().width();
  const double left = model.stage()->layout()["panes"].toList().at(0).toMap()["page"].toRectF().x();
  const double place = (spot.x() + scroll.x() - left) / before;
  scroll = model.stage()->lay({1'000, 700}, 3, scroll, spot);
  const QRectF page = model.stage()->layout()["panes"].toList().at(0).toMap()["page"].toRectF();
  const double now = page.x() + place * page.width() - scroll.x();
  EXPECT_NEAR(now, spot.x(), 1e-6);
}

TEST_F(CanvasModels, RestWhileANoteIsDrawnAndWhileNobodyLooks) {
  mode("blink");
  desk.time.advance(Milliseconds{600});
  model.setDrawing(true);
  desk.time.advance(Milliseconds{5'000});
  EXPECT_EQ(onStage(), "supplier-0;");
  model.setDrawing(false);
  desk.time.advance(Milliseconds{699});
  EXPECT_EQ(onStage(), "supplier-0;");
  desk.time.advance(Milliseconds{1});
  EXPECT_EQ(onStage(), "ours-0;");
  model.setSeen(false);
  desk.time.run();
  EXPECT_EQ(desk.time.sleeping(), 0U);
  model.setSeen(true);
  EXPECT_EQ(desk.time.sleeping(), 1U);
}

TEST_F(CanvasModels, BeginToBlinkAnewWithAnotherTicket) {
  mode("blink");
  desk.time.advance(Milliseconds{700});
  ASSERT_EQ(onStage(), "ours-0;");
  desk.time.advance(Milliseconds{600});
  select("t2");
  EXPECT_EQ(onStage(), "supplier-0;");
  desk.time.advance(Milliseconds{699});
  EXPECT_EQ(onStage(), "supplier-0;");
  desk.time.advance(Milliseconds{1});
  EXPECT_EQ(onStage(), "ours-0;");
}

TEST_F(CanvasModels, OpenAndCloseTheLoupe) {
  EXPECT_FALSE(model.loupe()["open"].toBool());
  model.pressBox("f-t1");
  desk.time.run();
  EXPECT_TRUE(model.loupe()["open"].toBool());
  model.closeLoupe();
  desk.time.run();
  EXPECT_FALSE(model.loupe()["open"].toBool());
  EXPECT_FALSE(store().focus());
}

TEST_F(CanvasModels, CutAndMarkForTheirViews) {
  const QRectF box{0.25, 0.5, 0.5, 0.25};
  EXPECT_EQ(CompareModel::areaMark(box, {400, 600}), QRectF(100, 300, 200, 150));
  EXPECT_EQ(CompareModel::cropPlace(900, 2), QSizeF(444, 205));
  EXPECT_EQ(CompareModel::cropPlace(480, -1), QSizeF(480, 220));
  const QVariantMap cut = CompareModel::cropLayout({0.2, 0.4, 0.5, 0.1},
                                                   {QRectF{0.3, 0.42, 0.1, 0.05}}, 0.5, {300, 218});
  EXPECT_EQ(cut["frame"].toRectF().width(), 300);
  EXPECT_EQ(cut["marks"].toList().size(), 1);
}

}  // namespace
}  // namespace vellix
