// The notes of the page on show, and those being written, for their views. Main thread only.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>

#include "bridge/Shown.hpp"
#include "notes/Tags.hpp"
#include "notes/composer.hpp"
#include "notes/note_row.hpp"

namespace vellix {

class NotesModel : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("made by the program")
  Q_PROPERTY(Qml<std::vector<NoteRowView>> rows READ rows NOTIFY rowsChanged)  // of the open page
  Q_PROPERTY(Qml<ComposerView> composer READ composer NOTIFY composerChanged)
  Q_PROPERTY(Qml<DraftCardView> draft READ draft NOTIFY draftChanged)
  // What is written at the draft's place lasts as long as the draft on its page.
  Q_PROPERTY(QString draftText READ draftText WRITE setDraftText NOTIFY draftTextChanged)
  Q_PROPERTY(vellix::Tags* draftTags READ draftTags CONSTANT)

 public:
  // What is passed must outlive the model.
  NotesModel(Store& store, const MainLoop& clock, const Calendar& calendar);

  const Store& store() const { return store_; }
  Qml<std::vector<NoteRowView>> rows() const { return rows_.qml(); }
  Qml<ComposerView> composer() const { return composer_.qml(); }
  Qml<DraftCardView> draft() const { return draft_.qml(); }
  QString draftText() const { return draftText_; }
  void setDraftText(const QString& text);
  Tags* draftTags() { return &draftTags_; }

  Q_INVOKABLE void resolve(const QString& id);
  Q_INVOKABLE void save(const QString& id, const QString& text);
  Q_INVOKABLE void remove(const QString& id);
  // What is posted is emptied, whatever comes of it. False when there is nothing to post.
  Q_INVOKABLE bool post(const QString& text, vellix::Tags* tags);
  Q_INVOKABLE void postDraft();
  Q_INVOKABLE void dropDraft();
  Q_INVOKABLE static bool blank(const QString& text);

 signals:
  void rowsChanged();
  void composerChanged();
  void draftChanged();
  void draftTextChanged();
  void peopleChanged();  // perhaps

 private:
  void update();
  void followDraft();

  Store& store_;
  const MainLoop& clock_;
  const Calendar& calendar_;
  std::optional<DraftNote> writing_;
  Shown<std::vector<NoteRowView>> rows_;
  Shown<ComposerView> composer_;
  Shown<DraftCardView> draft_;
  QString draftText_;
  Tags draftTags_;
  Changes::Subscription onChange_;
  Changes::Subscription onDraft_;
  Changes::Subscription onPeople_;
  Changes::Subscription onPrefs_;
};

}  // namespace vellix
