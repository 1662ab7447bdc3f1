#include "inspector/InspectorModel.hpp"

namespace vellix {

InspectorModel::InspectorModel(Store& store, const MainLoop& clock, const Calendar& calendar)
    : store_(store),
      clock_(clock),
      calendar_(calendar),
      onChange_(store.changes.observe(Store::kBoard | Store::kDetails | Store::kSelection |
                                          Store::kPage | Store::kFocus | Store::kCanvas |
                                          Store::kBusy | Store::kPolled,
                                      [this] { update(); })),
      onTab_(store.changes.observe(Store::kPanels, [this] { followTab(); })),
      onPrefs_(store.prefs.changes.observe(Prefs::kAny, [this] { update(); })) {
  followTab();
  update();
}

void InspectorModel::followTab() {
  const bool history = store_.sideTab() == "history";
  if (history == history_) return;
  history_ = history;
  emit tabChanged();
}

void InspectorModel::update() {
  const FileDetail* detail = store_.currentDetail();
  auto view =
      detail ? findingsPanel(store_, *detail, clock_.now(), calendar_) : FindingsPanelView{};
  cards_.setRows(std::move(view.cards));
  passed_.setRows(std::move(view.passed));
  others_.setRows(std::move(view.others));
  if (head_.show(std::move(view.head))) emit headChanged();
}

template <class Press>
Qml<KeyboardWay> InspectorModel::wayBy(Press press, const QString& id,
                                       const std::string& decision) {
  const std::string decided = id.toStdString();
  const bool wasInFront = store_.focus() == decided;
  press(store_, decided);
  // At once, so that a press that waits already falls on what comes next.
  update();
  const std::string following = wasInFront ? store_.focus().value_or("") : std::string{};
  return toQml(keyboardWay(cards_.rows(), decided, following, decision)).toMap();
}

Qml<KeyboardWay> InspectorModel::realIssue(const QString& id) {
  return wayBy(pressRealIssue, id, "issue");
}
Qml<KeyboardWay> InspectorModel::fine(const QString& id) { return wayBy(pressFine, id, "fine"); }
void InspectorModel::note(const QString& id) { pressNote(store_, id.toStdString()); }
void InspectorModel::press(const QString& id) { pressCard(store_, id.toStdString()); }

void InspectorModel::goToPage(qlonglong page) {
  if (const FileItem* file = store_.currentFile()) store_.goToPage(file->id, page);
}

}  // namespace vellix
