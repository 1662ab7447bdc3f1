// Under which keys the state lies on its shelf, and how: mostly as the records of the contract.
#pragma once

#include <string>
#include <vector>

#include "records/json.hpp"
#include "shelf.hpp"

namespace vellix::demo {

// What belongs to no record.
struct KeptBoard {
  double opened = 0;  // what was planned for the demo's own books follows from it
  bool books = true;
  std::string address;
  Int starts = 0;
  Int rev = 0;
  Int next_event = 1;
  Int next_number = 1;
  std::vector<std::string> tickets;  // in their order
  std::vector<std::string> waiting;
  std::vector<std::string> uncounted;
};
BOOST_DESCRIBE_STRUCT(KeptBoard, (),
                      (opened, books, address, starts, rev, next_event, next_number, tickets,
                       waiting, uncounted))

// None without a shelf, on a new one, and on one whose board cannot be read, which `State::takeUp`
// tells.
std::optional<KeptBoard> boardKeptOn(const Shelf* shelf);

// What a version has beside its records. Paths with what is no plain text written as "%FF"; that of
// a file of the shelf's own is its name.
struct KeptFile {
  std::string path;
  std::string stamp;
  bool unchecked = false;
  std::string against;
};
BOOST_DESCRIBE_STRUCT(KeptFile, (), (path, stamp, unchecked, against))

inline constexpr const char* kBoardKey = "board";
inline constexpr const char* kPeopleKey = "people";
inline constexpr const char* kJobsKey = "jobs";
inline constexpr const char* kOldSyncsKey = "old syncs";
inline constexpr const char* kTokensKey = "tokens";
inline constexpr const char* kLinksKey = "links";
inline constexpr const char* kEvents = "events/";
inline constexpr const char* kLogs = "logs/";

// A long list is kept in parts of so many, and only those that changed are written.
inline constexpr std::size_t kPart = 50;

std::string partKey(const std::string& prefix, std::size_t part);
std::string ticketKey(const std::string& id);  // what is under it begins with it and a slash
std::string versionKey(const std::string& id, Int number);
std::string noteKey(const std::string& id, std::size_t place);

std::string reportFile(const std::string& reportId);
std::string newUploadFile();
std::string photoFile(const std::string& photoKey);

std::string escapedPath(const std::string& path);
std::string pathOfEscaped(const std::string& text);

}  // namespace vellix::demo
