// The people that somebody who writes a note has picked, for the menu and the chips. Main thread
// only.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>
#include <QPointer>
#include <QVariantList>
#include <string>
#include <vector>

namespace vellix {

class NotesModel;

class Tags : public QObject {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(vellix::NotesModel* notes READ notes WRITE setNotes NOTIFY notesChanged REQUIRED)
  Q_PROPERTY(bool empty READ empty NOTIFY listChanged)
  Q_PROPERTY(QVariantList entries READ entries NOTIFY entriesChanged)  // TagEntryViews
  Q_PROPERTY(QVariantList chips READ chips NOTIFY chipsChanged)        // TagChipViews

 public:
  using QObject::QObject;

  NotesModel* notes() const { return notes_; }
  void setNotes(NotesModel* notes);
  bool empty() const { return list_.empty(); }
  QVariantList entries() const { return entries_; }
  QVariantList chips() const { return chips_; }
  const std::vector<std::string>& list() const { return list_; }  // addresses

  Q_INVOKABLE void press(const QString& email);
  Q_INVOKABLE void clear();

 signals:
  void notesChanged();
  void listChanged();
  void entriesChanged();
  void chipsChanged();

 private:
  void setList(std::vector<std::string> list);
  void update();

  QPointer<NotesModel> notes_;
  std::vector<std::string> list_;
  QVariantList entries_;
  QVariantList chips_;
};

}  // namespace vellix
