// What a scripted service answers, by request line. A line that has no answer stays open until
// the test answers it by hand.
#pragma once

#include <deque>
#include <map>
#include <string>

#include "support/scripted_http.hpp"

namespace vellix {

class Routes {
 public:
  explicit Routes(ScriptedHttp& http) {
    http.automatic = [this](const ScriptedHttp::Exchange& exchange) { return find(exchange); };
  }
  Routes(const Routes&) = delete;
  Routes& operator=(const Routes&) = delete;

  // From now on, whatever the request's tag.
  void set(const std::string& line, HttpResult result) { lasting_.insert_or_assign(line, result); }
  // From now on, with a 304 for a request that holds this tag.
  void serve(const std::string& line, std::string body, std::string tag) {
    set(line, answerOf(200, std::move(body), std::move(tag)));
    conditional_.insert_or_assign(line, true);
  }
  // Once, ahead of what lasts; several are used up in order.
  void next(const std::string& line, HttpResult result) { once_[line].push_back(result); }
  void leaveOpen(const std::string& line) {
    lasting_.erase(line);
    once_.erase(line);
  }

 private:
  std::optional<HttpResult> find(const ScriptedHttp::Exchange& exchange) {
    const std::string line = exchange.line();
    if (auto& once = once_[line]; !once.empty()) {
      const HttpResult result = once.front();
      once.pop_front();
      return result;
    }
    const auto found = lasting_.find(line);
    if (found == lasting_.end()) return std::nullopt;
    const HttpResult& result = found->second;
    const bool held = conditional_[line] && result && exchange.has("If-None-Match") &&
                      result->header("etag") == exchange.header("If-None-Match");
    return held ? HttpResult{answerOf(304)} : result;
  }

  std::map<std::string, HttpResult> lasting_;
  std::map<std::string, bool> conditional_;
  std::map<std::string, std::deque<HttpResult>> once_;
};

}  // namespace vellix
