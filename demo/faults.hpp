// Faults that tests ask for. Not locked.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "records/json.hpp"

namespace vellix::demo {

inline constexpr std::size_t kDrip = 65'536;

struct Fault {
  std::string method;  // empty for any
  std::string path;    // what the request's path begins with
  Int times = 1;
  std::optional<int> status;
  std::optional<std::string> body;
  Int delayMs = 0;
  bool held = false;  // wait until other faults are asked for
  bool cut = false;
  bool garbage = false;
  bool after = false;                     // let the request have its effect first
  std::optional<std::size_t> afterBytes;  // once so much of the body has come, the rest unread
  Int dripMs = 0;                         // wait before each kDrip of the body, also of an answer's
  std::optional<std::size_t> bytes;       // answer with a made-up PDF of so many
  std::optional<std::size_t> cutAt;       // break the answer off behind so many bytes of its body
};

class Faults {
 public:
  // Replaces all faults by a JSON list of them; a text that says what is wrong with it.
  std::optional<std::string> replace(const Json& list);
  // The fault for a request, counted as used; none when there is none.
  std::optional<Fault> take(const std::string& method, const std::string& path);
  Int replaced() const { return replaced_; }  // how often

 private:
  std::vector<Fault> faults_;
  Int replaced_ = 0;
};

}  // namespace vellix::demo
