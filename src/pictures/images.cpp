#include "pictures/images.hpp"

#include <algorithm>
#include <utility>

namespace vellix {
namespace {

// The 401st picture clears the memory: the disk makes a reload cheap.
constexpr std::size_t kMostInMemory = 400;

// So long an answer may still take that nobody waits for any more: the service is at work on it,
// and who goes there and back finds it.
constexpr Milliseconds kStillWelcome{500};

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

Task<PictureHandle> Images::image(std::optional<std::string> key, PictureWant want) {
  if (!key) co_return nullptr;
  if (auto held = cached(key)) co_return held;
  if (want.stop.stop_requested()) co_return nullptr;
  const LoadHandle load = loadOf(*key);
  const auto mine = load->wants.insert(want.urgency);
  const std::stop_callback leaving(want.stop, [this, load, mine] { leave(load, mine); });
  const auto pending = load->done.pending();
  co_return co_await pending;
}

void Images::forget(const PictureHandle& broken) {
  const auto held = memory_.find(broken->key);
  const bool cameAnew = held != memory_.end() && held->second != broken;
  if (cameAnew) return;
  memory_.erase(broken->key);
  broken_.insert(fileName(broken->key));
}

Images::LoadHandle Images::loadOf(const std::string& key) {
  LoadHandle& load = loads_[key];
  if (load) return load;
  load = std::make_shared<Load>();
  load->key = key;
  load->number = ++asked_;
  if (!std::exchange(sending_, true)) tasks_.start(sendInATurn());
  return load;
}

// A stop comes in the middle of anything, so it only sets things going.
void Images::leave(const LoadHandle& load, std::multiset<double>::const_iterator want) {
  load->wants.erase(want);
  if (!load->wants.empty() || load->arrived) return;
  if (!load->sent) return giveUp(*load);
  tasks_.start(giveUpLater(load, ++load->partings));
}

Task<> Images::giveUpLater(LoadHandle load, int parting) {
  const auto pause = loop_.sleep(kStillWelcome, {});
  co_await pause;
  const bool isWanted = !load->wants.empty() || parting != load->partings;
  if (!isWanted && !load->arrived) giveUp(*load);
}

void Images::giveUp(Load& load) {
  loads_.erase(load.key);  // who asks from now on begins anew
  load.stop.request_stop();
  loop_.post([done = load.done] { done(nullptr); });
}

// What is asked for in one turn goes out in the order in which it is wanted.
Task<> Images::sendInATurn() {
  const auto turn = loop_.turn();
  co_await turn;
  sending_ = false;
  sendNext();
}

// What is too much at once waits here and not in its lane, where nobody knows who wants it.
void Images::sendNext() {
  const auto rank = [](const LoadHandle& load) {
    return std::pair{*load->wants.rbegin(), -load->number};
  };
  while (underWay_ < kMostInALane) {
    LoadHandle next;
    for (const auto& [key, load] : loads_) {
      if (!load->sent && (!next || rank(load) > rank(next))) next = load;
    }
    if (!next) return;
    next->sent = true;
    ++underWay_;
    tasks_.start(run(std::move(next)));
  }
}

Task<> Images::run(LoadHandle load) {
  const auto stop = load->stop.get_token();
  auto call = api_.send({.path = "api/blob/" + load->key, .stop = stop});
  auto response = co_await std::move(call);
  --underWay_;
  sendNext();
  if (stop.stop_requested()) co_return;
  load->arrived = true;
  PictureHandle picture;
  if (response && !response->body.empty()) {
    auto decoding = decoded(load->key, std::move(response->body));
    picture = co_await std::move(decoding);
  }
  loads_.erase(load->key);
  if (picture) {
    memory_[load->key] = picture;
    if (memory_.size() > kMostInMemory) memory_.clear();
  }
  load->done(picture);
}

Task<PictureHandle> Images::decoded(std::string key, std::string bytes) {
  const auto decoding = decoder_.decode({.key = key, .bytes = std::move(bytes)});
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

// Pages that stay among the wanted ones go on.
void Images::prefetch(std::vector<Page> pages) {
  const auto left = std::exchange(ahead_, {});
  for (Page& page : pages) {
    const auto known = std::ranges::find(left, page, [](const auto& one) { return one->page; });
    if (known != left.end()) {
      ahead_.push_back(*known);
      continue;
    }
    const auto fresh = ahead_.emplace_back(std::make_shared<Ahead>(std::move(page)));
    tasks_.start(prefetchAll(fresh));
  }
  for (const auto& one : left) {
    if (std::ranges::find(ahead_, one) == ahead_.end()) one->stop.request_stop();
  }
}

Task<> Images::prefetchAll(std::shared_ptr<Ahead> ahead) {
  const auto stop = ahead->stop.get_token();
  // The page on show asks first.
  const auto turn = loop_.turn();
  co_await turn;
  auto own = bring(ahead->page.img, stop);
  co_await std::move(own);
  const auto refs = ahead->page.refs.value_or(std::map<std::string, RefPage>{});
  for (const auto& [role, ref] : refs) {
    auto other = bring(ref.img, stop);
    co_await std::move(other);
  }
  std::erase(ahead_, ahead);
}

// A picture that comes over the network is decoded on arrival; one that was here already has its
// pixels brought to hand, so that a page step waits for neither.
Task<> Images::bring(std::optional<std::string> key, std::stop_token stop) {
  if (stop.stop_requested()) co_return;
  if (const auto held = cached(key)) {
    const auto decoding = decoder_.decode(*held);
    const PictureHandle decoded = co_await decoding;
    if (decoded || held->file.empty()) co_return;
    forget(held);
  }
  auto loading = image(key, {.stop = stop});
  co_await std::move(loading);
}

}  // namespace vellix
