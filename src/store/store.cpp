#include "store/store.hpp"

namespace vellix {
namespace {

Task<> afterTurn(MainLoop& loop, Task<> task) {
  const auto turn = loop.turn();
  co_await turn;
  co_await std::move(task);
}

}  // namespace

Store::Store(API& api, SignIn& signIn, Prefs& preferences, Ports ports)
    : changes(ports.loop),
      signedIn(changes, kSignedIn, api.token().has_value()),
      prefs(preferences),
      queue(changes, kQueue, ports.defaults.text("Queue").value_or("")),
      mineOnly(changes, kQueue, ports.defaults.flag("MineOnly").value_or(false)),
      started(ports.loop.now()),
      api_(api),
      signIn_(signIn),
      ports_(ports) {}

void Store::spawn(Task<> task) { tasks_.start(afterTurn(ports_.loop, std::move(task))); }

std::stop_token Store::sessionEnd() const { return loop_ ? loop_->get_token() : std::stop_token{}; }

bool Store::holds(const std::string& key) const {
  const auto holder = holders_.find(key);
  return holder != holders_.end() && holder->second == session_;
}

void Store::hold(const std::string& key) {
  holders_[key] = session_;
  auto keys = busy();
  keys.insert(key);
  busy.set(std::move(keys));
}

// What was asked in a session that has ended leaves a later session's key alone.
void Store::letGo(const std::string& key, Session session) {
  const auto holder = holders_.find(key);
  if (holder == holders_.end() || holder->second != session) return;
  holders_.erase(holder);
  auto keys = busy();
  keys.erase(key);
  busy.set(std::move(keys));
}

std::map<std::string, const Person*> Store::usersByEmail() const {
  std::map<std::string, const Person*> people;
  if (!board()) return people;
  for (const auto& person : board()->users) people.emplace(person.email, &person);
  return people;
}

}  // namespace vellix
