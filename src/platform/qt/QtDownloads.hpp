// Reports in the folder that the desktop names for downloads.
#pragma once

#include <memory>
#include <vector>

#include "platform/ports/downloads.hpp"
#include "platform/qt/Errands.hpp"

namespace vellix {

class ArrivingReport;

// Made, used and ended on the main thread, while the QCoreApplication lives. At its end
// what has no name in the folder yet is taken off the disk, and what is being kept never resolves.
// Downloads may outlive it, but nothing is asked of them then.
class QtDownloads : public Downloads {
 public:
  QtDownloads() = default;
  ~QtDownloads() override;
  QtDownloads(const QtDownloads&) = delete;
  QtDownloads& operator=(const QtDownloads&) = delete;

  // Into the folder as it is named at that moment.
  std::shared_ptr<Download> begin() override;

 private:
  Errands errands_;
  std::vector<std::weak_ptr<ArrivingReport>> arriving_;
};

}  // namespace vellix
