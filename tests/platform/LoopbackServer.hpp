// A server on 127.0.0.1 that does to a client whatever a test writes down.
#pragma once

#include <atomic>
#include <functional>
#include <list>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

namespace vellix {

struct SeenRequest {
  std::string line;  // "GET /path HTTP/1.1"
  std::string head;  // everything up to the empty line
  std::string body;
  // The header's value; names in any case. None when absent.
  std::optional<std::string> header(const std::string& name) const;
};

// One accepted connection, served on a thread of its own with blocking calls.
class Peer {
 public:
  explicit Peer(int socket) : socket_(socket) {}
  // None when the client closes first.
  std::optional<SeenRequest> readRequest();
  // Up to the empty line; the body stays unread.
  std::optional<SeenRequest> readHead();
  // False when the client is gone.
  bool send(const std::string& bytes);
  // Reads that many bytes away.
  void skip(std::size_t count);
  // The same, a piece at a time, so that none of it is kept. False when the client closes first.
  bool drain(std::size_t count, const std::function<void(std::string_view)>& see);
  // Waits until the client closes, or the server ends.
  void waitForClose();

 private:
  bool readMore();

  int socket_;
  std::string buffer_;
};

class LoopbackServer {
 public:
  using Serve = std::function<void(Peer&)>;

  explicit LoopbackServer(Serve serve);
  ~LoopbackServer();
  LoopbackServer(const LoopbackServer&) = delete;
  LoopbackServer& operator=(const LoopbackServer&) = delete;

  std::string url(const std::string& path = "/") const;
  int connections() const { return connections_; }

  // For the serving threads to note what they saw, and the test to read.
  void note(SeenRequest request);
  std::vector<SeenRequest> seen() const;

 private:
  struct Client {
    int socket;  // -1 once closed
    std::thread thread;
  };

  void accept();

  const Serve serve_;
  int listener_;
  int port_ = 0;
  std::atomic<int> connections_{0};
  std::atomic<bool> ending_{false};
  mutable std::mutex mutex_;
  std::vector<SeenRequest> seen_;
  std::list<Client> clients_;
  std::thread acceptor_;
};

// A whole answer with its length.
std::string answer(int status, const std::string& body, const std::string& headers = {});

}  // namespace vellix
