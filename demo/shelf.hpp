// What outlasts the service: texts by key in a database, and files beside it, in one folder that
// one service holds at a time. Failures are sentences for people. Not locked.
#pragma once

#include <expected>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

struct sqlite3;

namespace vellix::demo {

using Kept = std::expected<void, std::string>;

class Shelf {
 public:
  // Makes the folder, for its owner alone, and the database in it where there is none. Never
  // touches a database that is damaged, of another program or of a newer service.
  static std::expected<std::unique_ptr<Shelf>, std::string> open(const std::string& folder);
  ~Shelf();
  Shelf(const Shelf&) = delete;
  Shelf& operator=(const Shelf&) = delete;

  bool isNew() const { return new_; }
  // What was put last; null for a key that there is not.
  const std::string* find(const std::string& key) const;
  // In the order of the keys, which is that of their bytes.
  std::vector<std::string> keysUnder(const std::string& prefix) const;

  // These cost a comparison for what stays as it is; they last from the next `keep` on.
  void put(const std::string& key, std::string text);
  void drop(const std::string& key);
  // Everything that was put and dropped since, all or nothing. After a failure it is tried again by
  // the next one. Lasts a loss of power too.
  Kept keep();

  // Files lie flat under names such as "report-3.pdf". Written whole or not at all.
  Kept keepFile(const std::string& name, std::string_view bytes) const;
  std::optional<std::string> fileOf(const std::string& name) const;
  std::string pathOf(const std::string& name) const;
  // Files of the shelf's own that nobody needs any more, such as one whose action was never
  // answered.
  void removeFilesBut(const std::set<std::string>& names) const;

 private:
  Shelf(std::string folder, int lock) : folder_(std::move(folder)), lock_(lock) {}
  Kept openDatabase();
  Kept makeTable();
  Kept readAll();
  Kept run(const char* sql) const;
  std::string trouble() const;

  std::string folder_;
  int lock_ = -1;
  sqlite3* database_ = nullptr;
  bool new_ = false;
  std::map<std::string, std::string> texts_;
  std::set<std::string> changed_;  // keys
};

}  // namespace vellix::demo
