#include "options.hpp"

#include <QDateTime>
#include <QString>
#include <algorithm>
#include <charconv>
#include <filesystem>
#include <string_view>

namespace vellix::demo {

const char* const kUsage =
    "usage: vellix_demo_service [--port N] [--no-colleague] [--until-stdin-closes]\n"
    "                           [--hand-back] [--pace FACTOR] [--write-sample FOLDER]\n"
    "                           [--proof PDF [--sent PDF] [--previous PDF] [--fbc PDF]\n"
    "                            [--title TEXT] [--due DAY]]... [--state FOLDER] [--pages FOLDER]\n"
    "       vellix_demo_service --check PROOF REFERENCE\n"
    "  --port N               listen on this port of 127.0.0.1; 0, the default, picks a free one\n"
    "  --no-colleague         the other reviewer does nothing unless told to\n"
    "  --until-stdin-closes   end when standard input ends\n"
    "  --hand-back            the sign-in page does not send the browser to the program: its URL\n"
    "                         for that is printed as a line \"callback URL\"\n"
    "  --pace FACTOR          how long jobs, checks and approvers take; 1 is the usual\n"
    "  --write-sample FOLDER  write the board and its pictures there, and end\n"
    "  --proof PDF            a ticket of your own; the board holds these in the place of the\n"
    "                         demo's. What follows, up to the next --proof, belongs to it:\n"
    "    --sent PDF             what you sent to be printed\n"
    "    --previous PDF         the proof before this one\n"
    "    --fbc PDF              the FBC\n"
    "    --title TEXT           the ticket's title; else the name of the file\n"
    "    --due DAY              2026-12-01, or 2026-12-01T17:00; else two days from now\n"
    "  --state FOLDER         keep there what is decided, noted and uploaded\n"
    "  --pages FOLDER         keep pages that were drawn there\n"
    "  --check PROOF REFERENCE  print what differs as JSON, and end\n";

namespace {

bool numberOf(std::string_view text, auto& to) {
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), to);
  return error == std::errc() && end == text.data() + text.size() && !text.empty();
}

// A day ends in the evening, when work does.
std::optional<double> momentOf(std::string_view text) {
  const QString written = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
  const QDate day = QDate::fromString(written, Qt::ISODate);
  QDateTime moment(day, QTime(17, 0));
  if (written.contains(u'T')) moment = QDateTime::fromString(written, Qt::ISODate);
  if (!moment.isValid()) return std::nullopt;
  return static_cast<double>(moment.toMSecsSinceEpoch());
}

// None where the name is of no such option.
std::string* fileOf(GivenProof& proof, std::string_view name) {
  if (name == "--sent") return &proof.sent;
  if (name == "--previous") return &proof.previous;
  if (name == "--fbc") return &proof.fbc;
  if (name == "--title") return &proof.title;
  return nullptr;
}

// Of any later folder, and after any restart, the same file; without the slash behind a folder.
std::string wholePath(const std::string& path) {
  const auto whole = std::filesystem::absolute(path).lexically_normal();
  return (whole.has_filename() ? whole : whole.parent_path()).string();
}

std::unexpected<std::string> wrong(std::string text) { return std::unexpected(std::move(text)); }

}  // namespace

std::expected<Options, std::string> optionsOf(std::span<const char* const> arguments) {
  Options options;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const std::string name = arguments[i];
    if (name == "--no-colleague") {
      options.colleague = false;
      continue;
    }
    if (name == "--until-stdin-closes") {
      options.untilStdinCloses = true;
      continue;
    }
    if (name == "--hand-back") {
      options.handBack = true;
      continue;
    }
    // All others have a value.
    if (++i == arguments.size()) return wrong("");
    const std::string value = arguments[i];
    if (value.empty()) return wrong(name + " needs a value.");
    if (name == "--write-sample") {
      options.sampleFolder = value;
    } else if (name == "--state") {
      options.stateFolder = wholePath(value);
    } else if (name == "--pages") {
      options.pagesFolder = wholePath(value);
    } else if (name == "--port") {
      if (!numberOf(value, options.port) || options.port < 0 || options.port > 65535) {
        return wrong("--port is a number up to 65535.");
      }
    } else if (name == "--pace") {
      if (!numberOf(value, options.pace) || !(options.pace >= 0 && options.pace <= 1000)) {
        return wrong("--pace is a number up to 1000.");
      }
    } else if (name == "--check") {
      if (++i == arguments.size()) return wrong("--check needs two PDFs.");
      options.checkedProof = value;
      options.checkedAgainst = arguments[i];
    } else if (name == "--proof") {
      const std::string path = wholePath(value);
      if (std::ranges::find(options.proofs, path, &GivenProof::proof) != options.proofs.end()) {
        return wrong(path + " is given twice.");
      }
      options.proofs.push_back({.proof = path});
    } else if (name == "--due") {
      if (options.proofs.empty()) return wrong(name + " belongs behind a --proof.");
      options.proofs.back().due = momentOf(value);
      if (!options.proofs.back().due) {
        return wrong("--due is a day such as 2026-12-01, or with a time 2026-12-01T17:00.");
      }
    } else {
      GivenProof none;
      if (fileOf(none, name) == nullptr) return wrong("");
      if (options.proofs.empty()) return wrong(name + " belongs behind a --proof.");
      std::string& text = *fileOf(options.proofs.back(), name);
      if (!text.empty()) return wrong(name + " stands twice for one --proof.");
      text = name == "--title" ? value : wholePath(value);
    }
  }
  return options;
}

}  // namespace vellix::demo
