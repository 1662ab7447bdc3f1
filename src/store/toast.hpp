// A transient message. Two toasts are the same when they are the same one, whatever they say.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace vellix {

struct Toast {
  explicit Toast(std::string text) : text(std::move(text)) {}
  Toast(std::string text, std::string undoLabel, std::function<void()> undo)
      : text(std::move(text)), undoLabel(std::move(undoLabel)), undo(std::move(undo)) {}

  std::uint64_t id = next();  // unique in the process
  std::string text;
  std::optional<std::string> undoLabel;
  std::function<void()> undo;

  bool operator==(const Toast& other) const { return id == other.id; }

 private:
  static std::uint64_t next() {
    static std::uint64_t last = 0;
    return ++last;
  }
};

}  // namespace vellix
