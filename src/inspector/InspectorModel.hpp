// The findings panel for its view. Main thread only.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>

#include "bridge/RowsModel.hpp"
#include "bridge/Shown.hpp"
#include "inspector/findings_panel.hpp"
#include "inspector/keyboard_way.hpp"

namespace vellix {

class InspectorModel : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("made by the program")
  // The side of the panel on show: "page" or "history".
  Q_PROPERTY(QString tab READ tab WRITE setTab NOTIFY tabChanged)
  Q_PROPERTY(Qml<FindingsHead> head READ head NOTIFY headChanged)
  Q_PROPERTY(QAbstractItemModel* cards READ cards CONSTANT)
  Q_PROPERTY(QAbstractItemModel* passed READ passed CONSTANT)
  Q_PROPERTY(QAbstractItemModel* others READ others CONSTANT)

 public:
  // What is passed must outlive the model.
  InspectorModel(Store& store, const MainLoop& clock, const Calendar& calendar);

  QString tab() const { return history_ ? QStringLiteral("history") : QStringLiteral("page"); }
  void setTab(const QString& tab) { store_.setSideTab(tab.toStdString()); }
  Qml<FindingsHead> head() const { return head_.qml(); }
  QAbstractItemModel* cards() { return &cards_; }
  QAbstractItemModel* passed() { return &passed_; }
  QAbstractItemModel* others() { return &others_; }

  // Where the keyboard goes, should the press have been by key: a KeyboardWay over the `cards`.
  Q_INVOKABLE Qml<KeyboardWay> realIssue(const QString& id);
  Q_INVOKABLE Qml<KeyboardWay> fine(const QString& id);
  Q_INVOKABLE void note(const QString& id);
  Q_INVOKABLE void press(const QString& id);
  Q_INVOKABLE void goToPage(qlonglong page);

 signals:
  void tabChanged();
  void headChanged();

 private:
  void update();
  void followTab();
  template <class Press>
  Qml<KeyboardWay> wayBy(Press press, const QString& id, const std::string& decision);

  Store& store_;
  const MainLoop& clock_;
  const Calendar& calendar_;
  bool history_ = false;
  Shown<FindingsHead> head_;
  RowsModel<FindingCardView, &FindingCardView::id> cards_;
  RowsModel<FindingCardView, &FindingCardView::id> passed_;
  RowsModel<OtherPageView, &OtherPageView::page> others_;
  Changes::Subscription onChange_;
  Changes::Subscription onTab_;
  Changes::Subscription onPrefs_;
};

}  // namespace vellix
