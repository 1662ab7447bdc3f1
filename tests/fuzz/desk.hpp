// A gateway with everything it stands on.
#pragma once

#include "fuzz/fuzz.hpp"
#include "gateway/sign_in.hpp"
#include "support/awaiting.hpp"
#include "support/fakes.hpp"
#include "support/scripted_http.hpp"
#include "support/virtual_time.hpp"

namespace vellix {

struct FuzzDesk {
  struct NoBrowser : SignInBrowser {
    Pending<SignInEnd> start(std::string, std::string) override { return resolver.pending(); }
    bool arrived(const std::string&) override { return false; }
    void cancel() override {}
    Resolver<SignInEnd> resolver;
  };

  VirtualTime time;
  FakeDefaults defaults;
  FakeTokenStore tokens;
  FakeMachine machine;
  FakeUuids uuids;
  NoBrowser browser;
  ScriptedHttp http{time};
  API api{http, tokens, defaults};
  SignIn signIn{api, {defaults, machine, browser, uuids}};
  TaskScope tasks;
};

}  // namespace vellix
