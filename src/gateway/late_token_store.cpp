#include "gateway/late_token_store.hpp"

#include <utility>

namespace vellix {
namespace {

Task<> passOn(Pending<> pending, Resolver<> to) {
  co_await pending;
  to();
}

}  // namespace

LateTokenStore::LateTokenStore(Pending<Place> opening, MainLoop& loop) : loop_(loop) {
  tasks_.start(open(std::move(opening)));
}

Task<> LateTokenStore::open(Pending<Place> opening) {
  place_ = co_await opening;
  if (written_) place_->remove();
  if (token_) place_->add(*token_);
  primed_();
}

std::optional<std::string> LateTokenStore::read() { return place_ ? place_->read() : token_; }

void LateTokenStore::remove() {
  if (place_) return place_->remove();
  written_ = true;
  token_.reset();
}

void LateTokenStore::add(const std::string& token) {
  if (place_) return place_->add(token);
  written_ = true;
  token_ = token;
}

Pending<> LateTokenStore::settled() {
  if (place_) return place_->settled();
  if (!written_) return loop_.turn();
  const Resolver<> done;
  tasks_.start(settle(done));
  return done.pending();
}

Task<> LateTokenStore::settle(Resolver<> done) {
  const auto opened = primed();
  co_await opened;
  const auto writing = place_->settled();
  co_await writing;
  done();
}

Pending<> LateTokenStore::primedWithin(Milliseconds patience) {
  const Resolver<> first;
  tasks_.start(passOn(primed(), first));
  tasks_.start(passOn(loop_.sleep(patience, {}), first));
  return first.pending();
}

}  // namespace vellix
