#include "records/record_cases.hpp"

namespace vellix::test {

using enum Presence;

namespace {

Fields personStatsFields() {
  return {{"reviewed", required, "101"},
          {"reviewed_week", required, "7"},
          {"on_time", required, "90"},
          {"on_time_rate", optional, "89"},
          {"avg_hours", optional, "5.25"},
          {"issues", required, "33"},
          {"fine", required, "44"},
          {"by_kind", required, R"({"barcode":2,"text":31})"},
          {"notes", required, "55"},
          {"streak", required, "6"},
          {"weekly", required, R"([{"start":1.5,"count":2},{"start":2.5,"count":5}])"},
          {"open", required, "8"},
          {"overdue", required, "1"},
          {"reprints", required, "3"},
          {"new_titles", required, "4"},
          {"mentions", required, R"([{"file_id":"f1","text":"t","by":"b","at":3.5}])"}};
}

Fields mentionFields() {
  return {{"file_id", required, R"("f1")"},
          {"page", optional, "9"},
          {"text", required, R"("Ann, look")"},
          {"by", required, R"("bo@x.example")"},
          {"at", required, "1700000000018.5"}};
}

std::string statsOfOne(const std::string& person) {
  return R"({"at":1.5,"users":{"ann@x.example":)" + person + "}}";
}

}  // namespace

std::vector<RecordCase> statsCases() {
  const auto person = [](const std::string& key, const std::string& value) {
    return statsOfOne(objectOf(with(requiredOf(personStatsFields()), key, value)));
  };
  return {
      {"Stats",
       "",
       "@@",
       {{"at", required, "1700000000019.5"}, {"users", required, "{}"}},
       recode<Stats>},
      {"PersonStats", "users.ann@x.example", statsOfOne("@@"), personStatsFields(), recode<Stats>},
      {"WeekCount",
       "users.ann@x.example.weekly[0]",
       person("weekly", "[@@]"),
       {{"start", required, "1700000000020.5"}, {"count", required, "12"}},
       recode<Stats>},
      {"Mention", "users.ann@x.example.mentions[0]", person("mentions", "[@@]"), mentionFields(),
       recode<Stats>},
      {"VersionInfo",
       "",
       "@@",
       {{"version", required, R"("1.4")"},
        {"build", required, "140"},
        {"url", required, R"("https://x.example/p.zip")"},
        {"notes", optional, R"("Faster")"},
        {"min_build", optional, "120"}},
       recode<VersionInfo>},
      {"SignInAnswer",
       "",
       "@@",
       {{"token", required, R"("secret")"},
        {"me", required, R"({"email":"ann@x.example","name":"Ann Lee"})"}},
       recode<SignInAnswer>},
  };
}

}  // namespace vellix::test
