#include "store/published.hpp"

namespace vellix {

Changes::Subscription Changes::observe(Fields fields, std::function<void()> told) {
  auto observer = std::make_shared<Observer>(Observer{fields, std::move(told)});
  state_->observers.push_back(observer);
  const std::weak_ptr<State> weak = state_;
  return Subscription{[weak, observer] {
    observer->ended = true;
    if (const auto state = weak.lock()) state->observers.remove(observer);
  }};
}

void Changes::note(Fields field) {
  const bool first = state_->changed == 0;
  state_->changed |= field;
  if (!first) return;
  const std::weak_ptr<State> weak = state_;
  loop_.post([weak] {
    if (const auto state = weak.lock()) tell(state);
  });
}

void Changes::tell(const std::shared_ptr<State>& state) {
  const Fields changed = std::exchange(state->changed, 0);
  // An observer may end itself or others, or write: so walk over a copy.
  const auto observers = state->observers;
  for (const auto& observer : observers) {
    if (!observer->ended && (observer->fields & changed) != 0) observer->told();
  }
}

}  // namespace vellix
