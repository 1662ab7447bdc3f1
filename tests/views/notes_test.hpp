// The ground of the tests of the notes' views: notes on the page on show, and what lies under keys.
#pragma once

#include <QGuiApplication>
#include <QStyleHints>
#include <QTest>

#include "views/sights.hpp"
#include "views/view_test.hpp"

namespace vellix {

class NotesViewTest : public ViewTest {
 public:
  ~NotesViewTest() override { QGuiApplication::styleHints()->setMouseDoubleClickInterval(400); }

 protected:
  static inline const QString kField = QStringLiteral("Write a note for the report");
  static inline const QString kCardField = QStringLiteral("What needs fixing here?");

  NotesViewTest() { QGuiApplication::styleHints()->setMouseDoubleClickInterval(0); }

  static Note noteBy(std::string id, std::string who, std::string text = "Too dark") {
    Note note;
    note.id = std::move(id);
    note.file_id = "t1";
    note.page = 0;
    note.text = std::move(text);
    note.by = std::move(who) + "@tessarine.example";
    return note;
  }
  static FileDetail withNotes(std::vector<Note> notes, Int rev = 1) {
    FileDetail detail = lighthouse(rev);
    detail.comments = std::move(notes);
    return detail;
  }
  // The window has the keyboard, and nothing in it moves by itself.
  void calm() {
    theme()->setReducedMotion(true);
    window()->requestActivate();
    EXPECT_TRUE(QTest::qWaitForWindowActive(window()));
  }
  // As a poll brings them.
  void bring(std::vector<Note> notes, Int rev = 2) {
    store().details.set({{"t1", withNotes(std::move(notes), rev)}});
    settle();
  }

  QQuickItem* keyed() { return window()->activeFocusItem(); }
  QString keyedName() {
    auto* seen = keyed() ? QAccessible::queryAccessibleInterface(keyed()) : nullptr;
    return seen ? seen->text(QAccessible::Name) : QString{};
  }
  QQuickItem* item(const QString& name, QAccessible::Role role = QAccessible::Button) {
    auto* found = reader().find(name, role);
    return found ? qobject_cast<QQuickItem*>(found->object()) : nullptr;
  }
  // What text is edited in, by its name.
  QQuickItem* field(const QString& name) { return item(name, QAccessible::EditableText); }
  void focus(QQuickItem* at) {
    ASSERT_TRUE(at);
    at->forceActiveFocus(Qt::TabFocusReason);
    settle();
  }
  void key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(window(), key, modifiers);
    settle();
  }
  void type(const char* text) {
    for (const char* each = text; *each; ++each) QTest::keyClick(window(), *each);
    settle();
  }
  static QString textOf(const QQuickItem* field) { return field->property("text").toString(); }
  bool says(const QString& text) { return reader().find(text, QAccessible::StaticText) != nullptr; }
  bool offers(const QString& entry) {
    return reader().find(entry, QAccessible::MenuItem) != nullptr;
  }
  // Waits for what a menu does once it has opened or gone.
  template <class F>
  bool comes(F&& holds) {
    return QTest::qWaitFor([&] {
      settle();
      return holds();
    });
  }
  // The bodies that were posted to this path.
  std::vector<std::string> posted(const std::string& path) {
    std::vector<std::string> all;
    for (const auto* each : desk.http.matching("POST " + path)) {
      all.push_back(each->request.body.value_or(""));
    }
    return all;
  }
};

}  // namespace vellix
