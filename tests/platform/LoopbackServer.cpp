#include "platform/LoopbackServer.hpp"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <utility>

namespace vellix {
namespace {

constexpr std::string_view kHeadEnd = "\r\n\r\n";
constexpr int kMostConnections = 200;

std::string lower(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return text;
}

}  // namespace

std::optional<std::string> SeenRequest::header(const std::string& name) const {
  const auto place = lower(head).find("\r\n" + lower(name) + ": ");
  if (place == std::string::npos) return std::nullopt;
  const auto from = place + name.size() + 4;
  return head.substr(from, head.find("\r\n", from) - from);
}

bool Peer::readMore() {
  std::array<char, 65536> chunk;
  const auto count = ::recv(socket_, chunk.data(), chunk.size(), 0);
  if (count <= 0) return false;
  buffer_.append(chunk.data(), static_cast<std::size_t>(count));
  return true;
}

std::optional<SeenRequest> Peer::readHead() {
  std::size_t end = 0;
  while ((end = buffer_.find(kHeadEnd)) == std::string::npos) {
    if (!readMore()) return std::nullopt;
  }
  SeenRequest request;
  request.head = buffer_.substr(0, end + 2);
  request.line = request.head.substr(0, request.head.find("\r\n"));
  buffer_.erase(0, end + kHeadEnd.size());
  return request;
}

std::optional<SeenRequest> Peer::readRequest() {
  auto request = readHead();
  if (!request) return std::nullopt;
  const auto length = std::stoul(request->header("Content-Length").value_or("0"));
  while (buffer_.size() < length) {
    if (!readMore()) return std::nullopt;
  }
  request->body = buffer_.substr(0, length);
  buffer_.erase(0, length);
  return request;
}

bool Peer::send(const std::string& bytes) {
  std::size_t sent = 0;
  while (sent < bytes.size()) {
    const auto count = ::send(socket_, bytes.data() + sent, bytes.size() - sent, MSG_NOSIGNAL);
    if (count <= 0) return false;
    sent += static_cast<std::size_t>(count);
  }
  return true;
}

void Peer::skip(std::size_t count) {
  while (buffer_.size() < count && readMore()) {
  }
  buffer_.erase(0, count);
}

bool Peer::drain(std::size_t count, const std::function<void(std::string_view)>& see) {
  while (count > 0) {
    if (buffer_.empty() && !readMore()) return false;
    const std::size_t taken = std::min(count, buffer_.size());
    see(std::string_view(buffer_).substr(0, taken));
    buffer_.erase(0, taken);
    count -= taken;
  }
  return true;
}

void Peer::waitForClose() {
  while (readMore()) buffer_.clear();
}

LoopbackServer::LoopbackServer(Serve serve)
    : serve_(std::move(serve)), listener_(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  socklen_t size = sizeof(address);
  auto* generic = reinterpret_cast<sockaddr*>(&address);
  if (::bind(listener_, generic, size) != 0 || ::listen(listener_, 64) != 0) std::abort();
  ::getsockname(listener_, generic, &size);
  port_ = ntohs(address.sin_port);
  acceptor_ = std::thread([this] { accept(); });
}

LoopbackServer::~LoopbackServer() {
  ending_ = true;
  ::shutdown(listener_, SHUT_RDWR);
  acceptor_.join();
  ::close(listener_);
  {
    const std::lock_guard lock(mutex_);
    for (auto& client : clients_) {
      if (client.socket >= 0) ::shutdown(client.socket, SHUT_RDWR);
    }
  }
  for (auto& client : clients_) client.thread.join();
}

std::string LoopbackServer::url(const std::string& path) const {
  return "http://127.0.0.1:" + std::to_string(port_) + path;
}

void LoopbackServer::note(SeenRequest request) {
  const std::lock_guard lock(mutex_);
  seen_.push_back(std::move(request));
}

std::vector<SeenRequest> LoopbackServer::seen() const {
  const std::lock_guard lock(mutex_);
  return seen_;
}

void LoopbackServer::accept() {
  while (!ending_ && connections_ < kMostConnections) {
    const int socket = ::accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC);
    if (socket < 0) return;
    ++connections_;
    auto& client = clients_.emplace_back(socket, std::thread());
    client.thread = std::thread([this, &client, socket] {
      Peer peer(socket);
      serve_(peer);
      // With something unread this is a reset, as from a server that will not listen.
      const std::lock_guard lock(mutex_);
      client.socket = -1;
      ::close(socket);
    });
  }
}

std::string answer(int status, const std::string& body, const std::string& headers) {
  return "HTTP/1.1 " + std::to_string(status) +
         " Word\r\nContent-Length: " + std::to_string(body.size()) + "\r\n" + headers + "\r\n" +
         body;
}

}  // namespace vellix
