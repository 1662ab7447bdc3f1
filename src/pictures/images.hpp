// The one cache of page pictures, reference pictures and thumbnails, by blob key: samples, memory,
// disk, and the loads that wait or are under way, so that no key is ever fetched twice at a time.
// It keeps handles, not pixels. Main thread only; nothing here fails, a missing picture is none.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <stop_token>
#include <string>
#include <vector>

#include "gateway/api.hpp"
#include "platform/ports/main_loop.hpp"
#include "platform/ports/pictures.hpp"
#include "records/records.hpp"
#include "store/ports.hpp"

namespace vellix {

// How much somebody wants a picture, and until when. What is fetched ahead is wanted least.
struct PictureWant {
  double urgency = 0;
  std::stop_token stop;
};

class Images : public PagePrefetch {
 public:
  // The ports must outlive the cache.
  Images(API& api, MainLoop& loop, PictureDecoder& decoder, PictureFiles& files)
      : api_(api), loop_(loop), decoder_(decoder), files_(files) {}

  // What is at hand without the network; null when there is none.
  PictureHandle cached(const std::optional<std::string>& key);
  // The picture, fetched when it has to be; null when it cannot be had. What is wanted most is
  // asked for first, and what came first among equals. What nobody wants any more is not asked for,
  // and soon given up when it is under way: all who asked get null then.
  Task<PictureHandle> image(std::optional<std::string> key, PictureWant want = {});
  // Lets go of a picture whose file has gone or does not decode to its end. Until its bytes have
  // come and been written anew, `cached` has none, so that `image` fetches it.
  void forget(const PictureHandle& broken);
  // Brings the pages' pictures in, in the background.
  void prefetch(std::vector<Page> pages) override;

  // Staged pictures: looked at first, never evicted.
  std::map<std::string, PictureHandle> samples;

  std::size_t heldInMemory() const { return memory_.size(); }
  static std::string fileName(std::string key);

 private:
  struct Load {
    std::string key;
    std::int64_t number = 0;  // in the order of asking
    std::multiset<double> wants;
    bool sent = false;
    int partings = 0;      // how often nobody was left who wants it
    bool arrived = false;  // from here on it costs no request to have it whole
    std::stop_source stop;
    Resolver<PictureHandle> done;
  };
  using LoadHandle = std::shared_ptr<Load>;
  // A page that is fetched ahead, until all of it is here.
  struct Ahead {
    Page page;
    std::stop_source stop;
  };

  LoadHandle loadOf(const std::string& key);
  void leave(const LoadHandle& load, std::multiset<double>::const_iterator want);
  Task<> giveUpLater(LoadHandle load, int parting);
  void giveUp(Load& load);
  Task<> sendInATurn();
  void sendNext();
  Task<> run(LoadHandle load);
  Task<PictureHandle> decoded(std::string key, std::string bytes);
  Task<> prefetchAll(std::shared_ptr<Ahead> ahead);
  Task<> bring(std::optional<std::string> key, std::stop_token stop);

  API& api_;
  MainLoop& loop_;
  PictureDecoder& decoder_;
  PictureFiles& files_;
  std::map<std::string, PictureHandle> memory_;
  std::map<std::string, LoadHandle> loads_;
  std::int64_t asked_ = 0;    // loads in all
  std::size_t underWay_ = 0;  // requests
  bool sending_ = false;      // in the next turn
  std::vector<std::shared_ptr<Ahead>> ahead_;
  std::set<std::string> broken_;  // names of files that are not to be taken
  TaskScope tasks_;
};

}  // namespace vellix
