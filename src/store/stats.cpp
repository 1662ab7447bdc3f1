// A person's page and the figures on it.
#include "store/store.hpp"

namespace vellix {

void Store::openProfile(std::optional<std::string> email) {
  profile.set(std::move(email));
  if (profile()) spawn(loadStats(sessionEnd()));
}

Task<> Store::loadStats(std::stop_token stop) {
  if (sample) co_return;
  const auto session = session_;
  const Order asked = order();
  auto call = api_.ask<Stats>({.path = "api/stats", .stop = std::move(stop)});
  auto answer = co_await std::move(call);
  // One that was asked for before what is held is the older one.
  if (session != session_ || !answer || !answer->record || asked < statsAsked_) co_return;
  statsAsked_ = asked;
  stats.set(std::move(*answer->record));
}

}  // namespace vellix
