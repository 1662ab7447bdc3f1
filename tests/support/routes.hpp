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
  explicit Routes(ScriptedHttp& http);
  Routes(const Routes&) = delete;
  Routes& operator=(const Routes&) = delete;
  ~Routes();

  // From now on, whatever the request's tag.
  void set(const std::string& line, HttpResult result);
  // From now on, with a 304 for a request that holds this tag.
  void serve(const std::string& line, std::string body, std::string tag);
  // Once, ahead of what lasts; several are used up in order.
  void next(const std::string& line, HttpResult result);
  void leaveOpen(const std::string& line);

 private:
  std::optional<HttpResult> find(const ScriptedHttp::Exchange& exchange);

  std::map<std::string, HttpResult> lasting_;
  std::map<std::string, bool> conditional_;
  std::map<std::string, std::deque<HttpResult>> once_;
};

}  // namespace vellix
