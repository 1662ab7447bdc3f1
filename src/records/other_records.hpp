// The reviewers' figures, the update feed and the end of a sign-in.
#pragma once

#include "records/board_records.hpp"

namespace vellix {

struct WeekCount {
  double start = 0;
  Int count = 0;
  bool operator==(const WeekCount&) const = default;
};
BOOST_DESCRIBE_STRUCT(WeekCount, (), (start, count))

struct Mention {
  std::string file_id;
  std::optional<Int> page;
  std::string text;
  std::string by;
  double at = 0;
  bool operator==(const Mention&) const = default;
};
BOOST_DESCRIBE_STRUCT(Mention, (), (file_id, page, text, by, at))

struct PersonStats {
  Int reviewed = 0;
  Int reviewed_week = 0;
  Int on_time = 0;
  std::optional<Int> on_time_rate;  // per cent
  std::optional<double> avg_hours;
  Int issues = 0;
  Int fine = 0;
  std::map<std::string, Int> by_kind;
  Int notes = 0;
  Int streak = 0;                 // days
  std::vector<WeekCount> weekly;  // oldest first
  Int open = 0;
  Int overdue = 0;
  Int reprints = 0;
  Int new_titles = 0;
  std::vector<Mention> mentions;
  bool operator==(const PersonStats&) const = default;
};
BOOST_DESCRIBE_STRUCT(PersonStats, (),
                      (reviewed, reviewed_week, on_time, on_time_rate, avg_hours, issues, fine,
                       by_kind, notes, streak, weekly, open, overdue, reprints, new_titles,
                       mentions))

struct Stats {
  double at = 0;
  std::map<std::string, PersonStats> users;  // by e-mail
  bool operator==(const Stats&) const = default;
};
BOOST_DESCRIBE_STRUCT(Stats, (), (at, users))

// The update feed.
struct VersionInfo {
  std::string version;
  Int build = 0;
  std::string url;
  std::optional<std::string> notes;
  std::optional<Int> min_build;
  bool operator==(const VersionInfo&) const = default;
};
BOOST_DESCRIBE_STRUCT(VersionInfo, (), (version, build, url, notes, min_build))

// The answer of the exchange that ends a sign-in.
struct SignInAnswer {
  std::string token;
  Me me;
  bool operator==(const SignInAnswer&) const = default;
};
BOOST_DESCRIBE_STRUCT(SignInAnswer, (), (token, me))

}  // namespace vellix
