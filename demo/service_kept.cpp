// Nothing is answered that a service that starts anew would not know.
#include <cstdio>
#include <filesystem>

#include "clock.hpp"
#include "service.hpp"

namespace vellix::demo {

bool Service::keepPagesIn(const std::string& folder) {
  const std::lock_guard lock(mutex_);
  if (!shelf_) state_.copyOwnInto(folder + "/proofs");
  return pictures_.keepIn(folder);
}

Kept Service::takeUp() {
  const std::lock_guard lock(mutex_);
  // Among the shelf's own files, so that they go where its folder goes.
  if (shelf_) {
    state_.copyOwnInto(std::filesystem::path(shelf_->pathOf("proof")).parent_path().string());
  }
  return shelf_ ? state_.takeUp(*shelf_, nowMs()) : Kept{};
}

Reply Service::answerKept(const Request& request, Reply (Service::*serve)(const Request&)) {
  const std::lock_guard lock(mutex_);
  if (auto refused = refusedForNow(request)) return *std::move(refused);
  state_.advance(nowMs());
  return kept(request, (this->*serve)(request));
}

// While nothing can be kept nothing more is taken on; reading goes on.
std::optional<Reply> Service::refusedForNow(const Request& request) {
  if (trouble_.empty() || request.method == "GET") return std::nullopt;
  const Kept done = state_.keep();
  trouble_ = done ? "" : done.error();
  if (done) return std::nullopt;
  return errorReply(500, "Nothing was changed, since it could not be kept. " + trouble_);
}

// What is done cannot be undone, so it is told that it may be lost.
Reply Service::kept(const Request& request, Reply reply) {
  const Kept done = state_.keep();
  const std::string trouble = done ? "" : done.error();
  if (!done && trouble != trouble_) std::fprintf(stderr, "%s\n", trouble.c_str());
  trouble_ = trouble;
  if (done || request.method == "GET" || reply.status >= 400) return reply;
  return errorReply(500, "That is done, but it is lost when the service ends. " + trouble_);
}

}  // namespace vellix::demo
