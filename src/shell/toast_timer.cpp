#include "shell/toast_timer.hpp"

namespace vellix {
namespace {

constexpr Milliseconds kToastTime{4'000};

}  // namespace

ToastTimer::ToastTimer(Store& store, MainLoop& loop)
    : store_(store),
      loop_(loop),
      subscription_(store.changes.observe(Store::kToast, [this] { watch(); })) {
  watch();
}

void ToastTimer::watch() {
  const auto& toast = store_.toast();
  if (!toast || toast->id == watched_) return;
  watched_ = toast->id;
  tasks_.start(expire(toast->id));
}

Task<> ToastTimer::expire(std::uint64_t id) {
  const auto sleep = loop_.sleep(kToastTime, {});
  co_await sleep;
  if (store_.toast() && store_.toast()->id == id) store_.toast.set(std::nullopt);
}

void undoToast(Store& store) {
  if (!store.toast()) return;
  const Toast toast = *store.toast();
  if (toast.undo) toast.undo();
  if (store.toast() == toast) store.toast.set(std::nullopt);
}

}  // namespace vellix
