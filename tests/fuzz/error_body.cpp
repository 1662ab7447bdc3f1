// The body of a refusal: its sentence is told, or the standing one.
#include "fuzz/desk.hpp"

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t count) {
  using namespace vellix;
  const std::string body{textOf(bytes, count)};
  FuzzDesk desk;
  std::optional<API::Result<HttpResponse>> outcome;
  desk.tasks.start(deliver(desk.api.send({.path = "api/state"}), &outcome));
  desk.http.answer(0, answerOf(400, body));
  desk.time.run();
  require(outcome && !*outcome, "a refusal is a failure");
  const Failure& failure = outcome->error();
  require(failure.kind == Failure::Kind::server, "it is the service's");
  const bool standing = failure.text == "The server didn't take that. Try again in a moment.";
  const auto json = decodeJson(body);
  const Json* error = json ? json->find("error") : nullptr;
  const bool own = error && error->text() && *error->text() == failure.text;
  require(standing || own, "it is told in the service's words or in the standing ones");
  require(encode(failure.text).has_value(), "its words are text");
  return 0;
}
