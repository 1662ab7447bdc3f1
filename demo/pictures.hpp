// The service's blobs: pages painted when first asked for, and uploaded photos. Any thread.
#pragma once

#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "page_art.hpp"

namespace vellix::demo {

class Pictures {
 public:
  // A page's picture under `key`; `width` in pixels, 0 for the page's own.
  void add(const std::string& key, std::shared_ptr<const PageArt> page, int width = 0);
  // A picture that `paint` makes, as JPEG bytes, when it is first asked for; on any thread.
  void add(const std::string& key, std::function<std::string()> paint);
  void put(const std::string& key, std::string bytes);

  // JPEG bytes; none for an unknown key. Two callers of one key paint it once.
  std::optional<std::string> find(const std::string& key);
  std::vector<std::string> keys() const;

 private:
  struct Entry {
    std::function<std::string()> paint;
    bool painting = false;
    std::string bytes;
  };
  mutable std::mutex mutex_;
  std::condition_variable painted_;
  std::unordered_map<std::string, Entry> entries_;
};

}  // namespace vellix::demo
