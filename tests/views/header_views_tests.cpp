// The header of a ticket where there is little room.
#include <QTest>

#include "views/sights.hpp"
#include "views/view_test.hpp"

namespace vellix {
namespace {

class HeaderViews : public ViewTest {
 protected:
  void open(QSize size, int sentences = 8) {
    serveTheDay();
    BoardState board = *store().board();
    FileItem& file = board.files[0];
    file.due = wireOf(desk.time.now() - std::chrono::hours{2});
    file.assignee = board.me.email;
    file.links = Links{.gmail = "https://mail.example"};
    file.summary.reset();
    for (int i = 0; i < sentences; ++i) {
      file.summary = file.summary.value_or("") + "One word differs here. ";
    }
    store().board.set(board);
    showMain(size);
    theme()->setReducedMotion(true);
    settle();
  }
  QQuickItem* the(const QByteArray& type) { return seen(window()->contentItem(), type).value(0); }
  QQuickItem* area() { return the("FileHeader")->parentItem()->parentItem(); }
  // All of it, also where a text's lines leave some air.
  static QRectF placeOf(const QQuickItem* item) {
    return item->mapRectToScene({0, 0, item->width(), item->height()});
  }
  // What is cut through by the lower end of what is seen of the header.
  QStringList sliced() {
    QStringList names;
    const double end = placeOf(area()).bottom();
    for (const char* type : {"Label", "Pill", "DropButton", "LinkPill", "ApprovalCard"}) {
      for (const QQuickItem* each : seen(the("FileHeader"), type)) {
        const QRectF place = placeOf(each);
        if (place.isEmpty()) continue;
        // Below the end of a block there is air; what comes next only begins in it, be it a line.
        const double line = place.height() / std::max(1, each->property("lineCount").toInt());
        const double lines = (end - 12 - place.top()) / line;
        if (lines > 0.9 && std::abs(lines - std::round(lines)) * line < 1.01) continue;
        if (place.top() < end - 5 && place.bottom() > end) {
          names.append(QString{type} + " " + each->property("text").toString().left(20));
        }
      }
    }
    return names;
  }
  QRectF button(const QString& name) {
    auto* found = reader().find(name, QAccessible::Button);
    return found ? QRectF{found->rect()} : QRectF{};
  }
};

TEST_F(HeaderViews, EndWithAWholeBlock) {
  open({760, 540});
  for (const int sentences : {0, 2, 4, 6, 8, 12, 40}) {
    BoardState board = *store().board();
    board.files[0].summary = std::string{};
    for (int i = 0; i < sentences; ++i) *board.files[0].summary += "One word differs here. ";
    store().board.set(board);
    for (const QSize size :
         {QSize{760, 540}, {760, 600}, {900, 540}, {1'100, 540}, {1'100, 700}, {1'500, 940}}) {
      resize(size);
      settle();
      EXPECT_EQ(sliced(), QStringList{})
          << sentences << " in " << size.width() << "×" << size.height();
    }
  }
}

TEST_F(HeaderViews, ShowAsManyLinesOfALongSummaryAsFit) {
  open({760, 540}, 40);
  const auto words = seen(the("HeaderWords"), "Label");
  const QQuickItem* summary = words.value(0);
  ASSERT_TRUE(summary);
  const double line = summary->height() / summary->property("lineCount").toInt();
  const double highest = 0.36 * the("FileView")->height();
  ASSERT_GT(summary->height(), highest);
  const double shown = placeOf(area()).bottom() - 12 - placeOf(summary).top();
  EXPECT_GE(shown, line - 1);
  EXPECT_LE(area()->height(), highest + 1);
  EXPECT_GT(area()->height() + line, highest) << "no more of them fit";
}

TEST_F(HeaderViews, TellThatThereIsMore) {
  open({760, 540});
  QQuickItem* view = area();
  ASSERT_GT(view->property("contentHeight").toDouble(), view->height() + 1);
  QQuickItem* bar = nullptr;
  for (QQuickItem* each : seen(the("FileView"), "ScrollBar")) {
    if (each->property("view").value<QQuickItem*>() == view) bar = each;
  }
  ASSERT_TRUE(bar);
  EXPECT_GT(seen(bar, "QQuickRectangle").value(0)->opacity(), 0.4);
  const auto fade = [&]() -> QQuickItem* {
    for (QQuickItem* each : seen(the("FileView"), "QQuickRectangle")) {
      const QRectF place = placeOf(each);
      if (place.height() == 12 && place.bottom() == placeOf(view).bottom() &&
          place.width() == view->width()) {
        return each;
      }
    }
    return nullptr;
  };
  EXPECT_TRUE(fade());
  view->setProperty("contentY", view->property("contentHeight").toDouble() - view->height());
  settle();
  EXPECT_FALSE(fade()) << "there is no more";
  resize({1'500, 940});
  EXPECT_FALSE(fade());
}

TEST_F(HeaderViews, HaveDueReviewerAndActionsInOneRow) {
  open({760, 540});
  const QRectF due = button("Overdue 2 hr");
  ASSERT_FALSE(due.isEmpty());
  const QRectF reviewer = button("You");
  const QRectF mark = button("Mark reviewed");
  const QRectF make = button("Make report");
  for (const QRectF& each : {reviewer, mark, make}) {
    ASSERT_FALSE(each.isEmpty());
    EXPECT_NEAR(each.center().y(), due.center().y(), 1);
  }
  EXPECT_LT(due.right(), reviewer.left());
  EXPECT_LT(reviewer.right(), mark.left());
  EXPECT_LT(mark.right(), make.left());
  const auto* title = reader().find("The Lighthouse", QAccessible::Heading);
  ASSERT_TRUE(title);
  EXPECT_NEAR(button("Share").center().y(), QRectF{title->rect()}.center().y(), 2);
  resize({1'500, 940});
  EXPECT_NEAR(button("Overdue 2 hr").center().y(), button("Share").center().y(), 1);
  EXPECT_LT(button("You").right(), button("Share").left()) << "each in its place";
}

TEST_F(HeaderViews, KeepTheKeyboardWhereTheRowsChange) {
  open({1'500, 940});
  auto* found = reader().find("Overdue 2 hr", QAccessible::Button);
  ASSERT_TRUE(found);
  auto* due = qobject_cast<QQuickItem*>(found->object());
  due->forceActiveFocus(Qt::TabFocusReason);
  for (const QSize size : {QSize{760, 540}, {1'500, 940}}) {
    resize(size);
    EXPECT_EQ(window()->activeFocusItem(), due);
  }
}

}  // namespace
}  // namespace vellix
