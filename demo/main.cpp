// The demo service's program: loopback only, gone when whoever started it is gone.
#include <unistd.h>

#include <QByteArray>
#include <QGuiApplication>
#include <charconv>
#include <cstdio>
#include <string_view>
#include <thread>

#include "server.hpp"

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

int writeSample(const Options& options) {
  Service service("https://proofs.tessarine.example", options.pace, options.colleague);
  if (service.writeSample(options.sampleFolder)) return 0;
  std::fprintf(stderr, "cannot write a sample into %s\n", options.sampleFolder.c_str());
  return 1;
}

int serve(const Options& options) {
  Server server(options.port);
  if (server.port() == 0) {
    std::fprintf(stderr, "cannot listen on 127.0.0.1:%d\n", options.port);
    return 1;
  }
  Service service(server.address(), options.pace, options.colleague);
  if (options.handBack) {
    service.handBack = [](const std::string& url) {
      std::printf("callback %s\n", url.c_str());
      std::fflush(stdout);
    };
  }
  std::printf("listening on %s\n", server.address().c_str());
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
  return server.serve(service) ? 0 : 1;
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
  return options->sampleFolder.empty() ? vellix::demo::serve(*options)
                                       : vellix::demo::writeSample(*options);
}
