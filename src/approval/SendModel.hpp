// The sheet that sends the ticket on show out for approval, while it is open. Main thread only.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>

#include "approval/send_sheet.hpp"
#include "bridge/Shown.hpp"

namespace vellix {

class SendModel : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("made by the program")
  // It closes by itself when the ticket was sent, and with the session.
  Q_PROPERTY(bool open READ open NOTIFY openChanged)
  Q_PROPERTY(Qml<SendSheetView> sheet READ sheet NOTIFY sheetChanged)
  Q_PROPERTY(QString adding READ adding WRITE setAdding NOTIFY typedChanged)
  Q_PROPERTY(QString addName READ addName WRITE setAddName NOTIFY typedChanged)
  Q_PROPERTY(QString note READ note WRITE setNote NOTIFY typedChanged)

 public:
  // The store must outlive the model.
  explicit SendModel(Store& store);

  bool open() const { return draft_.has_value(); }
  Qml<SendSheetView> sheet() const { return sheet_.qml(); }
  QString adding() const { return typed(&SendDraft::adding); }
  void setAdding(const QString& text) { type(&SendDraft::adding, text); }
  QString addName() const { return typed(&SendDraft::addName); }
  void setAddName(const QString& text) { type(&SendDraft::addName, text); }
  QString note() const { return typed(&SendDraft::note); }
  void setNote(const QString& text) { type(&SendDraft::note, text); }

  Q_INVOKABLE void begin();
  Q_INVOKABLE void end();
  Q_INVOKABLE void pick(const QString& email, bool picked);
  Q_INVOKABLE void add();
  Q_INVOKABLE void setAfter(const QString& key);
  Q_INVOKABLE void send();

 signals:
  void openChanged();
  void sheetChanged();
  void typedChanged();

 private:
  QString typed(std::string SendDraft::* field) const;
  void type(std::string SendDraft::* field, const QString& text);
  void followStore();
  void update();

  Store& store_;
  std::optional<SendDraft> draft_;  // none while the sheet is closed
  Shown<SendSheetView> sheet_;      // of when it was last open while it is closed
  Changes::Subscription onChange_;
  Changes::Subscription onPrefs_;
};

}  // namespace vellix
