// Reads off a shelf what `State::keep` put there. What cannot be read is told in a sentence.
#pragma once

#include "state_kept.hpp"
#include "ticket.hpp"

namespace vellix::demo {

class KeptReading {
 public:
  explicit KeptReading(const Shelf& shelf) : shelf_(shelf) {}

  // Of the records that `decode` has.
  template <class T>
  std::expected<T, std::string> record(const std::string& key) const {
    const std::string* text = shelf_.find(key);
    if (text == nullptr) return std::unexpected(unreadable(key, "it is missing"));
    auto value = decode<T>(*text);
    if (!value)
      return std::unexpected(unreadable(key, value.error().where + " " + value.error().why));
    return *std::move(value);
  }
  // Hands over every record under a prefix.
  template <class T>
  Kept each(const std::string& prefix, const auto& take) const {
    for (const std::string& key : shelf_.keysUnder(prefix)) {
      auto value = record<T>(key);
      if (!value) return std::unexpected(value.error());
      take(key.substr(prefix.size()), *std::move(value));
    }
    return {};
  }
  // Lays what was done over a ticket of the demo's own, or fills in a blank one.
  Kept ticket(const std::string& id, Ticket& ticket) const;

  static std::string unreadable(const std::string& key, const std::string& why) {
    return "What was kept cannot be read: " + key + ", " + why + ". It was left as it is.";
  }

 private:
  Kept version(const std::string& id, TicketVersion& version) const;

  const Shelf& shelf_;
};

}  // namespace vellix::demo
