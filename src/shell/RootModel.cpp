#include "shell/RootModel.hpp"

#include "bridge/replaced.hpp"
#include "shell/settings.hpp"

namespace vellix {

RootModel::RootModel(Store& store, MainLoop& loop)
    : store_(store),
      timer_(store, loop),
      onChange_(store.changes.observe(
          Store::kSignedIn | Store::kBoard | Store::kSelection | Store::kProblem,
          [this] { update(); })),
      onToast_(store.changes.observe(Store::kToast, [this] { updateToast(); })),
      onPrefs_(store.prefs.changes.observe(Prefs::kAny, [this] { emit appearanceChanged(); })) {
  update();
  updateToast();
}

void RootModel::start() {
  if (store_.signedIn()) store_.startLoop();
}

void RootModel::update() {
  if (replaced(view_, rootView(store_))) emit viewChanged();
}

void RootModel::updateToast() {
  QVariantMap toast{{"id", QString{}}, {"text", QString{}}, {"undoLabel", QString{}}};
  if (const auto& shown = store_.toast()) {
    toast["id"] = QString::number(shown->id);
    toast["text"] = QString::fromStdString(shown->text);
    const bool undoable = shown->undoLabel && shown->undo;
    toast["undoLabel"] = undoable ? QString::fromStdString(*shown->undoLabel) : QString{};
  }
  if (toast == toast_) return;
  toast_ = std::move(toast);
  emit toastChanged();
}

void RootModel::undo() { undoToast(store_); }

QString RootModel::appearance() const {
  if (!forcedAppearance_.isEmpty()) return forcedAppearance_;
  return QString::fromStdString(appearanceOf(store_.prefs));
}

void RootModel::forceAppearance(const QString& appearance) {
  forcedAppearance_ = appearance;
  emit appearanceChanged();
}

double RootModel::sidebarWidth(double windowWidth) { return vellix::sidebarWidth(windowWidth); }

}  // namespace vellix
