// One HTTP exchange. The port knows nothing of the service: no token, no failures of its own.
#pragma once

#include <expected>
#include <map>
#include <optional>
#include <stop_token>
#include <string>
#include <utility>
#include <vector>

#include "platform/ports/moment.hpp"
#include "platform/ports/pending.hpp"

namespace vellix {

// Traffic that must not starve one another travels in lanes of its own.
enum class HttpLane { calls, pictures, transfers };

struct HttpRequest {
  std::string method;
  std::string url;  // absolute, percent-encoded
  std::vector<std::pair<std::string, std::string>> headers;
  std::optional<std::string> body;
  // The longest silence on the wire. In the lane of calls it is the whole exchange's limit too:
  // an answer that trickles must not hold up the next poll.
  Milliseconds timeout{60'000};
  HttpLane lane = HttpLane::calls;
};

struct HttpResponse {
  int status = 0;
  std::map<std::string, std::string> headers;  // names in lower case
  std::string body;
  std::optional<std::string> header(const std::string& lowerName) const {
    const auto found = headers.find(lowerName);
    return found == headers.end() ? std::nullopt : std::optional{found->second};
  }
};

enum class HttpError {
  notConnected,    // this machine has no network
  connectionLost,  // the connection went away in mid-transfer
  timedOut,
  cancelled,
  tooLarge,
  notHttp,  // an answer came that is not HTTP
  other,
};

using HttpResult = std::expected<HttpResponse, HttpError>;

class Http {
 public:
  virtual ~Http() = default;
  // Callable from the main thread; resolves there. A POST or PUT reaches the service at most
  // once. Redirects stay within the origin of the URL. A stop ends the exchange as `cancelled`.
  virtual Pending<HttpResult> send(HttpRequest request, std::stop_token stop) = 0;
};

}  // namespace vellix
