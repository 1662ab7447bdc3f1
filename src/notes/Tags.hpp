// The people that somebody who writes a note has picked, for the menu and the chips. Main thread
// only.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>
#include <QPointer>
#include <string>
#include <vector>

#include "bridge/Shown.hpp"
#include "notes/note_tags.hpp"

namespace vellix {

class NotesModel;

class Tags : public QObject {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(vellix::NotesModel* notes READ notes WRITE setNotes NOTIFY notesChanged REQUIRED)
  Q_PROPERTY(bool empty READ empty NOTIFY listChanged)
  Q_PROPERTY(Qml<std::vector<TagEntryView>> entries READ entries NOTIFY entriesChanged)
  Q_PROPERTY(Qml<std::vector<TagChipView>> chips READ chips NOTIFY chipsChanged)

 public:
  using QObject::QObject;

  NotesModel* notes() const { return notes_; }
  void setNotes(NotesModel* notes);
  bool empty() const { return list_.empty(); }
  Qml<std::vector<TagEntryView>> entries() const { return entries_.qml(); }
  Qml<std::vector<TagChipView>> chips() const { return chips_.qml(); }
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
  Shown<std::vector<TagEntryView>> entries_;
  Shown<std::vector<TagChipView>> chips_;
};

}  // namespace vellix
