// The demo service's program: loopback only, gone when whoever started it is gone.
#include <unistd.h>

#include <QByteArray>
#include <QGuiApplication>
#include <cstdio>
#include <span>
#include <thread>

#include "check_tool.hpp"
#include "options.hpp"
#include "server.hpp"

namespace vellix::demo {
namespace {

int writeSample(const Options& options) {
  Service service("https://proofs.tessarine.example", options.pace, options.colleague);
  if (service.writeSample(options.sampleFolder)) return 0;
  std::fprintf(stderr, "cannot write a sample into %s\n", options.sampleFolder.c_str());
  return 1;
}

int failed(const std::string& why) {
  std::fprintf(stderr, "%s\n", why.c_str());
  return 1;
}

int serve(const Options& options) {
  Server server(options.port);
  if (server.port() == 0) {
    std::fprintf(stderr, "cannot listen on 127.0.0.1:%d\n", options.port);
    return 1;
  }
  std::unique_ptr<Shelf> shelf;
  if (!options.stateFolder.empty()) {
    auto opened = Shelf::open(options.stateFolder);
    if (!opened) return failed(opened.error());
    shelf = *std::move(opened);
  }
  // Nobody but its owner decides about somebody's own proof.
  const bool books = options.proofs.empty();
  Service service(server.address(), options.pace, options.colleague && books, books,
                  std::move(shelf));
  const std::string pages =
      options.stateFolder.empty() ? options.pagesFolder : options.stateFolder + "/pages";
  if (!pages.empty() && !service.keepPagesIn(pages))
    return failed(pages + " cannot be written to.");
  if (const auto taken = service.takeUp(); !taken) return failed(taken.error());
  if (const auto given = service.give(options.proofs); !given) return failed(given.error());
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
      // Connections that are kept alive would hold an orderly end up, and what is to be kept is
      // kept.
      std::_Exit(0);
    }).detach();
  }
  return server.serve(service) ? 0 : 1;
}

}  // namespace
}  // namespace vellix::demo

int main(int argc, char** argv) {
  const std::span<const char* const> arguments(argv, static_cast<std::size_t>(argc));
  const auto options = vellix::demo::optionsOf(arguments.subspan(argc > 0 ? 1 : 0));
  if (!options) {
    std::fputs(options.error().empty() ? vellix::demo::kUsage : (options.error() + "\n").c_str(),
               stderr);
    return 2;
  }
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  if (!options->checkedProof.empty()) {
    return vellix::demo::checkAndPrint(options->checkedProof, options->checkedAgainst);
  }
  return options->sampleFolder.empty() ? vellix::demo::serve(*options)
                                       : vellix::demo::writeSample(*options);
}
