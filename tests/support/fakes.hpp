// Ports that live in memory.
#pragma once

#include <map>
#include <set>

#include "platform/ports/calendar.hpp"
#include "platform/ports/defaults.hpp"
#include "platform/ports/machine.hpp"
#include "platform/ports/token_store.hpp"
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

  std::map<std::string, std::string> texts;
  std::map<std::string, bool> flags;
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

class FakePrefetch : public PagePrefetch {
 public:
  void prefetch(const Page& page) override { pages.push_back(page.i); }
  std::vector<Int> pages;
};

// UTC, with English words.
class FakeCalendar : public Calendar {
 public:
  int dayOf(Moment moment) const override;
  std::string shortTime(Moment moment) const override;
  std::string weekday(Moment moment) const override;
  std::string shortWeekday(Moment moment) const override { return weekday(moment).substr(0, 3); }
  std::string monthAndDay(Moment moment) const override;
};

}  // namespace vellix
