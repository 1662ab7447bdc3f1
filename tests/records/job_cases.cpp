#include "records/record_cases.hpp"

namespace vellix::test {

using enum Presence;

std::vector<RecordCase> jobCases() {
  const auto jobWith = [](const std::string& member) {
    return R"({"id":"j1","kind":"report","status":"done",)" + member + "}";
  };
  const Fields job = {{"id", required, R"("j1")"},
                      {"kind", required, R"("report")"},
                      {"status", required, R"("running")"},
                      {"requested_by", optional, R"("ann@x.example")"},
                      {"created", optional, "1.5"},
                      {"started", optional, "2.5"},
                      {"finished", optional, "3.5"},
                      {"beat", optional, "4.5"},
                      {"step", optional, R"("Comparing")"},
                      {"steps", optional, R"(["Reading","Comparing"])"},
                      {"summary", optional, R"({"done":["a"]})"},
                      {"result", optional, R"({"new_files":3})"},
                      {"args", optional, R"({"file_ids":["f1"]})"}};
  return {
      {"Job", "", "@@", job, recode<Job>},
      {"JobArgs",
       "args",
       jobWith(R"("args":@@)"),
       {{"file_ids", optional, R"(["f1","f2"])"}},
       recode<Job>},
      {"JobResult",
       "result",
       jobWith(R"("result":@@)"),
       {{"new_files", optional, "3"},
        {"report_id", optional, R"("r1")"},
        {"drive_link", optional, R"("https://drive.example/r1")"},
        {"cost", optional, "0.125"}},
       recode<Job>},
      {"Summary",
       "summary",
       jobWith(R"("summary":@@)"),
       {{"done", optional, R"(["a","b"])"},
        {"changed", optional, R"(["c"])"},
        {"check", optional, R"(["d"])"}},
       recode<Job>},
  };
}

}  // namespace vellix::test
