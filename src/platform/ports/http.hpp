// One HTTP exchange. The port knows nothing of the service: no token, no failures of its own.
#pragma once

#include <cstddef>
#include <cstdint>
#include <expected>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <stop_token>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/ports/moment.hpp"
#include "platform/ports/pending.hpp"

namespace vellix {

// Traffic that must not starve one another travels in lanes of its own.
enum class HttpLane { calls, pictures, transfers };
// So many requests of a lane are on their way at once; the rest wait in the order that they came.
inline constexpr std::size_t kMostInALane = 6;

struct HttpResponse {
  int status = 0;
  std::map<std::string, std::string> headers;  // names in lower case
  std::string body;
  std::optional<std::string> header(const std::string& lowerName) const {
    const auto found = headers.find(lowerName);
    return found == headers.end() ? std::nullopt : std::optional{found->second};
  }
};

// A body that is read piece by piece, as the network takes it. Read on one thread at a time.
class HttpBody {
 public:
  virtual ~HttpBody() = default;
  virtual std::int64_t size() const = 0;  // bytes, announced ahead of them
  // The next bytes: `most` of them, or all that are left. None once they are not to be had as they
  // were announced.
  virtual std::optional<std::size_t> read(char* to, std::size_t most) = 0;
};

// Takes a body piece by piece, as it comes in. Written to on one thread at a time.
class HttpSink {
 public:
  virtual ~HttpSink() = default;
  // False once no more can be taken.
  virtual bool write(std::string_view bytes) = 0;
};

struct HttpRequest {
  std::string method;
  std::string url;  // absolute, percent-encoded
  std::vector<std::pair<std::string, std::string>> headers;
  std::optional<std::string> body;
  std::shared_ptr<HttpBody> stream;  // in place of a body, and read once
  std::shared_ptr<HttpSink> sink;    // takes the body of an answer below 400, in its place
  // The longest silence on the wire, from when the request goes out: the time that it waits for
  // its turn does not count.
  Milliseconds timeout{60'000};
  HttpLane lane = HttpLane::calls;
  // Makes of an answer what it is asked for, on the thread that the answer came in by: a long one
  // would hold up the main thread. It may take the body, and touches nothing that others know.
  std::function<void(HttpResponse&)> reader;
};

enum class HttpError {
  notConnected,    // this machine has no network
  connectionLost,  // the connection went away in mid-transfer
  timedOut,
  cancelled,
  tooLarge,
  notHttp,   // an answer came that is not HTTP
  bodyLost,  // the stream had fewer bytes than it announced: the service has got no whole body
  notKept,   // the sink took no more
  other,
};

using HttpResult = std::expected<HttpResponse, HttpError>;

class Http {
 public:
  virtual ~Http() = default;
  // Callable from the main thread; resolves there. A POST or PUT reaches the service at most
  // once. Redirects stay within the origin of the URL. A stop ends the exchange as `cancelled`.
  // An answer has a bound, a larger one where it goes into a sink, and fails as `tooLarge` beyond;
  // of one that says what went wrong, with a status of 400 or more, the body ends where its own
  // bound is. A sink is let go before the answer comes.
  virtual Pending<HttpResult> send(HttpRequest request, std::stop_token stop) = 0;
};

}  // namespace vellix
