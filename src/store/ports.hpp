// What the Store stands on beside the service.
#pragma once

#include <vector>

#include "platform/ports/badge.hpp"
#include "platform/ports/clipboard.hpp"
#include "platform/ports/defaults.hpp"
#include "platform/ports/downloads.hpp"
#include "platform/ports/local_files.hpp"
#include "platform/ports/main_loop.hpp"
#include "platform/ports/photos.hpp"
#include "platform/ports/url_opener.hpp"
#include "platform/ports/windows.hpp"
#include "records/records.hpp"

namespace vellix {

// Brings the pictures of pages into the cache before they are asked for. Nobody waits for it.
class PagePrefetch {
 public:
  virtual ~PagePrefetch() = default;
  // These pages from now on: what is still to come of others is wanted no more.
  virtual void prefetch(std::vector<Page> pages) = 0;
};

// All of them must outlive the Store.
struct StorePorts {
  MainLoop& loop;
  Defaults& defaults;
  const Windows& windows;
  PagePrefetch& pictures;
  Badge& badge;
  LocalFiles& files;
  Clipboard& clipboard;
  UrlOpener& opener;
  Downloads& downloads;
  Photos& photos;
};

}  // namespace vellix
