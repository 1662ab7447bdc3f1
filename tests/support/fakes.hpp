// Ports that live in memory.
#pragma once

#include <chrono>
#include <map>
#include <set>

#include "platform/ports/badge.hpp"
#include "platform/ports/calendar.hpp"
#include "platform/ports/clipboard.hpp"
#include "platform/ports/defaults.hpp"
#include "platform/ports/local_files.hpp"
#include "platform/ports/machine.hpp"
#include "platform/ports/main_loop.hpp"
#include "platform/ports/token_store.hpp"
#include "platform/ports/url_opener.hpp"
#include "platform/ports/uuids.hpp"
#include "platform/ports/windows.hpp"
#include "store/store.hpp"

namespace vellix {

class FakeDefaults : public Defaults {
 public:
  std::optional<std::string> text(const std::string& key) const override {
    const auto found = texts.find(key);
    return found == texts.end() ? std::nullopt : std::optional{found->second};
  }
  std::optional<bool> flag(const std::string& key) const override {
    const auto found = flags.find(key);
    return found == flags.end() ? std::nullopt : std::optional{found->second};
  }
  void setText(const std::string& key, const std::string& value) override { texts[key] = value; }
  void setFlag(const std::string& key, bool value) override { flags[key] = value; }
  bool lasting() const override { return canWrite; }

  std::map<std::string, std::string> texts;
  std::map<std::string, bool> flags;
  bool canWrite = true;
};

class FakeTokenStore : public TokenStore {
 public:
  std::optional<std::string> read() override {
    ++reads;
    return item;
  }
  void remove() override {
    calls.push_back("remove");
    item.reset();
  }
  void add(const std::string& token) override {
    calls.push_back("add " + token);
    if (works) item = token;
  }

  std::optional<std::string> item;
  bool works = true;
  int reads = 0;
  std::vector<std::string> calls;
};

class FakeWindows : public Windows {
 public:
  bool seen() const override { return isSeen; }
  bool isSeen = true;
};

class FakeMachine : public Machine {
 public:
  std::string name() const override { return machineName; }
  std::string machineName = "studio";
};

class FakeOpener : public UrlOpener {
 public:
  bool open(const std::string& url) override {
    opened.push_back(url);
    return works;
  }
  std::vector<std::string> opened;
  bool works = true;
};

class FakeClipboard : public Clipboard {
 public:
  void put(const std::string& text) override { texts.push_back(text); }
  std::vector<std::string> texts;  // the latest last
};

// A body of so many bytes, of which none is ever read here.
class FakeBody : public HttpBody {
 public:
  explicit FakeBody(std::int64_t bytes) : bytes_(bytes) {}
  std::int64_t size() const override { return bytes_; }
  std::optional<std::size_t> read(char*, std::size_t) override { return std::nullopt; }

 private:
  std::int64_t bytes_;
};

class FakeLocalFiles : public LocalFiles {
 public:
  explicit FakeLocalFiles(MainLoop& loop) : loop_(loop) {}

  Pending<std::shared_ptr<HttpBody>> open(std::string path) override {
    opened.push_back(path);
    const auto found = sizes.find(path);
    const auto body = found == sizes.end() ? nullptr : std::make_shared<FakeBody>(found->second);
    const Resolver<std::shared_ptr<HttpBody>> resolver;
    loop_.post([resolver, body] { resolver(body); });
    return resolver.pending();
  }

  std::map<std::string, std::int64_t> sizes;  // by path; no other can be read
  std::vector<std::string> opened;

 private:
  MainLoop& loop_;
};

class FakeUuids : public Uuids {
 public:
  // The first ends in 1, the second in 2, and so on.
  std::string fresh() override {
    return "0f8fad5b-d9cb-469f-a165-70867728950" + std::to_string(++given);
  }
  int given = 0;
};

class FakePrefetch : public PagePrefetch {
 public:
  void prefetch(std::vector<Page> wanted) override {
    ++calls;
    for (const Page& page : wanted) pages.push_back(page.i);
  }
  int calls = 0;
  std::vector<Int> pages;
};

class FakeBadge : public Badge {
 public:
  void show(std::optional<std::int64_t> count) override { shown.push_back(count); }
  std::vector<std::optional<std::int64_t>> shown;  // the latest last
};

// UTC or a fixed distance from it, with English words.
class FakeCalendar : public Calendar {
 public:
  int dayOf(Moment moment) const override;
  std::string shortTime(Moment moment) const override;
  std::string weekday(Moment moment) const override;
  std::string shortWeekday(Moment moment) const override { return weekday(moment).substr(0, 3); }
  std::string monthAndDay(Moment moment) const override;
  std::string dateAndTime(Moment moment) const override;
  WallTime wallTime(Moment moment) const override;
  Moment momentAt(const WallTime& time) const override;
  std::string halfOfDay(bool afternoon) const override {
    if (to24) return {};
    return afternoon ? "PM" : "AM";
  }

  std::chrono::minutes zone{0};  // ahead of UTC
  bool to24 = false;
};

}  // namespace vellix
