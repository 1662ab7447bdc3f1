#include "shell/RootModel.hpp"

#include "shell/settings.hpp"

namespace vellix {

RootModel::RootModel(Store& store, MainLoop& loop)
    : store_(store),
      timer_(store, loop),
      onChange_(store.changes.observe(Store::kSignedIn | Store::kBoard | Store::kSelection |
                                          Store::kPanels | Store::kProblem | Store::kToast,
                                      [this] { update(); })),
      onPrefs_(store.prefs.changes.observe(Prefs::kAny, [this] { emit appearanceChanged(); })) {
  update();
}

void RootModel::start() {
  if (store_.signedIn()) store_.startLoop();
}

void RootModel::update() {
  if (view_.show(rootView(store_))) emit viewChanged();
  if (toast_.show(toastShown(store_))) emit toastChanged();
}

void RootModel::undo() { store_.undoToast(); }

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
