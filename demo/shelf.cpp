#include "shelf.hpp"

#include <fcntl.h>
#include <sqlite3.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <filesystem>

#include "shelf_files.hpp"

namespace vellix::demo {
namespace {

constexpr std::uint32_t kApplication = 0x56656c78;  // "Velx"
constexpr std::uint32_t kSchema = 1;
constexpr const char* kDatabase = "/board.db";

std::unexpected<std::string> failed(std::string text) { return std::unexpected(std::move(text)); }

struct Statement {
  sqlite3_stmt* handle = nullptr;
  Statement(sqlite3* database, const char* sql) {
    sqlite3_prepare_v2(database, sql, -1, &handle, nullptr);
  }
  ~Statement() { sqlite3_finalize(handle); }
  Statement(const Statement&) = delete;
  Statement& operator=(const Statement&) = delete;

  void bind(int place, const std::string& text) const {
    sqlite3_bind_text(handle, place, text.data(), static_cast<int>(text.size()), SQLITE_STATIC);
  }
  std::string text(int column) const {
    const auto* bytes = reinterpret_cast<const char*>(sqlite3_column_text(handle, column));
    const auto size = static_cast<std::size_t>(sqlite3_column_bytes(handle, column));
    return bytes == nullptr ? std::string() : std::string(bytes, size);
  }
};

// Read from the file's head by itself: SQLite may write to a file that it only looks at.
Kept worthOpening(const std::string& path) {
  const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (file < 0 && errno == ENOENT) return {};
  if (file < 0) return failed(path + " cannot be read: " + std::strerror(errno) + ".");
  std::array<unsigned char, 100> head{};
  const ssize_t got = read(file, head.data(), head.size());
  close(file);
  if (got == 0) return {};  // made, and ended before anything was written
  const auto number = [&](std::size_t at) {
    return std::uint32_t{head[at]} << 24U | std::uint32_t{head[at + 1]} << 16U |
           std::uint32_t{head[at + 2]} << 8U | head[at + 3];
  };
  if (got < std::ssize(head) || std::memcmp(head.data(), "SQLite format 3", 16) != 0) {
    return failed(path + " is damaged, or no database at all. It was left as it is.");
  }
  if (number(68) != kApplication) {
    return failed(path + " belongs to another program. It was left as it is.");
  }
  if (number(60) > kSchema) {
    return failed(path + " was written by a newer version of the service. It was left as it is.");
  }
  return {};
}

}  // namespace

std::expected<std::unique_ptr<Shelf>, std::string> Shelf::open(const std::string& folder) {
  std::error_code wrong;
  const bool there = std::filesystem::is_directory(folder, wrong);
  std::filesystem::create_directories(std::filesystem::path(folder).parent_path(), wrong);
  if (!there && mkdir(folder.c_str(), 0700) != 0) {
    return failed("The folder " + folder + " cannot be made: " + std::strerror(errno) + ".");
  }
  const int lock = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (lock < 0) {
    return failed("The folder " + folder + " cannot be opened: " + std::strerror(errno) + ".");
  }
  std::unique_ptr<Shelf> shelf(new Shelf(folder, lock));
  // The kernel lets go of it however the service ends.
  if (flock(lock, LOCK_EX | LOCK_NB) != 0) {
    return failed("Another service keeps its board in " + folder + ". End that one first.");
  }
  if (access(folder.c_str(), W_OK) != 0) {
    return failed("Nothing can be written into " + folder + ": " + std::strerror(errno) + ".");
  }
  if (auto opened = shelf->openDatabase(); !opened) return failed(opened.error());
  return shelf;
}

Shelf::~Shelf() {
  sqlite3_close_v2(database_);
  if (lock_ >= 0) close(lock_);
}

std::string Shelf::trouble() const {
  const int code = sqlite3_errcode(database_);
  const std::string path = folder_ + kDatabase;
  if (code == SQLITE_CORRUPT || code == SQLITE_NOTADB) {
    return path + " is damaged. It was left as it is.";
  }
  if (code == SQLITE_FULL) return "The disk that holds " + folder_ + " is full.";
  return path + " cannot be written: " + sqlite3_errmsg(database_) + ".";
}

Kept Shelf::run(const char* sql) const {
  if (sqlite3_exec(database_, sql, nullptr, nullptr, nullptr) == SQLITE_OK) return {};
  return failed(trouble());
}

Kept Shelf::openDatabase() {
  const std::string path = folder_ + kDatabase;
  if (auto worth = worthOpening(path); !worth) return worth;
  const int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOFOLLOW;
  const mode_t others = umask(0077);
  const bool opened = sqlite3_open_v2(path.c_str(), &database_, flags, nullptr) == SQLITE_OK;
  umask(others);
  if (!opened) return failed(trouble());
  // Until it is known to be whole nothing moves into it, not even from its own log.
  sqlite3_db_config(database_, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
  if (auto set = run("PRAGMA locking_mode=EXCLUSIVE; PRAGMA temp_store=MEMORY;"); !set) return set;
  {
    const Statement whole(database_, "PRAGMA quick_check(1)");
    if (sqlite3_step(whole.handle) != SQLITE_ROW) return failed(trouble());
    if (whole.text(0) != "ok") return failed(path + " is damaged. It was left as it is.");
    const Statement tables(database_, "SELECT count(*) FROM sqlite_schema");
    if (sqlite3_step(tables.handle) != SQLITE_ROW) return failed(trouble());
    new_ = sqlite3_column_int(tables.handle, 0) == 0;
  }
  if (new_) {
    if (auto made = makeTable(); !made) return made;
  }
  // A log that is written ahead and synced once is one wait for the disk for each action.
  if (auto set = run("PRAGMA journal_mode=WAL; PRAGMA synchronous=FULL;"); !set) return set;
  sqlite3_db_config(database_, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 0, nullptr);
  return readAll();
}

Kept Shelf::makeTable() {
  const std::string sql =
      "BEGIN IMMEDIATE; CREATE TABLE kept (key TEXT PRIMARY KEY, text TEXT NOT NULL) "
      "WITHOUT ROWID; PRAGMA application_id=" +
      std::to_string(kApplication) + "; PRAGMA user_version=" + std::to_string(kSchema) +
      "; COMMIT;";
  return run(sql.c_str());
}

Kept Shelf::readAll() {
  const Statement all(database_, "SELECT key, text FROM kept ORDER BY key");
  int step = 0;
  while ((step = sqlite3_step(all.handle)) == SQLITE_ROW) {
    texts_.emplace_hint(texts_.end(), all.text(0), all.text(1));
  }
  if (step != SQLITE_DONE) return failed(trouble());
  return {};
}

const std::string* Shelf::find(const std::string& key) const {
  const auto found = texts_.find(key);
  return found == texts_.end() ? nullptr : &found->second;
}

std::vector<std::string> Shelf::keysUnder(const std::string& prefix) const {
  std::vector<std::string> keys;
  for (auto at = texts_.lower_bound(prefix); at != texts_.end() && at->first.starts_with(prefix);
       ++at) {
    keys.push_back(at->first);
  }
  return keys;
}

void Shelf::put(const std::string& key, std::string text) {
  const auto [at, added] = texts_.try_emplace(key);
  if (!added && at->second == text) return;
  at->second = std::move(text);
  changed_.insert(key);
}

void Shelf::drop(const std::string& key) {
  if (texts_.erase(key) > 0) changed_.insert(key);
}

Kept Shelf::keep() {
  if (changed_.empty()) return {};
  if (auto begun = run("BEGIN IMMEDIATE"); !begun) return begun;
  const auto undone = [&] {
    std::string text = trouble();
    sqlite3_exec(database_, "ROLLBACK", nullptr, nullptr, nullptr);
    return failed(std::move(text));
  };
  {
    const Statement put(database_, "INSERT OR REPLACE INTO kept VALUES (?1, ?2)");
    const Statement drop(database_, "DELETE FROM kept WHERE key = ?1");
    for (const std::string& key : changed_) {
      const std::string* text = find(key);
      const Statement& statement = text == nullptr ? drop : put;
      statement.bind(1, key);
      if (text != nullptr) statement.bind(2, *text);
      if (sqlite3_step(statement.handle) != SQLITE_DONE) return undone();
      sqlite3_reset(statement.handle);
    }
  }
  if (sqlite3_exec(database_, "COMMIT", nullptr, nullptr, nullptr) != SQLITE_OK) return undone();
  changed_.clear();
  return {};
}

Kept Shelf::keepFile(const std::string& name, std::string_view bytes) const {
  return writeWhole(folder_ + "/files", name, bytes);
}

std::optional<std::string> Shelf::fileOf(const std::string& name) const {
  return allOfFile(pathOf(name));
}

std::string Shelf::pathOf(const std::string& name) const { return folder_ + "/files/" + name; }

void Shelf::removeFilesBut(const std::set<std::string>& names) const {
  removeOwnBut(folder_ + "/files", names);
}

}  // namespace vellix::demo
