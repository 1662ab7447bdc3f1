#include "records/record_cases.hpp"

namespace vellix::test {

using enum Presence;

namespace {

Fields detailFields() {
  return {{"file", required, R"({"id":"f1","status":"new"})"},
          {"findings", required, R"([])"},
          {"comments", required, R"([{"id":"n1","file_id":"f1","text":"t","by":"b","at":1.5}])"},
          {"version", optional, "2"},
          {"versions", optional, R"([{"n":1,"kind":"proof","status":"done"}])"},
          {"approval", optional, R"({"asked":[],"answers":{}})"},
          {"history", optional, R"([{"id":4,"at":2.5,"kind":"status"}])"},
          {"origin", optional, R"({"sender":"sam@press.example"})"}};
}

Fields findingFields() {
  return {{"id", required, R"("d1")"},
          {"file_id", required, R"("f1")"},
          {"page", required, "4"},
          {"against", required, R"("supplier")"},
          {"kind", required, R"("text")"},
          {"severity", required, R"("high")"},
          {"title", required, R"("A word differs")"},
          {"detail", optional, R"("tide is tied")"},
          {"before", optional, R"("tide")"},
          {"after", optional, R"("tied")"},
          {"box", optional, "[0.125,0.25,0.5,0.0625]"},
          {"ref_box", optional, "[0.25,0.5,0.125,0.03125]"},
          {"boxes", optional, "[[0.5,0.5,0.25,0.25],[]]"},
          {"state", required, R"("issue")"},
          {"state_by", optional, R"("ann@x.example")"},
          {"state_at", optional, "1700000000010.5"},
          {"ord", optional, "17"}};
}

Fields noteFields() {
  return {{"id", required, R"("n1")"},
          {"file_id", required, R"("f1")"},
          {"page", optional, "2"},
          {"x", optional, "0.25"},
          {"y", optional, "0.75"},
          {"finding_id", optional, R"("d1")"},
          {"text", required, R"("Please look")"},
          {"by", required, R"("bo@x.example")"},
          {"at", required, "1700000000011.5"},
          {"edited", optional, "1700000000012.5"},
          {"resolved", optional, "1"},
          {"resolved_by", optional, R"("ann@x.example")"},
          {"w", optional, "0.125"},
          {"h", optional, "0.0625"},
          {"side", optional, R"("submitted")"},
          {"tags", optional, R"(["ann@x.example","cy@x.example"])"}};
}

Fields versionFields() {
  return {{"n", required, "2"},
          {"kind", required, R"("revision")"},
          {"filename", optional, R"("tide_v2.pdf")"},
          {"note", optional, R"("New spine")"},
          {"by", optional, R"("bo@x.example")"},
          {"from", optional, R"("sam@press.example")"},
          {"at", optional, "1700000000013.5"},
          {"size", optional, "1048576"},
          {"page_count", optional, "14"},
          {"summary", optional, R"("All well")"},
          {"status", required, R"("checked")"},
          {"notes", optional, "6"}};
}

Fields approvalFields() {
  return {{"state", optional, R"("sent")"},
          {"by", optional, R"("kay@y.example")"},
          {"at", optional, "1700000000014.5"},
          {"version", optional, "2"},
          {"asked", required, R"(["kay@y.example","lou@y.example"])"},
          {"requested_by", optional, R"("ann@x.example")"},
          {"requested_at", optional, "1700000000015.5"},
          {"note", optional, R"("By Friday")"},
          {"answers", required, R"({"kay@y.example":{"kind":"approved"}})"}};
}

Fields originFields() {
  return {{"supplier", optional, R"("Harbour Press")"},
          {"sender", optional, R"("sam@press.example")"},
          {"received", optional, "1700000000016.5"},
          {"filename", optional, R"("tide_v1.pdf")"},
          {"refs", optional, R"([{"role":"supplier"}])"},
          {"summary", optional, R"("As sent")"},
          {"links", optional, R"({"drive":"d"})"}};
}

std::string detailWith(const std::string& findings, const std::string& notes,
                       const std::string& more = "") {
  return R"({"file":{"id":"f1","status":"new"},"findings":)" + findings + R"(,"comments":)" +
         notes + more + "}";
}

}  // namespace

std::vector<RecordCase> detailCases() {
  const auto detailThen = [](const std::string& member) {
    return detailWith("[]", "[]", "," + member);
  };
  const Fields event = {{"id", required, "4"},           {"at", required, "2.5"},
                        {"by", optional, R"("b")"},      {"kind", required, R"("status")"},
                        {"file_id", optional, R"("f")"}, {"page", optional, "0"},
                        {"text", optional, R"("t")"}};
  const Fields answer = {{"kind", required, R"("changes")"},
                         {"note", optional, R"("Spine is off")"},
                         {"at", optional, "1700000000017.5"}};
  return {
      {"FileDetail", "", "@@", detailFields(), recode<FileDetail>},
      {"Finding", "findings[0]", detailWith("[@@]", "[]"), findingFields(), recode<FileDetail>},
      {"Note", "comments[0]", detailWith("[]", "[@@]"), noteFields(), recode<FileDetail>},
      {"Version", "versions[0]", detailThen(R"("versions":[@@])"), versionFields(),
       recode<FileDetail>},
      {"Approval", "approval", detailThen(R"("approval":@@)"), approvalFields(),
       recode<FileDetail>},
      {"Answer", "approval.answers.kay",
       detailThen(R"("approval":{"asked":[],"answers":{"kay":@@}})"), answer, recode<FileDetail>},
      {"EventOfAHistory", "history[0]", detailThen(R"("history":[@@])"), event, recode<FileDetail>},
      {"Origin", "origin", detailThen(R"("origin":@@)"), originFields(), recode<FileDetail>},
  };
}

}  // namespace vellix::test
