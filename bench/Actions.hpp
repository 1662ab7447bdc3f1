// What a person does with a board, each kind of action as often as wanted.
#pragma once

#include <QPointer>
#include <array>

#include "Costs.hpp"
#include "Desk.hpp"
#include "Hand.hpp"
#include "children.hpp"

namespace vellix::bench {

// Main thread, one in a process.
class Actions {
 public:
  // `changeTicket` has the service tell another board from then on, of which one ticket differs.
  Actions(std::string token, std::function<void()> changeTicket)
      : desk_(std::move(token), Desk::Board::polled), changeTicket_(std::move(changeTicket)) {}

  // False when the board or its first ticket's page were never shown.
  bool begin();

  struct Kind {
    std::string name;
    // Does it for the nth time; what its dearest frame took of the main thread, in milliseconds.
    // None when nothing happened.
    std::function<std::optional<double>(int n)> once;
  };
  std::array<Kind, kKinds> kinds();

  Desk& desk() { return desk_; }
  Costs& costs() { return *costs_; }
  // Goes to a page of the ticket on show, and lets all come to rest.
  void goTo(int page);
  // Presses what is there; null does nothing.
  Cost press(QQuickItem* item);
  Cost key(int key, Qt::KeyboardModifiers modifiers = {}, const QString& text = {});
  // Where a note on the whole page is written: in sight, and with the keyboard. Null when there is
  // none.
  QQuickItem* noteField();
  // The first that is in sight; null when there is none.
  QQuickItem* find(QByteArrayView type, const char* property, const QString& value);
  QQuickItem* find(const std::function<bool(QQuickItem*)>& wanted);
  int pages();  // of the ticket on show
  int page();

 private:
  std::optional<double> stepPage(int n);
  std::optional<double> decide(int n);
  std::optional<double> select(int n);
  std::optional<double> open(int n);
  std::optional<double> changeMode(int n);
  std::optional<double> type(int n);
  std::optional<double> poll(int n);
  void findOpeners();
  // Of the ticket on show, the first page with a note of the person's own.
  std::optional<int> ownNotePage();
  // Scrolls what it stands in until it is in sight; false where nothing scrolls, or for null.
  bool bringIn(QQuickItem* item);
  const Finding* findingOf(const QQuickItem* inCard);

  struct Opener {
    QByteArray type;
    const char* property;
    QString value;
  };

  Desk desk_;
  std::function<void()> changeTicket_;
  std::optional<Hand> hand_;
  std::optional<Costs> costs_;
  std::vector<Opener> openers_;
  bool polling_ = false;
  QPointer<QQuickItem> field_;  // that is written in
  int way_ = 1;                 // of the next page step
  TaskScope tasks_;
};

}  // namespace vellix::bench
