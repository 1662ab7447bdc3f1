// Ports that live in memory.
#pragma once

#include <chrono>
#include <functional>
#include <map>
#include <set>

#include "platform/ports/badge.hpp"
#include "platform/ports/calendar.hpp"
#include "platform/ports/clipboard.hpp"
#include "platform/ports/defaults.hpp"
#include "platform/ports/downloads.hpp"
#include "platform/ports/local_files.hpp"
#include "platform/ports/machine.hpp"
#include "platform/ports/main_loop.hpp"
#include "platform/ports/photos.hpp"
#include "platform/ports/token_store.hpp"
#include "platform/ports/url_opener.hpp"
#include "platform/ports/uuids.hpp"
#include "platform/ports/windows.hpp"
#include "store/store.hpp"

namespace vellix {

class FakeDefaults : public Defaults {
 public:
  std::optional<std::string> text(const std::string& key) const override;
  std::optional<bool> flag(const std::string& key) const override;
  void setText(const std::string& key, const std::string& value) override;
  void setFlag(const std::string& key, bool value) override;
  void writeDown() override;
  bool lasting() const override;

  std::map<std::string, std::string> texts;
  std::map<std::string, bool> flags;
  std::map<std::string, std::string> onDisk;  // of the texts, what a crash would leave
  bool canWrite = true;
};

class FakeTokenStore : public TokenStore {
 public:
  std::optional<std::string> read() override;
  void remove() override;
  void add(const std::string& token) override;

  std::optional<std::string> item;
  bool works = true;
  int reads = 0;
  std::vector<std::string> calls;
};

class FakeWindows : public Windows {
 public:
  bool seen() const override;
  bool isSeen = true;
};

class FakeMachine : public Machine {
 public:
  std::string name() const override;
  std::string machineName = "studio";
};

class FakeOpener : public UrlOpener {
 public:
  bool open(const std::string& url) override;
  std::vector<std::string> opened;
  bool works = true;
};

class FakeClipboard : public Clipboard {
 public:
  void put(const std::string& text) override;
  std::vector<std::string> texts;  // the latest last
};

// A body of so many bytes, of which none is ever read here.
class FakeBody : public HttpBody {
 public:
  explicit FakeBody(std::int64_t bytes) : bytes_(bytes) {}
  std::int64_t size() const override;
  std::optional<std::size_t> read(char* into, std::size_t most) override;

 private:
  std::int64_t bytes_;
};

class FakeLocalFiles : public LocalFiles {
 public:
  explicit FakeLocalFiles(MainLoop& loop) : loop_(loop) {}

  Pending<std::shared_ptr<HttpBody>> open(std::string path) override;

  std::map<std::string, std::int64_t> sizes;  // by path; no other can be read
  std::vector<std::string> opened;

 private:
  MainLoop& loop_;
};

// A folder of downloads in memory. What is kept has the URL "file:///downloads/" and its name.
class FakeDownloads : public Downloads {
 public:
  explicit FakeDownloads(MainLoop& loop) : loop_(loop) {}

  std::shared_ptr<Download> begin() override;

  std::map<std::string, std::string> files;  // by name
  bool full = false;                         // takes no more bytes
  bool closed = false;                       // takes no more files
  int begun = 0;

 private:
  class Arriving;

  MainLoop& loop_;
};

class FakePhotos : public Photos {
 public:
  explicit FakePhotos(MainLoop& loop) : loop_(loop) {}

  Pending<PhotoResult> make(std::string path) override;

  std::map<std::string, PhotoResult> made;  // by path; others are no pictures
  std::vector<std::string> asked;
  std::function<void()> meanwhile;  // comes before what is made

 private:
  MainLoop& loop_;
};

class FakeUuids : public Uuids {
 public:
  // The first ends in 1, the second in 2, and so on.
  std::string fresh() override;
  int given = 0;
};

class FakePrefetch : public PagePrefetch {
 public:
  void prefetch(std::vector<Page> wanted) override;
  int calls = 0;
  std::vector<Int> pages;
};

class FakeBadge : public Badge {
 public:
  void show(std::optional<std::int64_t> count) override;
  std::vector<std::optional<std::int64_t>> shown;  // the latest last
};

// UTC or a fixed distance from it, with English words.
class FakeCalendar : public Calendar {
 public:
  int dayOf(Moment moment) const override;
  std::string shortTime(Moment moment) const override;
  std::string weekday(Moment moment) const override;
  std::string shortWeekday(Moment moment) const override;
  std::string monthAndDay(Moment moment) const override;
  std::string dateAndTime(Moment moment) const override;
  WallTime wallTime(Moment moment) const override;
  Moment momentAt(const WallTime& time) const override;
  std::string halfOfDay(bool afternoon) const override;

  std::chrono::minutes zone{0};  // ahead of UTC
  bool to24 = false;
};

}  // namespace vellix
