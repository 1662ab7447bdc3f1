// The one cache of page pictures, reference pictures and thumbnails, by blob key: samples, memory,
// disk, and the loads in flight, so that no key is ever fetched twice at a time. It keeps handles,
// not pixels. Main thread only; nothing here fails, a missing picture is none.
#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>

#include "gateway/api.hpp"
#include "platform/ports/main_loop.hpp"
#include "platform/ports/pictures.hpp"
#include "records/records.hpp"
#include "store/store.hpp"

namespace vellix {

class Images : public PagePrefetch {
 public:
  // The ports must outlive the cache.
  Images(API& api, MainLoop& loop, PictureDecoder& decoder, PictureFiles& files)
      : api_(api), loop_(loop), decoder_(decoder), files_(files) {}

  // What is at hand without the network; null when there is none.
  PictureHandle cached(const std::optional<std::string>& key);
  // The picture, fetched when it has to be; null when it cannot be had.
  Task<PictureHandle> image(std::optional<std::string> key);
  // Lets go of a picture whose file has gone or does not decode to its end. Until its bytes have
  // come and been written anew, `cached` has none, so that `image` fetches it.
  void forget(const PictureHandle& broken);
  // Brings a page's pictures in, in the background.
  void prefetch(const Page& page) override;

  // Staged pictures: looked at first, never evicted.
  std::map<std::string, PictureHandle> samples;

  std::size_t heldInMemory() const { return memory_.size(); }
  static std::string fileName(std::string key);

 private:
  Task<> load(std::string key, Resolver<PictureHandle> done);
  Task<PictureHandle> fetch(std::string key);
  Task<> prefetchAll(Page page);
  Task<> bring(std::optional<std::string> key);

  API& api_;
  MainLoop& loop_;
  PictureDecoder& decoder_;
  PictureFiles& files_;
  std::map<std::string, PictureHandle> memory_;
  std::map<std::string, Pending<PictureHandle>> inflight_;
  std::set<std::string> broken_;  // names of files that are not to be taken
  TaskScope tasks_;
};

}  // namespace vellix
