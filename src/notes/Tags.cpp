#include "notes/Tags.hpp"

#include "notes/NotesModel.hpp"

namespace vellix {

void Tags::setNotes(NotesModel* notes) {
  if (notes == notes_) return;
  if (notes_) disconnect(notes_, nullptr, this, nullptr);
  notes_ = notes;
  if (notes_) connect(notes_, &NotesModel::peopleChanged, this, &Tags::update);
  update();
  emit notesChanged();
}

void Tags::press(const QString& email) { setList(withTagPressed(list_, email.toStdString())); }

void Tags::clear() { setList({}); }

void Tags::setList(std::vector<std::string> list) {
  if (list == list_) return;
  list_ = std::move(list);
  update();
  emit listChanged();
}

void Tags::update() {
  if (!notes_) return;
  if (entries_.show(tagEntries(notes_->store(), list_))) emit entriesChanged();
  if (chips_.show(tagChips(notes_->store(), list_))) emit chipsChanged();
}

}  // namespace vellix
