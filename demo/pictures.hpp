// The service's blobs: pages painted when first asked for, and uploaded photos. Any thread.
#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <unordered_map>
#include <vector>

#include "page_art.hpp"
#include "pdf_file.hpp"
#include "picture_folder.hpp"

namespace vellix::demo {

class Pictures {
 public:
  // Makes a picture; one that is not drawn is an excuse, which is not kept on the disk.
  using Paint = std::function<PdfPicture(const Demand& demand)>;

  // From now on pages of PDFs are kept on the disk, below that folder; false where it cannot be
  // made, and they stay in memory as without.
  bool keepIn(const std::string& folder);

  // A page's picture under `key`; `width` in pixels, 0 for the page's own.
  void add(const std::string& key, std::shared_ptr<const PageArt> page, int width = 0);
  // A picture that `paint` makes, as JPEG bytes, when it is first asked for; on any thread.
  void add(const std::string& key, std::function<std::string()> paint);
  // The same, kept on the disk. `name` tells this picture from any other, whatever its key.
  void addKept(const std::string& key, const std::string& name, Paint paint);
  // A PDF's page in so many pixels, kept on the disk.
  void add(const std::string& key, const std::shared_ptr<const PdfFile>& pdf, int page,
           QSize pixels);
  void put(const std::string& key, std::string bytes);

  // JPEG bytes, without any where it could not be painted just now; none for an unknown key. Two
  // callers of one key paint it once.
  std::optional<std::string> find(const std::string& key);
  std::vector<std::string> keys() const;

  // Paints these in this order behind what was given before, beside everything else and behind it,
  // so that they lie on the disk once they are asked for; without a folder nothing is done.
  void drawAhead(const std::vector<std::string>& keys);

 private:
  struct Entry {
    Paint paint;
    std::string name = {};  // empty for what stays in memory
    bool painting = false;
    std::string bytes = {};
  };
  void enter(const std::string& key, Entry entry);
  std::shared_ptr<Entry> nextAhead(const std::stop_token& stop);
  void drawInto(const PictureFolder& folder, const std::stop_token& stop);

  mutable std::mutex mutex_;
  std::condition_variable painted_;
  std::condition_variable_any given_;
  // An entry that is entered anew while it is painted is painted to its end for who waits.
  std::unordered_map<std::string, std::shared_ptr<Entry>> entries_;
  std::shared_ptr<const PictureFolder> folder_;
  std::deque<std::string> ahead_;
  std::jthread drawer_;  // the last, so that it ends first
};

}  // namespace vellix::demo
