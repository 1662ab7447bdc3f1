#include "ticket/FileModel.hpp"

#include <utility>

#include "store/open_page.hpp"
#include "ticket/header_cut.hpp"

namespace vellix {

FileModel::FileModel(Store& store, const MainLoop& clock, const Calendar& calendar)
    : store_(store),
      clock_(clock),
      calendar_(calendar),
      onTicket_(store.changes.observe(
          Store::kBoard | Store::kDetails | Store::kSelection | Store::kPolled,
          [this] { updateHeader(); })),
      onReview_(store.changes.observe(Store::kBoard | Store::kSelection | Store::kBusy,
                                      [this] { updateReview(); })),
      onPages_(
          store.changes.observe(Store::kBoard | Store::kDetails | Store::kSelection | Store::kPage,
                                [this] { updateStrip(); })),
      onPanels_(store.changes.observe(Store::kPanels, [this] { updateNotesPanel(); })),
      onPrefs_(store.prefs.changes.observe(Prefs::kAny, [this] {
        turnStrip();
        updateNotesPanel();
      })) {
  updateHeader();
  updateReview();
  updateNotesPanel();
}

void FileModel::updateHeader() {
  const FileItem* file = store_.currentFile();
  const QString ticket = file ? QString::fromStdString(file->id) : QString{};
  if (std::exchange(ticket_, ticket) != ticket) emit ticketChanged();
  auto header = file ? fileHeader(store_, *file, store_.currentDetail(), clock_.now(), calendar_)
                     : FileHeaderView{};
  if (header_.show(std::move(header))) emit headerChanged();
  const bool several = store_.selection().size() > 1;
  if (multi_.show(several ? multiFiles(store_) : MultiFilesView{})) emit multiChanged();
}

void FileModel::updateReview() {
  if (review_.show(reviewButton(store_))) emit reviewChanged();
}

void FileModel::updateStrip() {
  const FileDetail* detail = store_.currentDetail();
  const bool shows = hasStrip();
  const FileItem* file = store_.currentFile();
  const std::string ticket = file ? file->id : "";
  // A strip that goes keeps its pages while it slides out, but for another ticket's.
  if (std::exchange(stripOf_, ticket) != ticket || shows) {
    pages_.setRows(shows ? pageStrip(store_, *detail) : std::vector<PageCellView>{});
    const int open = shows ? static_cast<int>(pageIndex(store_, detail->file)) : 0;
    if (openPage_ != open) {
      openPage_ = open;
      emit openPageChanged();
    }
  }
  if (showsStrip_ != shows) {
    showsStrip_ = shows;
    emit showsStripChanged();
  }
  holdStrip();
}

void FileModel::holdStrip() {
  const FileItem* file = store_.currentFile();
  const bool room = file && roomForPageStrip(*file, store_.currentDetail(), width_);
  if (std::exchange(stripRoom_, room) != room) emit stripRoomChanged();
  const bool wanted = store_.prefs.showPageStrip();
  if (std::exchange(stripWanted_, wanted) != wanted) emit stripWantedChanged();
}

bool FileModel::hasStrip() const {
  return vellix::showsPageStrip(store_, store_.currentDetail(), width_);
}

// What is no news of the pages moves nothing but the strip as a whole.
void FileModel::turnStrip() {
  if (showsStrip_ != hasStrip()) {
    updateStrip();
  } else {
    holdStrip();
  }
}

void FileModel::updateNotesPanel() {
  if (notesPanel_.show(vellix::notesPanel(store_, width_))) emit notesPanelChanged();
}

void FileModel::lay(double width) {
  if (!(width > 0)) return;  // a view that is not laid out yet
  width_ = width;
  store_.setNotesFloat(notesFloat(width));
  updateNotesPanel();
  turnStrip();
}

void FileModel::selectPage(int row) {
  const FileItem* file = store_.currentFile();
  if (file && showsStrip_) store_.goToPage(file->id, row);
}

void FileModel::toggleNotes() { store_.toggleNotes(); }

void FileModel::openNotes() {
  if (!store_.notesOpen()) store_.toggleNotes();
  store_.setSideTab("page");
}

double FileModel::headerCut(const QVariantList& ends, double air, double most) {
  std::vector<double> known;
  known.reserve(static_cast<std::size_t>(ends.size()));
  for (const QVariant& end : ends) known.push_back(end.toDouble());
  return vellix::headerCut(known, air, most);
}

void FileModel::pressReview() { pressReviewButton(store_); }

}  // namespace vellix
