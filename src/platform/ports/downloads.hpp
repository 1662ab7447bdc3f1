// The person's folder of downloads.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "platform/ports/http.hpp"
#include "platform/ports/pending.hpp"
#include "platform/ports/report_folder.hpp"

namespace vellix {

// A report as it comes in. Until it is kept it lies in a file of its own, and goes with the
// Download. Written to on one thread at a time; may wait for the disk.
class Download : public HttpSink {
 public:
  // The name that it got in the folder; none when it got none.
  using Naming = std::function<std::optional<std::string>(ReportFolder&)>;
  // Asks, on a thread that may wait, under which name it goes into the folder. The file's URL; none
  // when it could not be kept. Called once, on the main thread, when all has come; resolves there.
  virtual Pending<std::optional<std::string>> keep(Naming naming) = 0;
};

class Downloads {
 public:
  virtual ~Downloads() = default;
  // Puts nothing on the disk before there is something to keep. Main thread only.
  virtual std::shared_ptr<Download> begin() = 0;
};

}  // namespace vellix
