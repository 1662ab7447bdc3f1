// The ground of the tests of a person's page: figures that are served, and how it is opened.
#pragma once

#include <QQuickItem>
#include <QTest>

#include "pieces/Sight.hpp"
#include "views/sights.hpp"
#include "views/view_test.hpp"

namespace vellix {

inline constexpr const char* kRenny = "renny@tessarine.example";    // signed in
inline constexpr const char* kJorvas = "jorvas@tessarine.example";  // a colleague
inline constexpr const char* kStatsLine = "GET api/stats";

// Eight weeks, six kinds, two notes: one on a ticket of the board's.
inline PersonStats richStats() {
  PersonStats stats{.reviewed = 39,
                    .reviewed_week = 4,
                    .on_time = 35,
                    .on_time_rate = 89,
                    .avg_hours = 60,
                    .issues = 27,
                    .fine = 61,
                    .by_kind = {{"words", 9}, {"barcode", 3}, {"size", 0}},
                    .notes = 22,
                    .streak = 4,
                    .open = 2,
                    .overdue = 1};
  for (int week = 0; week < 8; ++week) {
    stats.weekly.push_back({.start = 1'699'000'000'000 + week * 604'800'000.0, .count = week});
  }
  stats.mentions = {{.file_id = "t2", .page = 0, .text = "Is it?", .by = kJorvas, .at = 1.7e12},
                    {.file_id = "gone", .text = "It was.", .by = kJorvas, .at = 1.6e12}};
  return stats;
}

class ProfileViewTest : public ViewTest {
 public:
  ~ProfileViewTest() override { Sight::clock = nullptr; }

 protected:
  ProfileViewTest() {
    Sight::clock = [] { return present; };
    serveTheDay();
    BoardState board = *store().board();
    board.files[0].assignee = kRenny;
    board.files[1].assignee = kRenny;
    board.files[2].assignee = kRenny;
    serveBoard(board, "\"b2\"");
    poll();
    serveBoard(board);
    poll();
  }
  void serveStats(std::map<std::string, PersonStats> users) {
    routes.set(kStatsLine, answerOf(200, jsonOf(Stats{.at = 1, .users = std::move(users)})));
  }
  void change(const std::function<void(BoardState&)>& how) {
    BoardState board = *store().board();
    how(board);
    store().board.set(board);
    rest();
  }
  void rest() {
    if (window()) {
      settle();
    } else {
      desk.time.run();
    }
  }
  void open(const std::string& email) {
    store().openProfile(email);
    rest();
  }
  ProfileModel& model() { return *models()["profile"].value<ProfileModel*>(); }
  QQuickItem* page() { return seen(window()->contentItem(), "ProfileView").value(0); }
  // The rows of a list lie in it in any order.
  QList<QQuickItem*> inOrder(const char* type) {
    QList<QQuickItem*> rows = seen(window()->contentItem(), type);
    std::ranges::sort(rows, {}, [](QQuickItem* row) { return row->property("index").toInt(); });
    return rows;
  }
  bool says(const QString& text) { return reader().find(text, QAccessible::StaticText); }
  bool pageIsOpen() { return !seen(window()->contentItem(), "ProfileView").isEmpty(); }
  QString keyed() {
    const QQuickItem* item = window()->activeFocusItem();
    if (!item) return {};
    const QString label = item->property("label").toString();
    return label.isEmpty() ? item->property("text").toString() : label;
  }
  bool ringed() {
    const QQuickItem* item = window()->activeFocusItem();
    return item && item->property("visualFocus").toBool();
  }
  void key(Qt::Key which, Qt::KeyboardModifiers modifiers = {}) {
    present += 1'000;
    QTest::keyClick(window(), which, modifiers);
    settle();
  }
  void tabTo(const QString& name) {
    for (int i = 0; i < 80 && keyed() != name; ++i) key(Qt::Key_Tab);
    ASSERT_EQ(keyed(), name);
  }
  void click(QQuickItem* item) {
    ASSERT_TRUE(item);
    present += 1'000;
    const QPointF middle{item->width() / 2, item->height() / 2};
    QTest::mouseClick(window(), Qt::LeftButton, {}, item->mapToScene(middle).toPoint());
    settle();
  }

  // Of what presses are meant for, in milliseconds.
  static inline qint64 present = 100'000;
};

}  // namespace vellix
