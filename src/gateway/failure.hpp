// How an operation of the client fails. Values, never exceptions.
#pragma once

#include <optional>
#include <string>

namespace vellix {

struct Failure {
  enum class Kind {
    server,      // the service refused
    offline,     // the service could not be reached
    signedOut,   // the service does not know the token
    cancelled,   // the user called it off
    unreadable,  // an answer that does not decode
    unwritable,  // a body that cannot be put into JSON, or read to its end
  };
  Kind kind;
  std::string text;

  static Failure server(std::string text) { return {Kind::server, std::move(text)}; }
  static Failure offline(std::string text) { return {Kind::offline, std::move(text)}; }
  static Failure signedOut() { return {Kind::signedOut, "You're signed out. Sign in again."}; }
  static Failure cancelled() { return {Kind::cancelled, {}}; }
  static Failure unreadable(std::string why) { return {Kind::unreadable, std::move(why)}; }
  static Failure unwritable(std::string why) { return {Kind::unwritable, std::move(why)}; }

  // What the user is told. None for the kinds that have no words of their own: the caller has.
  std::optional<std::string> description() const {
    const bool told = kind == Kind::server || kind == Kind::offline || kind == Kind::signedOut;
    return told ? std::optional{text} : std::nullopt;
  }
  bool operator==(const Failure&) const = default;
};

}  // namespace vellix
