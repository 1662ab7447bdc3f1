// The bar under the canvas: what stands in it stays where it is, and Tab goes the way of the eye.
#include <algorithm>

#include "views/sights.hpp"
#include "views/view_test.hpp"

namespace vellix {
namespace {

constexpr double kOneRow = 48;
constexpr double kTwoRows = 84;

class CanvasBars : public ViewTest {
 protected:
  CanvasBars() {
    serveTheDay();
    showMain({1'500, 940});
    theme()->setReducedMotion(true);
  }
  // Opened at the ninth page. The tenth has another reference.
  void open(Int version, Int pages = 12) {
    FileDetail detail = lighthouse(2);
    detail.version = version;
    detail.file.pages = pagesOf(pages);
    if (pages > 9) (*detail.file.pages)[9].refs = {{"latest", RefPage{}}};
    store().details.set({{"t1", detail}});
    store().page.set({{"t1", std::min<Int>(8, pages - 1)}});
    settle();
  }
  QQuickItem* bar() {
    const auto bars = seen(window()->contentItem(), "CanvasBar");
    return bars.size() == 1 ? bars.front() : nullptr;
  }
  static QRectF placeOf(const QQuickItem* item) {
    return item->mapRectToScene(item->boundingRect());
  }
  QList<QQuickItem*> controls() { return seen(bar(), "PressArea"); }
  // What is there in each mode: by the way it is called, with its place.
  std::map<QString, QRectF> staying() {
    std::map<QString, QRectF> places;
    for (QQuickItem* overlay : seen(bar(), "OverlayTools")) passing_ = seen(overlay, "PressArea");
    for (QQuickItem* each : controls()) {
      if (passing_.contains(each)) continue;
      const QString key = each->property("key").toString();
      places[key.isEmpty() ? each->property("label").toString() : key] = placeOf(each);
    }
    return places;
  }
  void choose(const char* mode) { ASSERT_TRUE(press(mode, QAccessible::RadioButton)); }
  // No two share a spot, and all are whole.
  void expectApart() {
    const auto all = controls();
    const QRectF room = placeOf(bar());
    for (qsizetype i = 0; i < all.size(); ++i) {
      EXPECT_TRUE(room.contains(placeOf(all[i]))) << nameOf(all[i]);
      for (qsizetype j = 0; j < i; ++j) {
        EXPECT_FALSE(placeOf(all[i]).intersects(placeOf(all[j])))
            << nameOf(all[i]) << " and " << nameOf(all[j]);
      }
    }
  }
  void expectTabGoesTheWayOfTheEye() {
    QList<QQuickItem*> all;
    for (QQuickItem* each : controls()) {
      if (each->isEnabled()) all.append(each);
    }
    std::ranges::sort(all, {}, [](const QQuickItem* item) {
      const QPointF middle = placeOf(item).center();
      return std::pair{std::lround(middle.y() / 36), middle.x()};
    });
    for (qsizetype i = 1; i < all.size(); ++i) {
      EXPECT_EQ(nameOf(all[i - 1]->nextItemInFocusChain()), nameOf(all[i]));
    }
  }
  static std::string nameOf(const QQuickItem* item) {
    return item ? item->property("label").toString().toStdString() : "nothing";
  }

 private:
  QList<QQuickItem*> passing_;
};

struct BarRoom {
  int width;
  bool panel;
  Int version;
};
void PrintTo(const BarRoom& room, std::ostream* out) {
  *out << room.width << (room.panel ? " beside the notes" : "") << ", version " << room.version;
}

class CanvasBarRooms : public CanvasBars, public testing::WithParamInterface<BarRoom> {
 protected:
  CanvasBarRooms() {
    store().prefs.showNotes.set(GetParam().panel);
    open(GetParam().version);
    resize({GetParam().width, GetParam().width > 760 ? 940 : 540});
  }
};

TEST_P(CanvasBarRooms, KeepEveryControlWhereItStands) {
  const auto before = staying();
  const qsizetype count = GetParam().version > 1 ? 12 : 13;
  ASSERT_EQ(before.size(), count);
  const double foot = placeOf(bar()).bottom();
  for (const char* mode : {"Overlay", "Blink", "Side by side", "Overlay"}) {
    choose(mode);
    EXPECT_EQ(staying(), before) << mode;
    EXPECT_EQ(placeOf(bar()).bottom(), foot) << mode;
    for (const char* step : {"Next page", "Next page", "Previous page", "Previous page"}) {
      ASSERT_TRUE(press(step));
      EXPECT_EQ(staying(), before) << mode << ", " << step;
    }
  }
}

TEST_P(CanvasBarRooms, HoldTheControlsApartAndInTheirOrder) {
  for (const char* mode : {"Side by side", "Overlay", "Blink"}) {
    choose(mode);
    expectApart();
    expectTabGoesTheWayOfTheEye();
  }
}

TEST_P(CanvasBarRooms, TakeNoMoreRowsThanTheyNeed) {
  EXPECT_LE(bar()->height(), GetParam().width < 1'500 ? kTwoRows : kOneRow);
  choose("Overlay");
  EXPECT_LE(bar()->height(), kTwoRows);
}

std::vector<BarRoom> barRooms() {
  std::vector<BarRoom> rooms;
  for (const int width : {760, 900, 1'280, 1'500, 1'590, 1'600}) {
    for (const bool panel : {true, false}) {
      for (const Int version : {1, 2}) rooms.push_back({width, panel, version});
    }
  }
  return rooms;
}

INSTANTIATE_TEST_SUITE_P(All, CanvasBarRooms, testing::ValuesIn(barRooms()), [](const auto& each) {
  return std::to_string(each.param.width) + (each.param.panel ? "Panel" : "Alone") + "V" +
         std::to_string(each.param.version);
});

TEST_F(CanvasBars, StandInOneRowAtFirstWithALongNameCutShort) {
  open(1);
  const QQuickItem* toggle = seen(bar(), "PaneToggle").front();
  FileDetail detail = store().details().at("t1");
  for (const char* supplier : {"A", "Harrow Print", "Harrow and Daughters, Printers and Binders"}) {
    detail.file.supplier = supplier;
    store().details.set({{"t1", detail}});
    settle();
    EXPECT_EQ(bar()->height(), kOneRow) << supplier;
    expectApart();
  }
  const QQuickItem* name = seen(toggle, "Label").front();
  EXPECT_TRUE(name->property("truncated").toBool());
  EXPECT_TRUE(name->property("tellsWhole").toBool());
  EXPECT_TRUE(reader().find("Harrow and Daughters, Printers and Binders", QAccessible::CheckBox));
}

TEST_F(CanvasBars, LeaveALowWindowToThePage) {
  resize({760, 540});
  for (const Int version : {1, 2}) {
    for (const Int pages : {2, 12, 240}) {
      open(version, pages);
      if (pages == 240) store().page.set({{"t1", 239}});
      choose("Overlay");
      EXPECT_LE(bar()->height(), kTwoRows) << pages << " pages of version " << version;
      expectApart();
    }
  }
}

TEST_F(CanvasBars, StayWhereTheyAreWhateverPagesAreCalled) {
  for (const QSize size : {QSize{760, 540}, QSize{1'500, 940}}) {
    resize(size);
    open(1);
    FileDetail detail = store().details().at("t1");
    (*detail.file.pages)[9].label = std::string(300, 'W');
    (*detail.file.pages)[10].label = "xviii";
    store().details.set({{"t1", detail}});
    settle();
    const auto before = staying();
    for (const char* mode : {"Overlay", "Side by side"}) {
      choose(mode);
      for (const char* step : {"Next page", "Next page", "Previous page", "Previous page"}) {
        ASSERT_TRUE(press(step));
        EXPECT_EQ(staying(), before) << step;
        expectApart();
        expectTabGoesTheWayOfTheEye();
      }
    }
  }
}

TEST_F(CanvasBars, KeepTheKeyboardWhenTheirRowsChange) {
  open(1);
  choose("Overlay");
  for (QQuickItem* each : controls()) {
    if (!each->isEnabled()) continue;
    each->forceActiveFocus(Qt::TabFocusReason);
    for (const int width : {900, 760, 1'500, 1'900, 1'500}) {
      resize({width, 940});
      EXPECT_TRUE(each->hasActiveFocus()) << nameOf(each) << " at " << width;
    }
  }
}

}  // namespace
}  // namespace vellix
