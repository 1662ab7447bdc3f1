// A ticket's versions: sending a new one, and looking at an older one.
#include <algorithm>

#include "gateway/url.hpp"
#include "records/held_sum.hpp"
#include "store/store.hpp"

namespace vellix {
namespace {

constexpr const char* kRevision = "revision";
constexpr std::int64_t kMostBytes = 59'999'999;
constexpr Milliseconds kPatience{600'000};
constexpr const char* kTooBig =
    "That PDF is too big. Use one under 60 MB, like the low-res export.";
constexpr const char* kNotSent = "The upload didn't go through. Try again.";

// All but letters and digits escaped. What is no text cannot be told.
std::string headerOf(const std::string& text) {
  return encode(text) ? percentEncode(text, "") : std::string{};
}

API::Request requestOf(const FileItem& file, const std::string& path, const std::string& note,
                       std::shared_ptr<HttpBody> pdf, std::stop_token stop) {
  const std::string name = path.substr(path.rfind('/') + 1);
  return {.path = "api/files/" + file.id + "/versions",
          .method = "PUT",
          .stream = std::move(pdf),
          .contentType = "application/pdf",
          .headers = {{"x-filename", headerOf(name)}, {"x-note", headerOf(note)}},
          .timeout = kPatience,
          .stop = std::move(stop)};
}

// The number that the service gave, or the next one when it tells none.
Int numberIn(const API::Answer<Json>& answer, const FileItem& file) {
  const Json* version = answer.record ? answer.record->find("version") : nullptr;
  const Int* number = version ? std::get_if<Int>(&version->value) : nullptr;
  return number ? *number : heldSum(file.versionNumber(), 1);
}

}  // namespace

void Store::uploadRevision(FileItem file, std::string path, std::string note) {
  if (holds(kRevision)) return;
  hold(kRevision);
  spawn(sendRevision(std::move(file), std::move(path), std::move(note), session_));
}

Task<> Store::sendRevision(FileItem file, std::string path, std::string note, Session session) {
  if (session == session_) {
    auto sending = putRevision(std::move(file), std::move(path), std::move(note), session);
    co_await std::move(sending);
  }
  letGo(kRevision, session);
}

Task<> Store::putRevision(FileItem file, std::string path, std::string note, Session session) {
  const auto opening = ports_.files.open(path);
  const auto pdf = co_await opening;
  if (session != session_) co_return;
  if (!pdf || pdf->size() > kMostBytes) {
    toast.set(Toast{pdf ? kTooBig : kNotSent});
    co_return;
  }
  auto call = api_.ask<Json>(requestOf(file, path, note, pdf, sessionEnd()));
  const auto answer = co_await std::move(call);
  if (session != session_) co_return;
  if (answer) {
    auto taking = takeUpRevision(file, numberIn(*answer, file), session);
    co_await std::move(taking);
  } else if (answer.error().kind == Failure::Kind::signedOut) {
    signOut(true);
  } else {
    toast.set(Toast{answer.error().description().value_or(kNotSent)});
  }
}

// The view goes to the first page of the newest version.
Task<> Store::takeUpRevision(FileItem file, Int n, Session session) {
  viewVersion.edit([&](auto& chosen) { chosen.erase(file.id); });
  page.edit([&](auto& pages) { pages[file.id] = 0; });
  toast.set(Toast{"Uploaded v" + std::to_string(n) + ". The Mac mini is checking it against v" +
                  std::to_string(heldSum(n, -1)) + "."});
  auto poll = pollWhole();
  co_await std::move(poll);
  if (session != session_ || !board()) co_return;
  const FileItem* found = board()->files.find(file.id);
  if (!found) co_return;
  auto load = loadDetail(*found, true);
  co_await std::move(load);
}

void Store::showVersion(FileItem file, Int n) {
  viewVersion.edit([&](auto& chosen) {
    if (n == file.versionNumber()) {
      chosen.erase(file.id);
    } else {
      chosen[file.id] = n;
    }
  });
  page.edit([&](auto& pages) { pages[file.id] = 0; });
  clearFocus();
  dropDraft();
  spawn(loadDetail(std::move(file), true));
}

}  // namespace vellix
