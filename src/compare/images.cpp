#include "compare/images.hpp"

#include <algorithm>

namespace vellix {
namespace {

// The 401st picture clears the memory: the disk makes a reload cheap.
constexpr std::size_t kMostInMemory = 400;

}  // namespace

std::string Images::fileName(std::string key) {
  std::ranges::replace(key, '/', '_');
  return key;
}

PictureHandle Images::cached(const std::optional<std::string>& key) {
  if (!key) return nullptr;
  if (const auto sample = samples.find(*key); sample != samples.end()) return sample->second;
  if (const auto held = memory_.find(*key); held != memory_.end()) return held->second;
  const std::string name = fileName(*key);
  if (broken_.contains(name)) return nullptr;
  std::string file = files_.find(name);
  if (file.empty()) return nullptr;
  const auto found = decoder_.inspect({.key = *key, .file = std::move(file)});
  if (!found) return nullptr;
  return memory_[*key] = std::make_shared<const Picture>(*found);
}

Task<PictureHandle> Images::image(std::optional<std::string> key) {
  if (!key) co_return nullptr;
  if (auto held = cached(key)) co_return held;
  if (const auto running = inflight_.find(*key); running != inflight_.end()) {
    const auto pending = running->second;
    co_return co_await pending;
  }
  const Resolver<PictureHandle> done;
  const auto pending = done.pending();
  inflight_.emplace(*key, pending);
  tasks_.start(load(*key, done));
  co_return co_await pending;
}

void Images::forget(const PictureHandle& broken) {
  const auto held = memory_.find(broken->key);
  const bool cameAnew = held != memory_.end() && held->second != broken;
  if (cameAnew) return;
  memory_.erase(broken->key);
  broken_.insert(fileName(broken->key));
}

Task<> Images::load(std::string key, Resolver<PictureHandle> done) {
  auto call = fetch(key);
  const PictureHandle picture = co_await std::move(call);
  inflight_.erase(key);
  if (picture) {
    memory_[key] = picture;
    if (memory_.size() > kMostInMemory) memory_.clear();
  }
  done(picture);
}

Task<PictureHandle> Images::fetch(std::string key) {
  auto call = api_.send({.path = "api/blob/" + key});
  auto response = co_await std::move(call);
  if (!response || response->body.empty()) co_return nullptr;
  const auto decoding = decoder_.decode({.key = key, .bytes = std::move(response->body)});
  const PictureHandle decoded = co_await decoding;
  if (!decoded) co_return nullptr;
  const std::string name = fileName(key);
  std::string file = files_.write(name, decoded->bytes);
  if (file.empty()) co_return decoded;
  broken_.erase(name);
  Picture onDisk = *decoded;
  onDisk.bytes.clear();
  onDisk.file = std::move(file);
  co_return std::make_shared<const Picture>(std::move(onDisk));
}

void Images::prefetch(const Page& page) { tasks_.start(prefetchAll(page)); }

Task<> Images::prefetchAll(Page page) {
  // The page on show asks first.
  const auto turn = loop_.turn();
  co_await turn;
  auto own = bring(page.img);
  co_await std::move(own);
  const auto refs = std::move(page.refs).value_or(std::map<std::string, RefPage>{});
  for (const auto& [role, ref] : refs) {
    auto other = bring(ref.img);
    co_await std::move(other);
  }
}

// A picture that comes over the network is decoded on arrival; one that was here already has its
// pixels brought to hand, so that a page step waits for neither.
Task<> Images::bring(std::optional<std::string> key) {
  if (const auto held = cached(key)) {
    const auto decoding = decoder_.decode(*held);
    const PictureHandle decoded = co_await decoding;
    if (decoded || held->file.empty()) co_return;
    forget(held);
  }
  auto loading = image(key);
  co_await std::move(loading);
}

}  // namespace vellix
