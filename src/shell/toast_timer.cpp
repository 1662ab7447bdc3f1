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
  store_.dismissToast(id);
}

}  // namespace vellix
