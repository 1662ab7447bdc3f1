// The service's records: plain values, one field per JSON key, named exactly as on the wire.
// Every time value is a double of milliseconds since 1 January 1970 UTC.
// One description per record (Boost.Describe) serves decoding, encoding, hashing and the views.
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
  std::vector<FileItem> files;
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

// One automated check result on a page. Boxes are x, y, w, h as fractions of the page.
struct Finding {
  std::string id;
  std::string file_id;
  Int page = 0;
  std::string against;
  std::string kind;
  std::string severity;
  std::string title;
  std::optional<std::string> detail;
  std::optional<std::string> before;
  std::optional<std::string> after;
  std::optional<std::vector<double>> box;
  std::optional<std::vector<double>> ref_box;
  std::optional<std::vector<std::vector<double>>> boxes;
  std::string state;
  std::optional<std::string> state_by;
  std::optional<double> state_at;
  std::optional<Int> ord;
  bool operator==(const Finding&) const = default;
};
BOOST_DESCRIBE_STRUCT(Finding, (),
                      (id, file_id, page, against, kind, severity, title, detail, before, after,
                       box, ref_box, boxes, state, state_by, state_at, ord))

// One human note. Its place and size are fractions of the page.
struct Note {
  std::string id;
  std::string file_id;
  std::optional<Int> page;
  std::optional<double> x;
  std::optional<double> y;
  std::optional<std::string> finding_id;
  std::string text;
  std::string by;
  double at = 0;
  std::optional<double> edited;
  std::optional<Int> resolved;  // non-zero when resolved; a number on the wire
  std::optional<std::string> resolved_by;
  std::optional<double> w;
  std::optional<double> h;
  std::optional<std::string> side;
  std::optional<std::vector<std::string>> tags;
  bool isResolved() const { return resolved.value_or(0) != 0; }
  bool operator==(const Note&) const = default;
};
BOOST_DESCRIBE_STRUCT(Note, (),
                      (id, file_id, page, x, y, finding_id, text, by, at, edited, resolved,
                       resolved_by, w, h, side, tags))

// Whether a note of this width and height, in fractions of the page, has an area or is a point.
bool isArea(double w, double h);

// A box just drawn and waiting for its text. Local only: never encoded.
struct DraftNote {
  std::string fileID;
  Int page = 0;
  std::string side;
  double x = 0;
  double y = 0;
  double w = 0;
  double h = 0;
  std::optional<std::string> findingID;
  bool operator==(const DraftNote&) const = default;
};

struct Version {
  Int n = 0;
  std::string kind;
  std::optional<std::string> filename;
  std::optional<std::string> note;
  std::optional<std::string> by;
  std::optional<std::string> from;
  std::optional<double> at;
  std::optional<Int> size;  // bytes
  std::optional<Int> page_count;
  std::optional<std::string> summary;
  std::string status;
  std::optional<Int> notes;
  bool operator==(const Version&) const = default;
};
BOOST_DESCRIBE_STRUCT(Version, (),
                      (n, kind, filename, note, by, from, at, size, page_count, summary, status,
                       notes))

struct Origin {
  std::optional<std::string> supplier;
  std::optional<std::string> sender;
  std::optional<double> received;
  std::optional<std::string> filename;
  std::optional<std::vector<Ref>> refs;
  std::optional<std::string> summary;
  std::optional<Links> links;
  bool operator==(const Origin&) const = default;
};
BOOST_DESCRIBE_STRUCT(Origin, (), (supplier, sender, received, filename, refs, summary, links))

struct Answer {
  std::string kind;
  std::optional<std::string> note;
  std::optional<double> at;
  bool operator==(const Answer&) const = default;
};
BOOST_DESCRIBE_STRUCT(Answer, (), (kind, note, at))

struct Approval {
  std::optional<std::string> state;
  std::optional<std::string> by;
  std::optional<double> at;
  std::optional<Int> version;
  std::vector<std::string> asked;
  std::optional<std::string> requested_by;
  std::optional<double> requested_at;
  std::optional<std::string> note;
  std::map<std::string, Answer> answers;  // by e-mail
  bool operator==(const Approval&) const = default;
};
BOOST_DESCRIBE_STRUCT(Approval, (),
                      (state, by, at, version, asked, requested_by, requested_at, note, answers))

struct FileDetail {
  FileItem file;  // with its pages
  std::vector<Finding> findings;
  std::vector<Note> comments;
  std::optional<Int> version;
  std::optional<std::vector<Version>> versions;
  std::optional<Approval> approval;
  std::optional<std::vector<Event>> history;
  std::optional<Origin> origin;
  Int versionNumber() const { return version.value_or(file.versionNumber()); }
  bool operator==(const FileDetail&) const = default;
};
BOOST_DESCRIBE_STRUCT(FileDetail, (),
                      (file, findings, comments, version, versions, approval, history, origin))

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
