// Short ways to send and await in the HTTP tests.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "platform/LoopbackServer.hpp"
#include "platform/qt/QtHttp.hpp"
#include "platform/waiting.hpp"

namespace vellix {

inline HttpRequest request(const std::string& method, const std::string& url,
                           HttpLane lane = HttpLane::calls) {
  HttpRequest out;
  out.method = method;
  out.url = url;
  out.lane = lane;
  return out;
}

inline HttpResult exchange(QtHttp& http, HttpRequest toSend) {
  const auto pending = http.send(std::move(toSend), {});
  const auto result = await(pending);
  if (!result) {
    ADD_FAILURE() << "no answer in time";
    return std::unexpected(HttpError::other);
  }
  return *result;
}

// Answers every request with the same, keeping the connection.
inline LoopbackServer::Serve always(LoopbackServer*& server, const std::string& reply) {
  return [&server, reply](Peer& peer) {
    while (auto seen = peer.readRequest()) {
      server->note(*seen);
      if (!peer.send(reply)) return;
    }
  };
}

}  // namespace vellix
