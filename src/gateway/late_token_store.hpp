// A token store that serves before the place where the token lies has been found and read.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "platform/ports/main_loop.hpp"
#include "platform/ports/task.hpp"
#include "platform/ports/token_store.hpp"

namespace vellix {

// Answers from memory until the place has come, and hands everything on to it from then on. What
// was written meanwhile wins over what was found there. Main thread. Nobody whom it resumes may end
// it there and then.
class LateTokenStore : public DurableTokenStore {
 public:
  using Place = std::shared_ptr<DurableTokenStore>;

  // The loop must outlive the store.
  LateTokenStore(Pending<Place> opening, MainLoop& loop);

  std::optional<std::string> read() override;
  void remove() override;
  void add(const std::string& token) override;
  Pending<> settled() override;

  // Resolves once the place has come: what it held can be read.
  Pending<> primed() const { return primed_.pending(); }
  // The same, or when the patience is at its end.
  Pending<> primedWithin(Milliseconds patience);

 private:
  Task<> open(Pending<Place> opening);
  Task<> settle(Resolver<> done);

  MainLoop& loop_;
  Place place_;
  std::optional<std::string> token_;  // until the place has come
  bool written_ = false;
  Resolver<> primed_;
  TaskScope tasks_;
};

}  // namespace vellix
