#include "support/fakes.hpp"

#include <array>
#include <chrono>

namespace vellix {
namespace {

std::chrono::sys_days dayIn(Moment moment) { return std::chrono::floor<std::chrono::days>(moment); }

}  // namespace

std::optional<std::string> FakeDefaults::text(const std::string& key) const {
  const auto found = texts.find(key);
  return found == texts.end() ? std::nullopt : std::optional{found->second};
}

std::optional<bool> FakeDefaults::flag(const std::string& key) const {
  const auto found = flags.find(key);
  return found == flags.end() ? std::nullopt : std::optional{found->second};
}

void FakeDefaults::setText(const std::string& key, const std::string& value) { texts[key] = value; }

void FakeDefaults::setFlag(const std::string& key, bool value) { flags[key] = value; }

void FakeDefaults::writeDown() {
  if (canWrite) onDisk = texts;
}

bool FakeDefaults::lasting() const { return canWrite; }

std::optional<std::string> FakeTokenStore::read() {
  ++reads;
  return item;
}

void FakeTokenStore::remove() {
  calls.push_back("remove");
  item.reset();
}

void FakeTokenStore::add(const std::string& token) {
  calls.push_back("add " + token);
  if (works) item = token;
}

bool FakeWindows::seen() const { return isSeen; }

std::string FakeMachine::name() const { return machineName; }

bool FakeOpener::open(const std::string& url) {
  opened.push_back(url);
  return works;
}

void FakeClipboard::put(const std::string& text) { texts.push_back(text); }

std::int64_t FakeBody::size() const { return bytes_; }

std::optional<std::size_t> FakeBody::read(char*, std::size_t) { return std::nullopt; }

Pending<std::shared_ptr<HttpBody>> FakeLocalFiles::open(std::string path) {
  opened.push_back(path);
  const auto found = sizes.find(path);
  const auto body = found == sizes.end() ? nullptr : std::make_shared<FakeBody>(found->second);
  const Resolver<std::shared_ptr<HttpBody>> resolver;
  loop_.post([resolver, body] { resolver(body); });
  return resolver.pending();
}

class FakeDownloads::Arriving : public Download, public ReportFolder {
 public:
  explicit Arriving(FakeDownloads& downloads) : downloads_(downloads) {}

  bool write(std::string_view bytes) override {
    if (!downloads_.full) bytes_ += bytes;
    return !downloads_.full;
  }

  Pending<std::optional<std::string>> keep(Naming naming) override {
    const Resolver<std::optional<std::string>> resolver;
    downloads_.loop_.post([this, resolver, naming = std::move(naming)] {
      const auto name = naming(*this);
      resolver(name ? std::optional{"file:///downloads/" + *name} : std::nullopt);
    });
    return resolver.pending();
  }

  Place look(const std::string& name) override {
    const auto found = downloads_.files.find(name);
    if (found == downloads_.files.end()) return Place::free;
    return found->second == bytes_ ? Place::same : Place::taken;
  }

  Written write(const std::string& name) override {
    if (downloads_.closed) return Written::failed;
    downloads_.files[name] = bytes_;
    return Written::whole;
  }

 private:
  FakeDownloads& downloads_;
  std::string bytes_;
};

std::shared_ptr<Download> FakeDownloads::begin() {
  ++begun;
  return std::make_shared<Arriving>(*this);
}

Pending<PhotoResult> FakePhotos::make(std::string path) {
  asked.push_back(path);
  const auto found = made.find(path);
  const PhotoResult result =
      found == made.end() ? std::unexpected(PhotoFailure::notLoaded) : found->second;
  const Resolver<PhotoResult> resolver;
  if (meanwhile) loop_.post(meanwhile);
  loop_.post([resolver, result] { resolver(result); });
  return resolver.pending();
}

std::string FakeUuids::fresh() {
  return "0f8fad5b-d9cb-469f-a165-70867728950" + std::to_string(++given);
}

void FakePrefetch::prefetch(std::vector<Page> wanted) {
  ++calls;
  for (const Page& page : wanted) pages.push_back(page.i);
}

void FakeBadge::show(std::optional<std::int64_t> count) { shown.push_back(count); }

int FakeCalendar::dayOf(Moment moment) const {
  return static_cast<int>(dayIn(moment + zone).time_since_epoch().count());
}

WallTime FakeCalendar::wallTime(Moment moment) const {
  const Moment local = moment + zone;
  const auto minutes =
      std::chrono::floor<std::chrono::minutes>(local - Moment{dayIn(local)}).count();
  return {.day = dayOf(moment),
          .hour = static_cast<int>(minutes / 60),
          .minute = static_cast<int>(minutes % 60)};
}

Moment FakeCalendar::momentAt(const WallTime& time) const {
  const std::chrono::sys_days day{std::chrono::days{time.day}};
  return Moment{day} + std::chrono::hours{time.hour} + std::chrono::minutes{time.minute} - zone;
}

std::string FakeCalendar::shortTime(Moment moment) const {
  const WallTime time = wallTime(moment);
  const auto two = [](int number) { return (number < 10 ? "0" : "") + std::to_string(number); };
  const std::string minute = ":" + two(time.minute);
  if (to24) return two(time.hour) + minute;
  return std::to_string(time.hour % 12 == 0 ? 12 : time.hour % 12) + minute +
         (time.hour < 12 ? " AM" : " PM");
}

std::string FakeCalendar::weekday(Moment moment) const {
  static constexpr std::array names{"Sunday",   "Monday", "Tuesday", "Wednesday",
                                    "Thursday", "Friday", "Saturday"};
  return names.at(std::chrono::weekday{dayIn(moment + zone)}.c_encoding());
}

std::string FakeCalendar::shortWeekday(Moment moment) const { return weekday(moment).substr(0, 3); }

std::string FakeCalendar::halfOfDay(bool afternoon) const {
  if (to24) return {};
  return afternoon ? "PM" : "AM";
}

std::string FakeCalendar::monthAndDay(Moment moment) const {
  static constexpr std::array names{"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                    "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
  const std::chrono::year_month_day date{dayIn(moment + zone)};
  return std::string{names.at(unsigned{date.month()} - 1)} + " " +
         std::to_string(unsigned{date.day()});
}

std::string FakeCalendar::dateAndTime(Moment moment) const {
  const std::chrono::year_month_day date{dayIn(moment + zone)};
  return monthAndDay(moment) + ", " + std::to_string(int{date.year()}) + ", " + shortTime(moment);
}

}  // namespace vellix
