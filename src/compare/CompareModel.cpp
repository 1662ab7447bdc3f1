#include "compare/CompareModel.hpp"

#include <algorithm>

#include "bridge/replaced.hpp"

namespace vellix {
namespace {

Extent extentOf(QSizeF size) { return {size.width(), size.height()}; }
QSizeF sizeOf(Extent extent) { return {extent.width, extent.height}; }

}  // namespace

CompareModel::CompareModel(Store& store)
    : store_(store),
      onChange_(store.changes.observe(Store::kBoard | Store::kDetails | Store::kSelection |
                                          Store::kPage | Store::kCanvas | Store::kSignedIn,
                                      [this] { update(); })),
      onPanels_(store.changes.observe(Store::kPanels, [this] { updateNotes(); })),
      onPrefs_(store.prefs.changes.observe(Prefs::kAny, [this] { updateNotes(); })) {
  update();
  updateNotes();
}

void CompareModel::update() {
  const FileItem* file = store_.currentFile();
  if (file && asked_ != file->id) store_.requestDetail(*file);
  asked_ = file ? file->id : std::string{};

  const FileDetail* detail = store_.currentDetail();
  auto view = detail ? canvasView(store_, *detail) : CanvasView{};
  panes_.setRows(std::move(view.panes));
  toggles_.setRows(std::move(view.toggles));
  if (replaced(header_, file ? fileHeader(*file) : FileHeaderView{})) emit headerChanged();
  if (replaced(bar_, view.bar)) emit barChanged();
  if (loaded_ != (detail != nullptr)) {
    loaded_ = detail != nullptr;
    emit loadedChanged();
  }
}

void CompareModel::updateNotes() {
  if (replaced(notes_, notesPanel(store_, width_))) emit notesChanged();
}

void CompareModel::stepPage(int delta) {
  if (const FileDetail* detail = store_.currentDetail()) store_.stepPage(*detail, delta);
}

void CompareModel::togglePane(const QString& key) { vellix::togglePane(store_, key.toStdString()); }

void CompareModel::zoomIn() { store_.stepZoom(Store::kZoomIn); }
void CompareModel::zoomOut() { store_.stepZoom(Store::kZoomOut); }
void CompareModel::zoomTo(double zoom) { store_.zoomTo(zoom); }
void CompareModel::fit() { store_.fitZoom(); }
void CompareModel::toggleNotes() { store_.toggleNotes(); }

void CompareModel::layNotes(double width) {
  if (!(width > 0)) return;  // a view that is not laid out yet
  width_ = width;
  store_.notesFloat = notesFloat(width);
  updateNotes();
}

QSizeF CompareModel::paneRoom(QSizeF stage, int panes) {
  return sizeOf(vellix::paneRoom(extentOf(stage), static_cast<std::size_t>(std::max(panes, 0))));
}

QSizeF CompareModel::fittedImage(QSizeF room, double aspect, double zoom) {
  return sizeOf(vellix::fittedImage(extentOf(room), aspect, zoom));
}

}  // namespace vellix
