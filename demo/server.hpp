// The service on a socket of 127.0.0.1.
#pragma once

#include <httplib.h>

#include <string>

#include "service.hpp"

namespace vellix::demo {

class Server {
 public:
  // Port 0 picks a free one. Who connects from now on waits until `serve` is called.
  explicit Server(int port);
  int port() const { return port_; }  // 0 when it cannot listen
  std::string address() const { return "http://127.0.0.1:" + std::to_string(port_); }

  // Answers until the process ends; false on failure.
  bool serve(Service& service);

 private:
  void answer(Service& service, const httplib::Request& from, httplib::Response& to,
              const httplib::ContentReader* body);

  httplib::Server server_;
  int port_ = 0;
};

}  // namespace vellix::demo
