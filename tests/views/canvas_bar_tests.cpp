// The bar under the canvas: what stands in it stays where it is, and Tab goes the way of the eye.
#include <QTest>
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
    // The strip of pages has come.
    open(1);
    EXPECT_TRUE(QTest::qWaitFor([this] { return bar()->width() == 793; }, 5'000));
    settle();
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
  static std::string told(const QRectF& place) {
    return QStringLiteral("%1, %2, %3 by %4")
        .arg(place.x())
        .arg(place.y())
        .arg(place.width())
        .arg(place.height())
        .toStdString();
  }
  QList<QQuickItem*> controls() { return seen(bar(), "PressArea"); }
  // What is there in each mode: by the way it is called, with its place.
  using Places = std::map<std::string, std::string>;
  Places staying() {
    Places places;
    for (QQuickItem* overlay : seen(bar(), "OverlayTools")) passing_ = seen(overlay, "PressArea");
    for (QQuickItem* each : controls()) {
      if (passing_.contains(each)) continue;
      const QString key = each->property("key").toString();
      places[key.isEmpty() ? nameOf(each) : key.toStdString()] = told(placeOf(each));
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

// As tickets differ: in how many pages they have, what these are called, who prints them, and
// what they are compared with.
struct Book {
  std::string name;
  Int version = 1;
  Int pages = 12;
  std::optional<std::string> label;
  std::string supplier = "Harrow Print";
  std::string third = "fbc";
};
std::vector<Book> books() {
  return {{.name = "short", .pages = 3},
          {.name = "twelve"},
          {.name = "long", .pages = 240},
          {.name = "reprint", .pages = 120, .third = "latest"},
          {.name = "front matter", .label = "xviii"},
          {.name = "spreads", .pages = 240, .label = "112–113", .third = "latest"},
          {.name = "named at length", .label = std::string(300, 'W')},
          {.name = "by a long name", .supplier = "Harrow and Daughters, Printers and Binders"},
          {.name = "by a short one", .supplier = "A", .third = "latest"},
          {.name = "revised", .version = 2},
          {.name = "revised, spreads", .version = 12, .pages = 240, .label = "112–113"}};
}

class CanvasBarBooks : public CanvasBars {
 protected:
  void open(const Book& book) {
    FileDetail detail = lighthouse(2);
    detail.version = book.version;
    detail.file.supplier = book.supplier;
    detail.file.refs = {{.role = book.third}};
    if (book.third == "latest") detail.file.track = "reprint";
    detail.file.pages = pagesOf(book.pages);
    for (auto& page : *detail.file.pages) page.label = book.label;
    store().details.set({{"t1", detail}});
    store().page.set({{"t1", 1}});
    settle();
  }
  // The steps, the modes, the zoom and the panel's button; the toggles are a ticket's own.
  Places common() {
    auto all = staying();
    for (QQuickItem* toggle : seen(bar(), "PaneToggle")) {
      all.erase(toggle->property("key").toString().toStdString());
    }
    return all;
  }
};

TEST_F(CanvasBarBooks, HaveTheirRowsByTheirWidthAlone) {
  // Where one row begins, and where an overlay finds its place in it, between two of them.
  for (const int width : {760, 1'474, 1'476, 1'806, 1'808}) {
    resize({width, width > 760 ? 940 : 540});
    for (const char* mode : {"Side by side", "Overlay"}) {
      choose(mode);
      Places before;
      double height = 0;
      for (const Book& book : books()) {
        open(book);
        expectApart();
        if (before.empty()) {
          before = common();
          height = bar()->height();
        }
        EXPECT_EQ(common(), before) << book.name << ", " << mode << " at " << width;
        EXPECT_EQ(bar()->height(), height) << book.name << ", " << mode << " at " << width;
      }
      const bool single = width > 1'474;
      const bool onTop = mode == std::string{"Overlay"} && single && width < 1'808;
      EXPECT_EQ(height, single && !onTop ? kOneRow : kTwoRows) << mode << " at " << width;
    }
  }
}

TEST_F(CanvasBarBooks, StandInOneRowAtFirstWhateverTheTicket) {
  for (const Book& book : books()) {
    open(book);
    EXPECT_EQ(bar()->height(), kOneRow) << book.name;
    EXPECT_EQ(bar()->width(), 793) << "beside the strip and the panel";
  }
}

TEST_F(CanvasBarBooks, ShowThePlaceOfANumberedPageWhole) {
  for (const int width : {760, 1'500, 1'600}) {
    resize({width, 940});
    for (const Book& book : books()) {
      if (book.label) continue;
      open(book);
      store().page.set({{"t1", book.pages - 1}});
      settle();
      const QQuickItem* steps = seen(bar(), "PageSteps").front();
      EXPECT_EQ(seen(steps, "Digits").size(), 1) << book.name << " at " << width;
    }
  }
}

TEST_F(CanvasBarBooks, HaveTheirMeasuresAtFirst) {
  open(Book{});
  const auto named = [this](const QByteArray& type, const char* label) -> QQuickItem* {
    for (QQuickItem* each : seen(bar(), type)) {
      if (each->property("label").toString().startsWith(label)) return each;
    }
    return nullptr;
  };
  const QQuickItem* slider = named("Slider", "Zoom");
  const QQuickItem* percent = named("Pressable", "100%");
  ASSERT_TRUE(slider && percent);
  EXPECT_EQ(slider->width(), 44);
  EXPECT_EQ(percent->width(), 38);
  const QQuickItem* modes = seen(bar(), "Segmented").front();
  double end = placeOf(modes).left() + 2;
  for (QQuickItem* segment : seen(modes, "Pressable")) {
    double words = 0;  // the widest of the light ones and the heavy ones, of which one is hidden
    for (QQuickItem* each : segment->findChildren<QQuickItem*>()) {
      if (isOfType(each, "Label")) words = std::max(words, each->implicitWidth());
    }
    EXPECT_EQ(segment->width(), std::ceil(words) + 12) << nameOf(segment);
    EXPECT_EQ(placeOf(segment).left(), end);
    end = placeOf(segment).right();
  }
  const auto toggles = seen(bar(), "PaneToggle");
  ASSERT_EQ(toggles.size(), 3);
  EXPECT_EQ(placeOf(toggles[0]).left() - placeOf(seen(bar(), "PageSteps").front()).right(), 8);
  EXPECT_EQ(placeOf(toggles[1]).left() - placeOf(toggles[0]).right(), 8);
  EXPECT_EQ(placeOf(toggles[2]).left() - placeOf(toggles[1]).right(), 8);
  EXPECT_GE(placeOf(modes).left() - placeOf(toggles[2]).right(), 8);
  const QQuickItem* zoom = seen(bar(), "ZoomTools").front();
  EXPECT_EQ(placeOf(zoom).left() - placeOf(modes).right(), 8);
  EXPECT_EQ(placeOf(bar()).right() - placeOf(named("IconButton", "Hide the notes")).right(), 8);
}

// In the program's own face every page's place stands whole in its room, or is cut short in it.
TEST_F(CanvasBarBooks, HoldPagesOfManyScriptsInTheRoomOfAll) {
  ASSERT_EQ(theme()->family(), "Inter");
  const std::vector<std::string> names{
      "1",        "iv",   "Обложка",        "第一章の扉", "الغلاف الأمامي",
      "Εξώφυλλο", "Ðạưỡ", "e\u0301e\u0301", "MMMM",       "12–13",
      "🧭🧭🧭",   "ﷺ"};
  for (const int width : {760, 1'500, 1'900}) {
    resize({width, 940});
    Book book{.name = "mixed", .pages = static_cast<Int>(names.size())};
    open(book);
    FileDetail detail = store().details().at("t1");
    for (std::size_t i = 0; i < names.size(); ++i) (*detail.file.pages)[i].label = names[i];
    store().details.set({{"t1", detail}});
    settle();
    const auto before = staying();
    const QQuickItem* steps = seen(bar(), "PageSteps").front();
    for (Int page = 0; page < book.pages; ++page) {
      store().page.set({{"t1", page}});
      settle();
      EXPECT_EQ(staying(), before) << names[page] << " at " << width;
      const auto digits = seen(steps, "Digits");
      const QQuickItem* text = digits.isEmpty() ? seen(steps, "Label").value(0) : digits.front();
      ASSERT_TRUE(text) << names[page];
      EXPECT_LE(placeOf(text).right(), placeOf(steps).right()) << names[page] << " at " << width;
      if (!digits.isEmpty()) {
        double ends = 0;
        for (const QQuickItem* run : seen(text, "Label"))
          ends = std::max(ends, placeOf(run).right());
        EXPECT_LE(ends, placeOf(steps).right()) << names[page] << " at " << width;
      } else {
        EXPECT_TRUE(text->property("tellsWhole").toBool());
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
