#include "pictures.hpp"

#include <utility>

namespace vellix::demo {

bool Pictures::keepIn(const std::string& folder) {
  auto made = PictureFolder::at(folder);
  const std::lock_guard lock(mutex_);
  folder_ = std::move(made);
  return folder_ != nullptr;
}

void Pictures::enter(const std::string& key, Entry entry) {
  const std::lock_guard lock(mutex_);
  entries_[key] = std::make_shared<Entry>(std::move(entry));
}

void Pictures::add(const std::string& key, std::function<std::string()> paint) {
  enter(key, {[paint = std::move(paint)](const Demand&) { return PdfPicture{paint(), true}; }});
}

void Pictures::addKept(const std::string& key, const std::string& name, Paint paint) {
  enter(key, {std::move(paint), name});
}

void Pictures::add(const std::string& key, const std::shared_ptr<const PdfFile>& pdf, int page,
                   QSize pixels) {
  const std::string name = pdf->tag() + " " + std::to_string(page) + " " +
                           std::to_string(pixels.width()) + "x" + std::to_string(pixels.height());
  addKept(key, name,
          [pdf, page, pixels](const Demand& demand) { return pdf->drawn(page, pixels, demand); });
}

void Pictures::put(const std::string& key, std::string bytes) {
  enter(key, {.paint = nullptr, .bytes = std::move(bytes)});
}

std::optional<std::string> Pictures::find(const std::string& key) {
  std::unique_lock lock(mutex_);
  const auto found = entries_.find(key);
  if (found == entries_.end()) return std::nullopt;
  const std::shared_ptr<Entry> entry = found->second;
  painted_.wait(lock, [&] { return !entry->painting; });
  if (!entry->bytes.empty() || !entry->paint) return entry->bytes;
  entry->painting = true;
  const auto folder = entry->name.empty() ? nullptr : folder_;
  lock.unlock();
  // Whatever becomes of it, who waits for it does not wait for ever.
  const auto end = [&](Entry* painted) {
    const std::lock_guard again(mutex_);
    painted->painting = false;
    painted_.notify_all();
  };
  const std::unique_ptr<Entry, decltype(end)> painting(entry.get(), end);
  std::optional<std::string> kept = folder ? folder->find(entry->name) : std::nullopt;
  PdfPicture painted{kept ? std::move(*kept) : std::string(), true};
  if (!kept) {
    painted = entry->paint({});
    if (folder && painted.drawn) folder->keep(entry->name, painted.jpeg);
  }
  if (!folder || !painted.drawn) {
    lock.lock();
    entry->bytes = painted.jpeg;
    lock.unlock();
  }
  return std::move(painted.jpeg);
}

std::vector<std::string> Pictures::keys() const {
  const std::lock_guard lock(mutex_);
  std::vector<std::string> all;
  all.reserve(entries_.size());
  for (const auto& [key, entry] : entries_) all.push_back(key);
  return all;
}

void Pictures::drawAhead(const std::vector<std::string>& keys) {
  const std::lock_guard lock(mutex_);
  if (!folder_) return;
  ahead_.insert(ahead_.end(), keys.begin(), keys.end());
  given_.notify_all();
  if (drawer_.joinable()) return;
  drawer_ = std::jthread(
      [this, folder = folder_](const std::stop_token& stop) { drawInto(*folder, stop); });
}

// Null once it is to stop.
std::shared_ptr<Pictures::Entry> Pictures::nextAhead(const std::stop_token& stop) {
  std::unique_lock lock(mutex_);
  while (given_.wait(lock, stop, [&] { return !ahead_.empty(); })) {
    const auto found = entries_.find(ahead_.front());
    ahead_.pop_front();
    if (found == entries_.end()) continue;
    const auto& entry = found->second;
    if (entry->paint && !entry->name.empty() && !entry->painting && entry->bytes.empty()) {
      return entry;
    }
  }
  return nullptr;
}

// Who asks meanwhile for the very picture that is painted here does not wait for it: the one who
// paints ahead may have to wait for everybody else.
void Pictures::drawInto(const PictureFolder& folder, const std::stop_token& stop) {
  while (const auto entry = nextAhead(stop)) {
    if (stop.stop_requested()) return;
    if (folder.has(entry->name)) continue;
    const PdfPicture painted = entry->paint({Urgency::ahead, stop});
    if (painted.drawn) folder.keep(entry->name, painted.jpeg);
  }
}

}  // namespace vellix::demo
