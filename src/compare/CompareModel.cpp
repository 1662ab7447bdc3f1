#include "compare/CompareModel.hpp"

#include <algorithm>

namespace vellix {
namespace {

constexpr double kFloatsBelow = 900;

Extent extentOf(QSizeF size) { return {size.width(), size.height()}; }
QSizeF sizeOf(Extent extent) { return {extent.width, extent.height}; }

}  // namespace

CompareModel::CompareModel(Store& store)
    : store_(store),
      onChange_(store.changes.observe(Store::kBoard | Store::kDetails | Store::kSelection |
                                          Store::kPage | Store::kCanvas | Store::kPanels |
                                          Store::kSignedIn,
                                      [this] { update(); })),
      onPrefs_(store.prefs.changes.observe(Prefs::kAny, [this] { update(); })) {
  update();
}

void CompareModel::update() {
  const FileItem* file = store_.currentFile();
  if (!file) {
    asked_.clear();
    return;
  }
  if (asked_ != file->id) {
    asked_ = file->id;
    store_.requestDetail(*file);
  }
  if (auto header = toQml(fileHeader(*file)).toMap(); header != header_) {
    header_ = std::move(header);
    emit headerChanged();
  }
  const FileDetail* detail = store_.currentDetail();
  auto view = detail ? canvasView(store_, *detail) : CanvasView{};
  panes_.setRows(std::move(view.panes));
  if (auto bar = toQml(view.bar).toMap(); bar != bar_) {
    bar_ = std::move(bar);
    emit barChanged();
  }
  if (loaded_ != (detail != nullptr)) {
    loaded_ = detail != nullptr;
    emit loadedChanged();
  }
}

void CompareModel::stepPage(int delta) {
  if (const FileDetail* detail = store_.currentDetail()) store_.stepPage(*detail, delta);
}

void CompareModel::togglePane(const QString& key) {
  vellix::togglePane(store_, key.toStdString());
}

void CompareModel::zoomIn() { store_.stepZoom(1.25); }
void CompareModel::zoomOut() { store_.stepZoom(0.8); }
void CompareModel::zoomTo(double zoom) { store_.zoom.set(std::clamp(zoom, 1.0, 4.0)); }
void CompareModel::fit() { store_.fitZoom(); }
void CompareModel::toggleNotes() { store_.toggleNotes(); }

void CompareModel::layNotes(double width) {
  if (store_.notesFloat == (width < kFloatsBelow)) return;
  store_.notesFloat = width < kFloatsBelow;
  update();
}

QSizeF CompareModel::paneRoom(QSizeF stage, int panes) {
  return sizeOf(vellix::paneRoom(extentOf(stage), static_cast<std::size_t>(std::max(panes, 0))));
}

QSizeF CompareModel::fittedImage(QSizeF room, double aspect, double zoom) {
  return sizeOf(vellix::fittedImage(extentOf(room), aspect, zoom));
}

}  // namespace vellix
