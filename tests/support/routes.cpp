#include "support/routes.hpp"

namespace vellix {

Routes::Routes(ScriptedHttp& http) {
  http.automatic = [this](const ScriptedHttp::Exchange& exchange) { return find(exchange); };
}

Routes::~Routes() = default;

void Routes::set(const std::string& line, HttpResult result) {
  lasting_.insert_or_assign(line, result);
}

void Routes::serve(const std::string& line, std::string body, std::string tag) {
  set(line, answerOf(200, std::move(body), std::move(tag)));
  conditional_.insert_or_assign(line, true);
}

void Routes::next(const std::string& line, HttpResult result) { once_[line].push_back(result); }

void Routes::leaveOpen(const std::string& line) {
  lasting_.erase(line);
  once_.erase(line);
}

std::optional<HttpResult> Routes::find(const ScriptedHttp::Exchange& exchange) {
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

}  // namespace vellix
