// The photo that the signed-in person is seen by.
#include "store/store.hpp"

namespace vellix {
namespace {

constexpr const char* kPhoto = "photo";

}  // namespace

void Store::changePhoto(std::string path) {
  if (holds(kPhoto)) return;
  hold(kPhoto);
  spawn(sendPhoto(std::move(path), session_));
}

Task<> Store::sendPhoto(std::string path, Session session) {
  if (session == session_) {
    const auto making = ports_.photos.make(std::move(path));
    const auto jpeg = co_await making;
    if (session == session_ && jpeg) {
      auto sending =
          runAction(kPhoto, "Photo updated.", [this, jpeg] { return putPhoto(*jpeg); }, session);
      co_await std::move(sending);
      co_return;
    }
    if (session == session_ && jpeg.error() == PhotoFailure::notMade) {
      toast.set(Toast{"That photo didn't open."});
    }
  }
  letGo(kPhoto, session);
}

Task<API::Result<Done>> Store::putPhoto(std::string jpeg) {
  auto call = api_.send({.path = "api/me/photo",
                         .method = "PUT",
                         .data = std::move(jpeg),
                         .contentType = "image/jpeg",
                         .stop = sessionEnd()});
  const auto answer = co_await std::move(call);
  if (!answer) co_return std::unexpected(answer.error());
  co_return Done{};
}

}  // namespace vellix
