// A report that comes into a folder piece by piece.
#pragma once

#include <cstdint>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "platform/ports/report_folder.hpp"

namespace vellix {

// Until it is written under a name it lies in a hidden file of its own in that folder, where the
// name is given to it in one step. Calls may wait for the disk; one thread at a time, but for
// `drop`.
class ArrivingReport : public ReportFolder {
 public:
  // The folder's path, in the system's own bytes. Nothing is made or looked at yet.
  explicit ArrivingReport(std::string folder) : folder_(std::move(folder)) {}
  ~ArrivingReport() override;
  ArrivingReport(const ArrivingReport&) = delete;
  ArrivingReport& operator=(const ArrivingReport&) = delete;

  // False once it cannot be held: from then on it is never whole.
  bool append(std::string_view bytes);
  // All that was appended is on the disk. Without it nothing is written under a name.
  bool finish();
  // Leaves nothing of what has no name, now and later. Any thread; waits for no piece.
  void drop();

  Place look(const std::string& name) override;
  Written write(const std::string& name) override;

  // Of the file of that name in the folder; percent-encoded byte by byte.
  std::string urlOf(const std::string& name) const;

 private:
  bool open();
  bool openLocked();
  Written nameLocked(const std::string& name);
  Written nameOverOwn(const std::string& name);
  void dropLocked();

  const std::string folder_;
  std::mutex mutex_;     // of what follows, but for what the files hold
  int folderFile_ = -1;  // stays the same folder, wherever it is moved to
  int file_ = -1;
  std::string part_;  // its name until it has one; empty when there is no such file
  bool dropped_ = false;
  bool whole_ = false;
  std::int64_t size_ = 0;  // bytes
  bool broken_ = false;
};

}  // namespace vellix
