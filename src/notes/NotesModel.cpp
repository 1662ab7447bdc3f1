#include "notes/NotesModel.hpp"

#include "store/open_page.hpp"

namespace vellix {

NotesModel::NotesModel(Store& store, const MainLoop& clock, const Calendar& calendar)
    : store_(store),
      clock_(clock),
      calendar_(calendar),
      onChange_(store.changes.observe(Store::kBoard | Store::kDetails | Store::kSelection |
                                          Store::kPage | Store::kBusy | Store::kDraft |
                                          Store::kPolled,
                                      [this] { update(); })),
      onDraft_(store.changes.observe(Store::kDraft, [this] { followDraft(); })),
      onPeople_(store.changes.observe(Store::kBoard, [this] { emit peopleChanged(); })),
      onPrefs_(store.prefs.changes.observe(Prefs::kAny, [this] { update(); })) {
  draftTags_.setNotes(this);
  update();
  followDraft();
}

void NotesModel::update() {
  const Moment now = clock_.now();
  const FileDetail* detail = store_.currentDetail();
  const Int page = detail ? pageIndex(store_, detail->file) : 0;
  auto rows =
      detail ? pageNotes(store_, *detail, page, now, calendar_) : std::vector<NoteRowView>{};
  if (rows_.show(std::move(rows))) emit rowsChanged();
  if (composer_.show(detail ? vellix::composer(store_, *detail) : ComposerView{})) {
    emit composerChanged();
  }
  auto card = detail ? draftCard(store_, *detail) : DraftCardView{};
  // The card keeps its words while it leaves.
  if (!card.here) card.title = draft_->title;
  if (draft_.show(std::move(card))) emit draftChanged();
}

void NotesModel::followDraft() {
  if (!samePage(writing_, store_.draft())) {
    setDraftText({});
    draftTags_.clear();
  }
  writing_ = store_.draft();
}

void NotesModel::setDraftText(const QString& text) {
  if (text == draftText_) return;
  draftText_ = text;
  emit draftTextChanged();
}

void NotesModel::resolve(const QString& id) { toggleResolved(store_, id.toStdString()); }

void NotesModel::save(const QString& id, const QString& text) {
  saveNote(store_, id.toStdString(), text.toStdString());
}

void NotesModel::remove(const QString& id) { removeNote(store_, id.toStdString()); }

bool NotesModel::post(const QString& text, Tags* tags) {
  if (!postNote(store_, text.toStdString(), tags->list())) return false;
  tags->clear();
  return true;
}

void NotesModel::postDraft() {
  vellix::postDraft(store_, draftText_.toStdString(), draftTags_.list());
}

void NotesModel::dropDraft() { store_.dropDraft(); }

bool NotesModel::blank(const QString& text) { return isBlank(text.toStdString()); }

}  // namespace vellix
