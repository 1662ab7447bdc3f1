// The sheet that uploads a revision of the ticket on show, while it is open. Main thread only.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>
#include <QUrl>

#include "approval/upload_sheet.hpp"
#include "bridge/Shown.hpp"

namespace vellix {

class UploadModel : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("made by the program")
  // It closes by itself when the upload has begun, and with the session.
  Q_PROPERTY(bool open READ open NOTIFY openChanged)
  Q_PROPERTY(Qml<UploadSheetView> sheet READ sheet NOTIFY sheetChanged)
  Q_PROPERTY(QString note READ note WRITE setNote NOTIFY noteChanged)

 public:
  // The store must outlive the model.
  explicit UploadModel(Store& store);

  bool open() const { return draft_.has_value(); }
  Qml<UploadSheetView> sheet() const { return sheet_.qml(); }
  QString note() const { return draft_ ? QString::fromStdString(draft_->note) : QString{}; }
  void setNote(const QString& text);

  Q_INVOKABLE void begin();
  Q_INVOKABLE void end();
  // A local file. What cannot be taken changes nothing.
  Q_INVOKABLE void choose(const QUrl& file);
  Q_INVOKABLE void upload();

 signals:
  void openChanged();
  void sheetChanged();
  void noteChanged();

 private:
  void followStore();
  void update();

  Store& store_;
  std::optional<UploadDraft> draft_;  // none while the sheet is closed
  Shown<UploadSheetView> sheet_;      // of when it was last open while it is closed
  Changes::Subscription onChange_;
};

}  // namespace vellix
