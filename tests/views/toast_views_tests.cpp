// Where the toast stands.
#include <QTest>

#include "views/sights.hpp"
#include "views/view_test.hpp"

namespace vellix {
namespace {

class ToastViews : public ViewTest {
 protected:
  void open(QSize size) {
    serveTheDay();
    showMain(size);
    theme()->setReducedMotion(true);
    say();
  }
  void say(const std::string& words = "Marked fine.") {
    store().toast.set(Toast{words, "Undo", [] {}});
    settle();
  }
  QQuickItem* the(const QByteArray& type) { return seen(window()->contentItem(), type).value(0); }
  QRectF place(const QByteArray& type) {
    const QQuickItem* item = the(type);
    return item ? item->mapRectToScene(item->boundingRect()) : QRectF{};
  }
  // The main column's middle.
  double middle() { return (place("Sidebar").right() + window()->width()) / 2; }
};

TEST_F(ToastViews, StandOverTheBarInTheMiddleOfTheMainColumn) {
  open({1'500, 940});
  for (const QSize size : {QSize{1'500, 940}, {1'100, 700}, {900, 700}, {760, 540}}) {
    resize(size);
    ASSERT_FALSE(place("ToastView").isEmpty());
    EXPECT_NEAR(place("ToastView").center().x(), middle(), 1) << size.width();
    EXPECT_LE(place("ToastView").bottom(), place("CanvasBar").top() - 12) << size.width();
    EXPECT_GE(place("ToastView").bottom(), place("CanvasBar").top() - 20) << size.width();
  }
}

TEST_F(ToastViews, WrapInTheMainColumn) {
  open({760, 540});
  std::string words;
  for (int i = 0; i < 40; ++i) words += "A word and ";
  say(words);
  EXPECT_GE(place("ToastView").left(), place("Sidebar").right());
  EXPECT_LE(place("ToastView").right(), 760);
  EXPECT_LE(place("ToastView").bottom(), place("CanvasBar").top() - 12);
}

TEST_F(ToastViews, CoverNothingThatIsPressed) {
  store().notesDrawer.set(true);
  open({760, 540});
  auto* field = reader().find("Write a note for the report", QAccessible::EditableText);
  ASSERT_TRUE(field);
  qobject_cast<QQuickItem*>(field->object())->forceActiveFocus(Qt::TabFocusReason);
  for (const bool offline : {false, true}) {
    if (offline) store().problem.set("The service could not be reached.");
    for (const QSize size : {QSize{760, 540}, {900, 640}, {1'100, 700}}) {
      resize(size);
      for (const char* words :
           {"Marked fine.", "Something of quite a length that wraps in here."}) {
        say(words);
        const QRectF toast = place("ToastView");
        ASSERT_FALSE(toast.isEmpty());
        for (const char* name : {"Post", "Previous page", "Next page"}) {
          auto* button = reader().find(name, QAccessible::Button);
          ASSERT_TRUE(button) << name;
          const QRectF at =
              qobject_cast<QQuickItem*>(button->object())
                  ->mapRectToScene(qobject_cast<QQuickItem*>(button->object())->boundingRect());
          EXPECT_FALSE(at.intersects(toast)) << name << " under " << words << size.width();
        }
      }
    }
  }
}

TEST_F(ToastViews, GlideWhereTheBarGrows) {
  open({760, 540});
  theme()->setReducedMotion(false);
  const double before = place("ToastView").y();
  QQuickItem* layer = the("ToastLayer");
  ASSERT_EQ(layer->property("foot").toDouble(), place("CanvasBar").height());
  std::vector<double> ways;
  QObject::connect(the("ToastView"), &QQuickItem::yChanged, layer,
                   [&] { ways.push_back(place("ToastView").y()); });
  layer->setProperty("foot", place("CanvasBar").height() + 36);
  EXPECT_EQ(place("ToastView").y(), before);
  ASSERT_TRUE(QTest::qWaitFor([&] { return place("ToastView").y() == before - 36; }));
  EXPECT_GT(ways.size(), 2U) << "it has not jumped";
}

TEST_F(ToastViews, StandAtTheFootWhereThereIsNoBar) {
  open({760, 540});
  store().openProfile("jorvas@tessarine.example");
  settle();
  EXPECT_EQ(place("ToastView").bottom(), 540 - 62);
  EXPECT_NEAR(place("ToastView").center().x(), middle(), 1);
  store().openProfile(std::nullopt);
  store().selection.set({"t1", "t2"});
  settle();
  EXPECT_EQ(place("ToastView").bottom(), 540 - 62);
}

TEST_F(ToastViews, StandInTheMiddleOfTheSignInScreen) {
  open({760, 540});
  store().signOut(false);
  settle();
  say();
  ASSERT_TRUE(the("SignInView"));
  EXPECT_NEAR(place("ToastView").center().x(), 380, 1);
  EXPECT_EQ(place("ToastView").bottom(), 540 - 62);
}

}  // namespace
}  // namespace vellix
