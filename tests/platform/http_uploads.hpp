// Uploads from the disk to a server of the test's own.
#pragma once

#include <gmock/gmock.h>

#include <QTemporaryDir>
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <utility>

#include "platform/http_support.hpp"
#include "platform/qt/OpenedFile.hpp"
#include "support/words_of_rows.hpp"

namespace vellix {

namespace fs = std::filesystem;

inline constexpr std::size_t kMost = 59'999'999;  // of a revision, in bytes

inline std::size_t announced(const SeenRequest& seen) {
  return std::stoul(seen.header("Content-Length").value_or("0"));
}

// Of the bytes as they come, so that none of them has to be kept.
struct Sum {
  std::size_t count = 0;
  std::uint64_t value = 0;
  void add(std::string_view bytes) {
    for (const char c : bytes) value = value * 1'099'511'628'211U + static_cast<unsigned char>(c);
    count += bytes.size();
  }
};

class HttpUpload : public testing::Test {
 protected:
  // Every piece is another one, so that none may stand for the next.
  fs::path write(std::size_t count) {
    const fs::path path = fs::path(folder_.path().toStdString()) / "proof.pdf";
    std::ofstream out(path, std::ios::binary);
    std::string piece;
    for (std::size_t at = 0; at < count; at += piece.size()) {
      piece.assign(std::min<std::size_t>(4'096, count - at), static_cast<char>(at / 4'096));
      piece[0] = static_cast<char>(at >> 20);
      sent_.add(piece);
      out << piece;
    }
    return path;
  }
  HttpRequest put(const LoopbackServer& server, const fs::path& path) {
    HttpRequest out = request("PUT", server.url("/api/files/1/versions"), HttpLane::transfers);
    out.headers = {{"Content-Type", "application/pdf"}, {"x-note", ""}};
    out.stream = OpenedFile::open(path.string());
    EXPECT_TRUE(out.stream);
    return out;
  }
  static std::size_t putsSeen(const LoopbackServer& server) {
    const auto seen = server.seen();
    return static_cast<std::size_t>(std::count_if(
        seen.begin(), seen.end(), [](const auto& one) { return one.line.starts_with("PUT "); }));
  }
  // The one upload is all that the server ever got, and the lane goes on.
  static void expectOne(QtHttp& http, const LoopbackServer& server) {
    const auto ping = exchange(http, request("GET", server.url("/ping"), HttpLane::transfers));
    EXPECT_TRUE(ping.has_value());
    EXPECT_EQ(putsSeen(server), 1U);
  }

  QTemporaryDir folder_;
  Sum sent_;
};

// Notes each head, answers "/ping", and does with the rest what the test says.
inline LoopbackServer::Serve uploads(LoopbackServer*& self,
                                     std::function<void(Peer&, const SeenRequest&)> serve) {
  return [&self, serve = std::move(serve)](Peer& peer) {
    while (const auto seen = peer.readHead()) {
      self->note(*seen);
      if (!seen->line.starts_with("GET /ping")) return serve(peer, *seen);
      if (!peer.send(answer(200, "pong"))) return;
    }
  };
}

}  // namespace vellix
