// The network of a staged program: there is none.
#pragma once

#include "platform/ports/http.hpp"
#include "platform/ports/main_loop.hpp"

namespace vellix {

class ClosedHttp : public Http {
 public:
  // The loop must outlive it.
  explicit ClosedHttp(MainLoop& loop) : loop_(loop) {}

  Pending<HttpResult> send(HttpRequest, std::stop_token) override {
    const Resolver<HttpResult> resolver;
    loop_.post([resolver] { resolver(std::unexpected(HttpError::notConnected)); });
    return resolver.pending();
  }

 private:
  MainLoop& loop_;
};

}  // namespace vellix
