// The check of one version against all that it can be compared with, going on beside.
#pragma once

#include <atomic>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <thread>
#include <vector>

#include "check/compared.hpp"
#include "pdf_file.hpp"

namespace vellix::demo {

struct CheckReference {
  std::string role;    // "submitted", "previous", "fbc"
  std::string called;  // within a sentence
  std::shared_ptr<const PdfFile> pdf;
};

// What came since it was asked for last.
struct CheckNews {
  // First of all, what the files are. Without pages of the proof's that is all there is, and with a
  // reference without pages nothing is compared.
  std::optional<PdfReading> proof;
  std::map<std::string, PdfReading> references;  // by role
  std::map<std::string, Partners> partners;      // by role
  std::vector<Finding> findings;                 // without ids
  std::string step;                              // what is being done
  bool done = false;
};

class VersionCheck {
 public:
  // Nothing is read before this returns. Our own file ("submitted") goes first, wherever it stands.
  VersionCheck(std::shared_ptr<const PdfFile> proof, std::vector<CheckReference> references);
  // Stops, and waits for the pages that are being read.
  ~VersionCheck();

  // Any thread.
  CheckNews news();
  // Waits for the end of it, and gives all that came until then. One thread.
  CheckNews atEnd();
  // No more pages are begun; what there is stays.
  void stop() { thread_.request_stop(); }
  // Nothing is read any more.
  bool ended() const { return ended_; }

 private:
  struct Side;
  void run(const std::stop_token& stopped);
  void compare(const PdfReading& facts, const std::stop_token& stopped);
  std::vector<Side> sidesOf(const std::stop_token& stopped);
  void match(std::vector<Side>& sides, const std::stop_token& stopped);
  void tellUnread(const std::set<std::size_t>& unread, std::vector<Side>& sides);
  void say(std::string step);
  Pair pairOf(const Side& side) const;
  bool inPart(const Side& side, std::size_t page) const;
  bool hasOurs() const;
  enum class Tells { difference, notCompared };
  void find(std::size_t reference, std::vector<Finding> findings, Tells what = Tells::difference);
  void compareText(std::vector<Side>& sides);
  void comparePages(std::vector<Side>& sides, const std::stop_token& stopped);
  void lookAt(std::vector<Side>& sides, std::size_t from, std::size_t to,
              const std::stop_token& stopped);
  void tellRest(std::vector<Side>& sides);

  std::shared_ptr<const PdfFile> proof_;
  std::vector<CheckReference> references_;
  std::vector<PdfPage> pages_;  // of the proof, with their words
  std::mutex mutex_;
  CheckNews news_;
  std::vector<std::vector<Finding>> found_;  // all, by reference
  std::optional<Partners> withBefore_;       // of a revision
  std::size_t looked_ = 0;                   // pages
  std::atomic<bool> ended_ = false;
  std::jthread thread_;
};

}  // namespace vellix::demo
