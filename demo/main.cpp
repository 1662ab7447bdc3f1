// The demo service's program: loopback only, gone when whoever started it is gone.
#include <httplib.h>
#include <sys/socket.h>
#include <unistd.h>

#include <QByteArray>
#include <QGuiApplication>
#include <charconv>
#include <cstdio>
#include <cstring>
#include <string_view>
#include <thread>

#include "service.hpp"

namespace vellix::demo {
namespace {

struct Options {
  int port = 0;
  double pace = 1;
  bool colleague = true;
  bool untilStdinCloses = false;
  bool handBack = false;
  std::string sampleFolder;
};

constexpr const char* kUsage =
    "usage: vellix_demo_service [--port N] [--no-colleague] [--until-stdin-closes]\n"
    "                           [--hand-back] [--pace FACTOR] [--write-sample FOLDER]\n"
    "  --port N               listen on this port of 127.0.0.1; 0, the default, picks a free one\n"
    "  --no-colleague         the other reviewer does nothing unless told to\n"
    "  --until-stdin-closes   end when standard input ends\n"
    "  --hand-back            the sign-in page does not send the browser to the program: its URL\n"
    "                         for that is printed as a line \"callback URL\"\n"
    "  --pace FACTOR          how long jobs, checks and approvers take; 1 is the usual\n"
    "  --write-sample FOLDER  write the board and its pictures there, and end\n";

std::optional<Options> optionsOf(int argc, char** argv) {
  Options options;
  for (int i = 1; i < argc; ++i) {
    const std::string_view name = argv[i];
    const std::string_view value = i + 1 < argc ? argv[i + 1] : "";
    const auto number = [&](auto& to) {
      const auto [end, error] = std::from_chars(value.data(), value.data() + value.size(), to);
      ++i;
      return error == std::errc() && end == value.data() + value.size() && !value.empty();
    };
    if (name == "--no-colleague") {
      options.colleague = false;
    } else if (name == "--until-stdin-closes") {
      options.untilStdinCloses = true;
    } else if (name == "--hand-back") {
      options.handBack = true;
    } else if (name == "--write-sample" && !value.empty()) {
      options.sampleFolder = value;
      ++i;
    } else if (name == "--port") {
      if (!number(options.port) || options.port < 0 || options.port > 65535) return std::nullopt;
    } else if (name == "--pace") {
      if (!number(options.pace) || !(options.pace >= 0 && options.pace <= 1000)) {
        return std::nullopt;
      }
    } else {
      return std::nullopt;
    }
  }
  return options;
}

// The library offers no way to hang up without an answer, so its socket is found by whom it is
// connected to, and shut.
void hangUp(int remotePort) {
  for (int fd = 3; fd < 4096; ++fd) {
    sockaddr_in peer{};
    socklen_t size = sizeof peer;
    if (getpeername(fd, reinterpret_cast<sockaddr*>(&peer), &size) != 0) continue;
    if (peer.sin_family == AF_INET && ntohs(peer.sin_port) == remotePort) {
      shutdown(fd, SHUT_RDWR);
      return;
    }
  }
}

Request requestOf(const httplib::Request& from) {
  Request request{from.method, from.path, {}, {}, from.body};
  for (const auto& [name, value] : from.params) request.query.try_emplace(name, value);
  for (const auto& [name, value] : from.headers) {
    std::string lower = name;
    for (char& c : lower) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    request.headers.try_emplace(lower, value);
  }
  return request;
}

int serve(const Options& options) {
  Service service(options.pace, options.colleague);
  if (!options.sampleFolder.empty()) {
    if (service.writeSample(options.sampleFolder)) return 0;
    std::fprintf(stderr, "cannot write a sample into %s\n", options.sampleFolder.c_str());
    return 1;
  }
  if (options.handBack) {
    service.handBack = [](const std::string& url) {
      std::printf("callback %s\n", url.c_str());
      std::fflush(stdout);
    };
  }
  httplib::Server server;
  // A connection that is kept alive holds a thread.
  server.new_task_queue = [] { return new httplib::ThreadPool(48); };
  server.set_keep_alive_max_count(100'000);
  server.set_keep_alive_timeout(300);
  server.set_tcp_nodelay(true);
  server.set_payload_max_length(64'000'000);
  const auto handler = [&](const httplib::Request& from, httplib::Response& to) {
    Reply reply = service.answer(requestOf(from));
    if (reply.cut) {
      hangUp(from.remote_port);
      return;
    }
    to.status = reply.status;
    if (!reply.etag.empty()) to.set_header("ETag", reply.etag);
    to.set_header("Cache-Control", "no-store");
    if (reply.status != 304) to.set_content(std::move(reply.body), reply.type);
  };
  server.Get(".*", handler).Post(".*", handler).Put(".*", handler).Delete(".*", handler);
  server.set_error_handler([](const httplib::Request&, httplib::Response& to) {
    if (!to.body.empty() || to.status == 304) return;
    to.set_content(to.status == 413 ? R"({"error":"That is too big."})"
                                    : R"({"error":"That could not be served."})",
                   "application/json");
  });

  int port = options.port;
  if (port == 0) {
    port = server.bind_to_any_port("127.0.0.1");
  } else if (!server.bind_to_port("127.0.0.1", port)) {
    port = -1;
  }
  if (port <= 0) {
    std::fprintf(stderr, "cannot listen on 127.0.0.1:%d\n", options.port);
    return 1;
  }
  std::printf("listening on http://127.0.0.1:%d\n", port);
  std::fflush(stdout);
  if (options.untilStdinCloses) {
    std::thread([] {
      char bytes[256];
      while (read(STDIN_FILENO, bytes, sizeof bytes) > 0) {
      }
      // Connections that are kept alive would hold an orderly end up, and nothing is left to save.
      std::_Exit(0);
    }).detach();
  }
  return server.listen_after_bind() ? 0 : 1;
}

}  // namespace
}  // namespace vellix::demo

int main(int argc, char** argv) {
  const auto options = vellix::demo::optionsOf(argc, argv);
  if (!options) {
    std::fputs(vellix::demo::kUsage, stderr);
    return 2;
  }
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  return vellix::demo::serve(*options);
}
