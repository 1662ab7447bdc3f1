#include "inspector/InspectorModel.hpp"

namespace vellix {

InspectorModel::InspectorModel(Store& store, const MainLoop& clock, const Calendar& calendar)
    : store_(store),
      clock_(clock),
      calendar_(calendar),
      onChange_(store.changes.observe(Store::kBoard | Store::kDetails | Store::kSelection |
                                          Store::kPage | Store::kFocus | Store::kCanvas |
                                          Store::kBusy,
                                      [this] { update(); })),
      onPrefs_(store.prefs.changes.observe(Prefs::kAny, [this] { update(); })) {
  update();
}

void InspectorModel::update() {
  const FileDetail* detail = store_.currentDetail();
  if (!detail) return;
  auto view = findingsPanel(store_, *detail, clock_.now(), calendar_);
  cards_.setRows(std::move(view.cards));
  others_.setRows(std::move(view.others));
  if (auto head = toQml(view.head).toMap(); head != head_) {
    head_ = std::move(head);
    emit headChanged();
  }
}

void InspectorModel::realIssue(const QString& id) { pressRealIssue(store_, id.toStdString()); }
void InspectorModel::fine(const QString& id) { pressFine(store_, id.toStdString()); }
void InspectorModel::press(const QString& id) { pressCard(store_, id.toStdString()); }

void InspectorModel::goToPage(qlonglong page) {
  if (const FileItem* file = store_.currentFile()) store_.goToPage(file->id, page);
}

}  // namespace vellix
