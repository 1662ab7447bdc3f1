#include "server.hpp"

#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <chrono>
#include <thread>

namespace vellix::demo {
namespace {

// Spelt so the library does not compress it, which takes it up to 100 ms for a small board.
constexpr const char* kJson = "application/json; charset=utf-8";
constexpr const char* kUnread = "X-Unread";  // of an answer that ends its connection
constexpr std::size_t kMostDrained = 64'000'000;

// The library offers no way to hang up, so its socket is found by whom it is connected to; -1 when
// there is none.
int socketTo(int remotePort) {
  for (int fd = 3; fd < 4096; ++fd) {
    sockaddr_in peer{};
    socklen_t size = sizeof peer;
    if (getpeername(fd, reinterpret_cast<sockaddr*>(&peer), &size) != 0) continue;
    if (peer.sin_family == AF_INET && ntohs(peer.sin_port) == remotePort) return fd;
  }
  return -1;
}

// Behind an answer: a connection that is closed over what was not read loses the answer as well, so
// for a moment the rest is taken and thrown away.
void hangUpBehind(int remotePort) {
  const int fd = socketTo(remotePort);
  if (fd < 0) return;
  shutdown(fd, SHUT_WR);
  const timeval patience{1, 0};
  setsockopt(fd, SOL_SOCKET, SO_RCVTIMEO, &patience, sizeof patience);
  std::array<char, 65536> piece{};
  for (std::size_t drained = 0; drained < kMostDrained;) {
    const ssize_t got = recv(fd, piece.data(), piece.size(), 0);
    if (got <= 0) break;
    drained += static_cast<std::size_t>(got);
  }
  shutdown(fd, SHUT_RDWR);
}

// Makes the body as it goes out, however long it is.
void sendInPieces(Reply reply, int remotePort, httplib::Response& to) {
  const std::size_t length =
      reply.file ? reply.file->size() : reply.bytes.value_or(reply.body.size());
  const auto type = reply.type;
  const auto next = [reply = std::move(reply), remotePort](std::size_t at, std::size_t left,
                                                           httplib::DataSink& sink) {
    static const std::string filler = "%PDF-1.4\n" + std::string(kDrip - 9, '\n');
    if (reply.dripMs > 0) std::this_thread::sleep_for(std::chrono::milliseconds(reply.dripMs));
    const std::size_t until = std::min(reply.cutAt.value_or(at + left), at + left);
    if (until <= at) {
      shutdown(socketTo(remotePort), SHUT_RDWR);
      return false;
    }
    const std::size_t size = std::min(until - at, kDrip - at % kDrip);
    if (reply.file) {
      const std::string piece = reply.file->piece(at, size);
      if (piece.size() == size) return sink.write(piece.data(), size);
      // Somebody cut the file short meanwhile.
      shutdown(socketTo(remotePort), SHUT_RDWR);
      return false;
    }
    const char* from = reply.bytes ? filler.data() + at % kDrip : reply.body.data() + at;
    return sink.write(from, size);
  };
  if (length > 0) to.set_content_provider(length, type, next);
}

// The library holds no range against what there is; -1 is an end left open.
bool within(const httplib::Ranges& ranges, ssize_t size) {
  return std::ranges::all_of(ranges, [&](const httplib::Range& range) {
    return range.first < size && range.second < size;
  });
}

Request headOf(const httplib::Request& from) {
  Request head{from.method, from.path, {}, {}, {}};
  for (const auto& [name, value] : from.params) head.query.try_emplace(name, value);
  for (const auto& [name, value] : from.headers) {
    std::string lower = name;
    for (char& c : lower) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    head.headers.try_emplace(lower, value);
  }
  return head;
}

}  // namespace

Server::Server(int port) {
  // Connections inherit it from the socket that they come in by.
  server_.set_tcp_nodelay(true);
  if (port == 0) {
    port_ = std::max(0, server_.bind_to_any_port("127.0.0.1"));
  } else if (server_.bind_to_port("127.0.0.1", port)) {
    port_ = port;
  }
}

void Server::answer(Service& service, const httplib::Request& from, httplib::Response& to,
                    const httplib::ContentReader* body) {
  Request request = headOf(from);
  Begun begun = service.begin(request);
  std::optional<Reply> reply = service.reading(begun, request, 0);
  if (!reply && body != nullptr) {
    std::size_t asked = kDrip;
    const bool whole = (*body)([&](const char* piece, std::size_t size) {
      request.body.append(piece, size);
      if (request.body.size() < asked) return true;
      asked = request.body.size() + kDrip;
      reply = service.reading(begun, request, request.body.size());
      return !reply.has_value();
    });
    // A body that broke off is nobody's request.
    if (!whole && !reply) {
      (void)service.reading(begun, request, request.body.size());
      shutdown(socketTo(from.remote_port), SHUT_RDWR);
      return;
    }
  }
  if (!reply) reply = service.answer(begun, request);
  if (reply->cut) {
    shutdown(socketTo(from.remote_port), SHUT_RDWR);
    return;
  }
  to.status = reply->status;
  if (!reply->etag.empty()) to.set_header("ETag", reply->etag);
  to.set_header("Cache-Control", "no-store");
  if (reply->unread) {
    to.set_header("Connection", "close");
    to.set_header(kUnread, "true");
  }
  if (reply->status == 304) return;
  if (reply->status == 200 && !from.ranges.empty()) {
    to.status = 206;
    if (reply->file && !within(from.ranges, static_cast<ssize_t>(reply->file->size()))) {
      to.status = 416;
      return;
    }
  }
  if (reply->file || reply->bytes || reply->cutAt || reply->dripMs > 0) {
    sendInPieces(*std::move(reply), from.remote_port, to);
  } else {
    to.set_content(reply->body, reply->type == "application/json" ? kJson : reply->type);
  }
}

bool Server::serve(Service& service) {
  // A connection that is kept alive holds a thread.
  server_.new_task_queue = [] { return new httplib::ThreadPool(48); };
  server_.set_keep_alive_max_count(100'000);
  server_.set_keep_alive_timeout(300);
  server_.set_read_timeout(60);
  const auto withBody = [&](const httplib::Request& from, httplib::Response& to,
                            const httplib::ContentReader& body) {
    answer(service, from, to, &body);
  };
  const auto without = [&](const httplib::Request& from, httplib::Response& to) {
    answer(service, from, to, nullptr);
  };
  server_.Get(".*", without).Delete(".*", without).Post(".*", withBody).Put(".*", withBody);
  server_.set_logger([](const httplib::Request& from, const httplib::Response& to) {
    if (to.has_header(kUnread)) hangUpBehind(from.remote_port);
  });
  server_.set_error_handler([](const httplib::Request&, httplib::Response& to) {
    if (!to.body.empty() || to.status == 304) return;
    to.set_content(R"({"error":"That could not be served."})", kJson);
  });
  return server_.listen_after_bind();
}

}  // namespace vellix::demo
