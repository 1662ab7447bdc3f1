// What is known of one ticket beside what the board tells: findings, notes, versions, approval.
#pragma once

#include "records/board_records.hpp"

namespace vellix {

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

}  // namespace vellix
