#include "records/record_cases.hpp"
#include "records/sample.hpp"

namespace vellix::test {
namespace {

using enum Presence;

constexpr auto kMe = R"({"email":"ann@x.example","name":"Ann Lee"})";

// A board with one more member, put in its place in the wire order.
std::string boardWith(const std::string& key, const std::string& value) {
  std::string text = "{\"rev\":1";
  const auto member = [&](const std::string& name, const std::string& standard) {
    if (key == name || !standard.empty()) {
      text += ",\"" + name + "\":" + (key == name ? value : standard);
    }
  };
  member("me", kMe);
  member("users", "[]");
  member("files", "[]");
  member("sync", "");
  member("jobs", "[]");
  member("reports", "[]");
  member("events", "[]");
  member("guests", "");
  member("approvers", "");
  return text + "}";
}

}  // namespace

std::vector<RecordCase> boardCases() {
  return {
      {"BoardState",
       "",
       "@@",
       {{"rev", required, "41"},
        {"me", required, kMe},
        {"users", required, R"([{"email":"ann@x.example","name":"Ann Lee"}])"},
        {"files", required, R"([{"id":"f1","status":"new"},{"id":"f2","status":"reviewed"}])"},
        {"sync", optional, R"({"id":"s1","kind":"sync","status":"running"})"},
        {"jobs", required, R"([{"id":"j1","kind":"report","status":"done"}])"},
        {"reports", required, R"([{"id":"r1","file_ids":["f1"]}])"},
        {"events", required, R"([{"id":9,"at":1.5,"kind":"tag"}])"},
        {"guests", optional, R"([{"email":"gil@y.example"}])"},
        {"approvers", optional, R"([{"email":"kay@y.example","name":"Kay"}])"}},
       recode<BoardState>},
      {"Me",
       "me",
       boardWith("me", "@@"),
       {{"email", required, R"("ann@x.example")"}, {"name", required, R"("Ann Lee")"}},
       recode<BoardState>},
      {"Person",
       "users[0]",
       boardWith("users", "[@@]"),
       {{"email", required, R"("bo@x.example")"},
        {"name", required, R"("Bo Ray")"},
        {"photo", optional, R"("blob-1")"},
        {"color", optional, R"("#a0b1c2")"},
        {"tz", optional, R"("Europe/Vienna")"},
        {"last_seen", optional, "1700000000123.5"}},
       recode<BoardState>},
      {"Guest",
       "guests[0]",
       boardWith("guests", "[@@]"),
       {{"email", required, R"("gil@y.example")"}, {"name", optional, R"("Gil")"}},
       recode<BoardState>},
      {"Approver",
       "approvers[0]",
       boardWith("approvers", "[@@]"),
       {{"email", required, R"("kay@y.example")"}, {"name", optional, R"("Kay")"}},
       recode<BoardState>},
      {"Report",
       "reports[0]",
       boardWith("reports", "[@@]"),
       {{"id", required, R"("r1")"},
        {"job_id", optional, R"("j1")"},
        {"file_ids", required, R"(["f1","f2"])"},
        {"title", optional, R"("Week 7")"},
        {"size", optional, "5000000000"},
        {"drive_link", optional, R"("https://drive.example/r1")"},
        {"by", optional, R"("ann@x.example")"},
        {"at", optional, "1700000000001.5"}},
       recode<BoardState>},
      {"Event",
       "events[0]",
       boardWith("events", "[@@]"),
       {{"id", required, "77"},
        {"at", required, "1700000000002.5"},
        {"by", optional, R"("bo@x.example")"},
        {"kind", required, R"("tag")"},
        {"file_id", optional, R"("f1")"},
        {"page", optional, "3"},
        {"text", optional, R"("Bo tagged you")"}},
       recode<BoardState>},
      {"Sample",
       "",
       "@@",
       {{"board", required, boardWith("files", R"([{"id":"f1","status":"new"}])")},
        {"details", required, "{}"}},
       recode<Sample>},
  };
}

}  // namespace vellix::test
