// How the Store's operations put what they have to tell the service into a POST.
#pragma once

#include <utility>

#include "store/store.hpp"

namespace vellix {

template <class Body>
Task<API::Result<Done>> Store::tell(std::string path, Body body, Heard heard) {
  const auto session = session_;
  auto call = api_.post(std::move(path), std::move(body));
  const auto answer = co_await std::move(call);
  if (!answer) co_return std::unexpected(answer.error());
  if (heard && session == session_) heard(*answer);
  co_return Done{};
}

template <class Body>
Task<API::Result<Done>> Store::tellAhead(Ahead<Told>& ahead, std::string id,
                                         std::optional<Order> shown, std::string path, Body body) {
  auto call = tell(std::move(path), std::move(body));
  auto outcome = co_await std::move(call);
  if (shown && outcome) ahead.taken(id, *shown, order());
  if (shown && !outcome) ahead.refused(id, *shown);
  co_return outcome;
}

}  // namespace vellix
