// An Http that keeps what it was asked for and answers what the test says, when it says so.
#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/ports/http.hpp"
#include "platform/ports/main_loop.hpp"

namespace vellix {

HttpResponse answerOf(int status, std::string body = {}, std::string etag = {});

class ScriptedHttp : public Http {
 public:
  struct Exchange {
    HttpRequest request;
    Resolver<HttpResult> resolver;
    std::optional<std::stop_callback<std::function<void()>>> onStop;
    std::string header(std::string_view name) const;
    bool has(std::string_view name) const;
    // "GET api/state", with the query when there is one.
    std::string line() const;
  };

  explicit ScriptedHttp(MainLoop& loop);
  ~ScriptedHttp() override;

  Pending<HttpResult> send(HttpRequest request, std::stop_token stop) override;

  // Answered at once when it gives a value; left open when it gives none.
  std::function<std::optional<HttpResult>(const Exchange&)> automatic;

  std::deque<Exchange> exchanges;  // all of them, in order; addresses stay

  void answer(const Exchange& exchange, HttpResult result);
  void answer(std::size_t index, HttpResult result);

  // The exchanges whose line begins so.
  std::vector<const Exchange*> matching(std::string_view line) const;
  std::size_t count(std::string_view line) const;

 private:
  MainLoop& loop_;
};

}  // namespace vellix
