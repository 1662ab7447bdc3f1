#include "shell/SignInModel.hpp"

namespace vellix {

SignInModel::SignInModel(Store& store, const API& api, WaitingBrowser& browser, MainLoop& loop)
    : screen_(store, api, browser, loop),
      onChange_(screen_.changes.observe(1, [this] { update(); })),
      // At once, since it is then that the screen is made.
      onSignedIn_(store.changes.observe(Store::kSignedIn, [this] { update(); })) {
  update();
}

void SignInModel::update() {
  if (view_.show(screen_.view())) emit viewChanged();
}

}  // namespace vellix
