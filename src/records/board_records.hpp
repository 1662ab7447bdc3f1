// The board: its people, tickets, jobs, reports and events, as the poll brings them.
#pragma once

#include <boost/describe.hpp>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "records/described.hpp"

namespace vellix {

using Int = std::int64_t;

struct Me {
  std::string email;
  std::string name;
  std::string firstName() const;
  bool operator==(const Me&) const = default;
};
BOOST_DESCRIBE_STRUCT(Me, (), (email, name))

struct Person {
  std::string email;
  std::string name;
  std::optional<std::string> photo;  // blob key
  std::optional<std::string> color;
  std::optional<std::string> tz;
  std::optional<double> last_seen;
  std::string firstName() const;
  bool operator==(const Person&) const = default;
};
BOOST_DESCRIBE_STRUCT(Person, (), (email, name, photo, color, tz, last_seen))

struct Guest {
  std::string email;
  std::optional<std::string> name;
  std::string shownName() const;
  bool operator==(const Guest&) const = default;
};
BOOST_DESCRIBE_STRUCT(Guest, (), (email, name))

struct Links {
  std::optional<std::string> gmail;
  std::optional<std::string> drive;
  std::optional<std::string> drive_folder;
  std::optional<std::string> indd;
  std::optional<std::string> indd_name;
  bool operator==(const Links&) const = default;
};
BOOST_DESCRIBE_STRUCT(Links, (), (gmail, drive, drive_folder, indd, indd_name))

struct Ref {
  std::string role;  // "submitted", "supplier", or a third role
  std::optional<std::string> name;
  std::optional<std::string> link;
  std::optional<Int> page_count;
  std::optional<Int> matched;
  std::optional<std::string> note;
  bool operator==(const Ref&) const = default;
};
BOOST_DESCRIBE_STRUCT(Ref, (), (role, name, link, page_count, matched, note))

struct Counts {
  std::optional<Int> pages;
  std::optional<Int> high;
  std::optional<Int> medium;
  std::optional<Int> low;
  std::optional<Int> expected;
  std::optional<Int> shown;
  bool operator==(const Counts&) const = default;
};
BOOST_DESCRIBE_STRUCT(Counts, (), (pages, high, medium, low, expected, shown))

struct Tally {
  std::optional<Int> open;
  std::optional<Int> issues;
  std::optional<Int> total;
  bool operator==(const Tally&) const = default;
};
BOOST_DESCRIBE_STRUCT(Tally, (), (open, issues, total))

// The page of a reference matched to a proof page.
struct RefPage {
  std::optional<Int> i;
  std::optional<std::string> label;
  std::optional<std::string> img;         // blob key
  std::optional<std::vector<double>> px;  // width, height in pixels
  std::optional<double> score;
  std::optional<std::string> how;
  bool operator==(const RefPage&) const = default;
};
BOOST_DESCRIBE_STRUCT(RefPage, (), (i, label, img, px, score, how))

struct Page {
  Int i = 0;  // 0-based
  std::optional<std::string> label;
  std::optional<double> w;
  std::optional<double> h;
  std::optional<std::string> img;                      // blob key
  std::optional<std::string> thumb;                    // blob key
  std::optional<std::vector<double>> px;               // width, height in pixels
  std::optional<std::map<std::string, RefPage>> refs;  // by role
  std::optional<bool> ocr;
  std::string name() const;
  double aspect() const;  // width over height
  bool operator==(const Page&) const = default;
};
BOOST_DESCRIBE_STRUCT(Page, (), (i, label, w, h, img, thumb, px, refs, ocr))

struct ShareInfo {
  bool enabled = false;
  std::optional<std::string> access;
  std::optional<std::string> url;
  std::optional<std::string> embed_url;
  std::optional<std::string> by;
  std::optional<double> at;
  bool operator==(const ShareInfo&) const = default;
};
BOOST_DESCRIBE_STRUCT(ShareInfo, (), (enabled, access, url, embed_url, by, at))

// One ticket.
struct FileItem {
  std::string id;
  std::optional<std::string> key;
  std::optional<std::string> po;
  std::optional<std::string> title;
  std::optional<std::string> component;
  std::optional<std::string> supplier;
  std::optional<std::string> filename;
  std::optional<std::string> kind;
  std::optional<std::string> sender;
  std::optional<double> received;
  std::optional<Int> page_count;
  std::optional<Links> links;
  std::optional<std::vector<Ref>> refs;
  std::optional<std::string> summary;
  std::optional<Counts> counts;
  std::string status;
  std::optional<std::string> status_by;
  std::optional<double> status_at;
  std::optional<double> created;
  std::optional<Int> rev;
  std::optional<std::string> thumb;  // blob key
  std::optional<Tally> tally;
  std::optional<std::vector<Page>> pages;  // filled in detail answers
  std::optional<std::string> track;        // none reads as "new_title"
  std::optional<std::string> assignee;
  std::optional<std::string> assigned_by;
  std::optional<double> due;
  std::optional<std::string> due_by;
  std::optional<bool> urgent;
  std::optional<double> deadline;
  std::optional<ShareInfo> share;
  std::optional<Int> version;
  std::optional<std::string> approval;
  std::optional<std::string> approval_by;
  std::optional<double> approval_at;
  std::optional<std::vector<std::string>> approvers;
  Int versionNumber() const { return version.value_or(1); }
  std::string heading() const;
  const Ref* ref(std::string_view role) const;  // owned by this ticket; null when there is none
  bool operator==(const FileItem&) const = default;
};
BOOST_DESCRIBE_STRUCT(FileItem, (),
                      (id, key, po, title, component, supplier, filename, kind, sender, received,
                       page_count, links, refs, summary, counts, status, status_by, status_at,
                       created, rev, thumb, tally, pages, track, assignee, assigned_by, due, due_by,
                       urgent, deadline, share, version, approval, approval_by, approval_at,
                       approvers))

struct JobArgs {
  std::optional<std::vector<std::string>> file_ids;
  bool operator==(const JobArgs&) const = default;
};
BOOST_DESCRIBE_STRUCT(JobArgs, (), (file_ids))

struct JobResult {
  std::optional<Int> new_files;
  std::optional<std::string> report_id;
  std::optional<std::string> drive_link;
  std::optional<double> cost;
  bool operator==(const JobResult&) const = default;
};
BOOST_DESCRIBE_STRUCT(JobResult, (), (new_files, report_id, drive_link, cost))

struct Summary {
  std::optional<std::vector<std::string>> done;
  std::optional<std::vector<std::string>> changed;
  std::optional<std::vector<std::string>> check;
  bool operator==(const Summary&) const = default;
};
BOOST_DESCRIBE_STRUCT(Summary, (), (done, changed, check))

// A unit of work on the Mac mini. "queued" and "running" are its two live states.
struct Job {
  std::string id;
  std::string kind;  // "sync" or "report"
  std::string status;
  std::optional<std::string> requested_by;
  std::optional<double> created;
  std::optional<double> started;
  std::optional<double> finished;
  std::optional<double> beat;
  std::optional<std::string> step;
  std::optional<std::vector<std::string>> steps;
  std::optional<Summary> summary;
  std::optional<JobResult> result;
  std::optional<JobArgs> args;
  bool active() const { return status == "queued" || status == "running"; }
  bool operator==(const Job&) const = default;
};
BOOST_DESCRIBE_STRUCT(Job, (),
                      (id, kind, status, requested_by, created, started, finished, beat, step,
                       steps, summary, result, args))

struct Report {
  std::string id;
  std::optional<std::string> job_id;
  std::vector<std::string> file_ids;
  std::optional<std::string> title;
  std::optional<Int> size;  // bytes
  std::optional<std::string> drive_link;
  std::optional<std::string> by;
  std::optional<double> at;
  bool operator==(const Report&) const = default;
};
BOOST_DESCRIBE_STRUCT(Report, (), (id, job_id, file_ids, title, size, drive_link, by, at))

struct Event {
  Int id = 0;
  double at = 0;
  std::optional<std::string> by;
  std::string kind;
  std::optional<std::string> file_id;
  std::optional<Int> page;  // 0-based
  std::optional<std::string> text;
  bool operator==(const Event&) const = default;
};
BOOST_DESCRIBE_STRUCT(Event, (), (id, at, by, kind, file_id, page, text))

// The whole board, as the poll brings it.
struct BoardState {
  Int rev = 0;
  Me me;
  std::vector<Person> users;
  SharedList<FileItem> files;
  std::optional<Job> sync;
  std::vector<Job> jobs;
  std::vector<Report> reports;
  std::vector<Event> events;  // newest first
  std::optional<std::vector<Guest>> guests;
  std::optional<std::vector<Guest>> approvers;
  bool operator==(const BoardState&) const = default;
};
BOOST_DESCRIBE_STRUCT(BoardState, (),
                      (rev, me, users, files, sync, jobs, reports, events, guests, approvers))

}  // namespace vellix
