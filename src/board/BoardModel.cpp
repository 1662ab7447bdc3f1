#include "board/BoardModel.hpp"

#include <utility>

namespace vellix {
namespace {

constexpr const char* kShowReviewed = "ShowReviewed";

// A command is under way that may give a ticket another place in the list.
bool movesTickets(const Store& store) {
  return store.busy().contains("status") || store.busy().contains("due");
}

}  // namespace

BoardModel::BoardModel(Store& store, Defaults& defaults, const MainLoop& clock,
                       const Calendar& calendar)
    : store_(store),
      defaults_(defaults),
      clock_(clock),
      calendar_(calendar),
      showReviewed_(defaults.flag(kShowReviewed).value_or(false)),
      rows_([this](const FileLine& line) { return fileListRow(line, store_, listed_, calendar_); }),
      onChange_(store.changes.observe(
          Store::kBoard | Store::kSelection | Store::kQueue | Store::kSignedIn,
          [this] { update(); })),
      onPolled_(store.changes.observe(Store::kPolled, [this] { passTime(); })),
      onPrefs_(store.prefs.changes.observe(Prefs::kAny, [this] { update(); })),
      onAny_(store.changes.observe(Store::kAny, [this] { updateColumn(); })) {
  update();
  updateColumn();
}

void BoardModel::update() {
  listed_ = clock_.now();
  FileLines next = fileList(store_, showReviewed_, listed_);
  rows_.setLines(std::move(next.lines));
  list_ = std::move(next);
  if (head_.show(list_.head)) emit headChanged();
  follow();
}

// A poll may have brought nothing but the time.
void BoardModel::passTime() {
  if (!isSteady(list_, listed_, clock_.now(), calendar_)) return update();
  follow();
}

BoardModel::Chosen BoardModel::chosen() const {
  if (!store_.board()) return {};
  Chosen chosen{.tickets = store_.selection(), .queue = store_.effectiveQueue()};
  if (const FileItem* file = store_.currentFile()) {
    chosen.status = file->status;
    chosen.due = file->due;
  }
  return chosen;
}

// What the program selects comes into sight, and what the person's own command moves. What somebody
// presses in the list stays under the hand, as does all of it when others move what is selected.
void BoardModel::follow() {
  const Chosen before = std::exchange(seen_, chosen());
  const bool own = moves_ || movesTickets(store_);
  const bool isNew = seen_.tickets != before.tickets || seen_.queue != before.queue;
  if (isNew || (own && store_.currentFile() && seen_ != before)) {
    wanted_ = seen_.tickets.size() == 1;
  }
  if (!wanted_) return;
  const int row = chosenRow();
  // The board may have it later, or the command take it out of a folded group.
  wanted_ = row < 0 && (own || !store_.currentFile());
  if (row >= 0) emit followed(row);
}

// Whether the board is fresh and who is here is asked anew at every change: the steady polling is
// the only clock.
void BoardModel::updateColumn() {
  const Moment now = clock_.now();
  if (liveDot_.show(vellix::liveDot(store_, now, calendar_))) emit liveDotChanged();
  if (syncCard_.show(vellix::syncCard(store_))) emit syncCardChanged();
  moves_ = movesTickets(store_);
  people_.setRows(peopleBar(store_, now));
  const bool changing = store_.busy().contains("photo");
  if (std::exchange(changingPhoto_, changing) != changing) emit changingPhotoChanged();
}

void BoardModel::select(const QString& id, bool command) {
  if (command) {
    store_.toggleSelected(id.toStdString());
  } else {
    store_.select({id.toStdString()});
  }
  seen_ = chosen();
  wanted_ = false;
}

bool BoardModel::selectByKey(const QString& id, int key, int modifiers, bool repeats) {
  const bool presses = key == Qt::Key_Space || key == Qt::Key_Return || key == Qt::Key_Enter;
  const bool command = (modifiers & ~Qt::KeypadModifier) == Qt::ControlModifier;
  if (!presses || !command) return false;
  if (!repeats) select(id, true);
  return true;
}

void BoardModel::setMineOnly(bool on) { store_.setMineOnly(on); }

void BoardModel::setQueue(const QString& value) { store_.setQueue(value.toStdString()); }

void BoardModel::toggleReviewed() {
  showReviewed_ = !showReviewed_;
  defaults_.setFlag(kShowReviewed, showReviewed_);
  // The header that was pressed stays under the hand.
  wanted_ = false;
  update();
}

void BoardModel::refresh() { store_.requestRefresh(); }

void BoardModel::requestSync() { askForSync(store_); }

void BoardModel::stopSync() { vellix::stopSync(store_); }

void BoardModel::togglePage(const QString& email) {
  vellix::togglePage(store_, email.toStdString());
}

}  // namespace vellix
