#include "records/record_cases.hpp"

namespace vellix::test {

using enum Presence;

namespace {

std::string ticketWith(const std::string& member) {
  return R"({"id":"f1",)" + member + R"(,"status":"new"})";
}

// The members of a ticket that come after its status.
std::string ticketThen(const std::string& member) {
  return R"({"id":"f1","status":"new",)" + member + "}";
}

Fields ticketFields() {
  return {{"id", required, R"("f1")"},
          {"key", optional, R"("K-1")"},
          {"po", optional, R"("PO-22")"},
          {"title", optional, R"("The Tide")"},
          {"component", optional, R"("Cover")"},
          {"supplier", optional, R"("Harbour Press")"},
          {"filename", optional, R"("tide_cover.pdf")"},
          {"kind", optional, R"("proof")"},
          {"sender", optional, R"("sam@press.example")"},
          {"received", optional, "1700000000003.5"},
          {"page_count", optional, "12"},
          {"links", optional, R"({"gmail":"g"})"},
          {"refs", optional, R"([{"role":"submitted"}])"},
          {"summary", optional, R"("Two pages differ.")"},
          {"counts", optional, R"({"high":2})"},
          {"status", required, R"("in_review")"},
          {"status_by", optional, R"("ann@x.example")"},
          {"status_at", optional, "1700000000004.5"},
          {"created", optional, "1700000000005.5"},
          {"rev", optional, "8"},
          {"thumb", optional, R"("blob-t")"},
          {"tally", optional, R"({"open":4})"},
          {"pages", optional, R"([{"i":0},{"i":1}])"},
          {"track", optional, R"("reprint")"},
          {"assignee", optional, R"("bo@x.example")"},
          {"assigned_by", optional, R"("cy@x.example")"},
          {"due", optional, "1700000000006.5"},
          {"due_by", optional, R"("dee@x.example")"},
          {"urgent", optional, "true"},
          {"deadline", optional, "1700000000007.5"},
          {"share", optional, R"({"enabled":true})"},
          {"version", optional, "3"},
          {"approval", optional, R"("sent")"},
          {"approval_by", optional, R"("eve@x.example")"},
          {"approval_at", optional, "1700000000008.5"},
          {"approvers", optional, R"(["kay@y.example","lou@y.example"])"}};
}

Fields refFields() {
  return {{"role", required, R"("submitted")"},
          {"name", optional, R"("tide_v1.pdf")"},
          {"link", optional, R"("https://drive.example/ref")"},
          {"page_count", optional, "13"},
          {"matched", optional, "11"},
          {"note", optional, R"("one page short")"}};
}

Fields countsFields() {
  return {{"pages", optional, "12"}, {"high", optional, "1"},     {"medium", optional, "2"},
          {"low", optional, "3"},    {"expected", optional, "4"}, {"shown", optional, "5"}};
}

Fields pageFields() {
  return {{"i", required, "6"},
          {"label", optional, R"("vii")"},
          {"w", optional, "431.5"},
          {"h", optional, "612.25"},
          {"img", optional, R"("blob-p")"},
          {"thumb", optional, R"("blob-q")"},
          {"px", optional, "[1500.5,2000.25]"},
          {"refs", optional, R"({"submitted":{"i":5},"supplier":{}})"},
          {"ocr", optional, "false"}};
}

Fields refPageFields() {
  return {{"i", optional, "5"},
          {"label", optional, R"("vi")"},
          {"img", optional, R"("blob-r")"},
          {"px", optional, "[800.5,1200.5]"},
          {"score", optional, "0.875"},
          {"how", optional, R"("text")"}};
}

Fields shareFields() {
  return {{"enabled", required, "true"},
          {"access", optional, R"("comment")"},
          {"url", optional, R"("https://share.example/1")"},
          {"embed_url", optional, R"("https://share.example/e/1")"},
          {"by", optional, R"("ann@x.example")"},
          {"at", optional, "1700000000009.5"}};
}

}  // namespace

std::vector<RecordCase> ticketCases() {
  const auto board = [](const std::string& files) {
    return R"({"rev":1,"me":{"email":"a","name":"b"},"users":[],"files":)" + files +
           R"(,"jobs":[],"reports":[],"events":[]})";
  };
  return {
      {"FileItem", "", "@@", ticketFields(), recode<FileItem>},
      {"FileItemOfABoard", "files[1]", board(R"([{"id":"f0","status":"new"},@@])"), ticketFields(),
       recode<BoardState>},
      {"Links",
       "links",
       ticketWith(R"("links":@@)"),
       {{"gmail", optional, R"("g")"},
        {"drive", optional, R"("d")"},
        {"drive_folder", optional, R"("f")"},
        {"indd", optional, R"("i")"},
        {"indd_name", optional, R"("n")"}},
       recode<FileItem>},
      {"Ref", "refs[0]", ticketWith(R"("refs":[@@])"), refFields(), recode<FileItem>},
      {"Counts", "counts", ticketWith(R"("counts":@@)"), countsFields(), recode<FileItem>},
      {"Tally",
       "tally",
       ticketThen(R"("tally":@@)"),
       {{"open", optional, "6"}, {"issues", optional, "7"}, {"total", optional, "8"}},
       recode<FileItem>},
      {"Page", "pages[0]", ticketThen(R"("pages":[@@])"), pageFields(), recode<FileItem>},
      {"RefPage", "pages[1].refs.supplier",
       ticketThen(R"("pages":[{"i":0},{"i":1,"refs":{"supplier":@@}}])"), refPageFields(),
       recode<FileItem>},
      {"ShareInfo", "share", ticketThen(R"("share":@@)"), shareFields(), recode<FileItem>},
  };
}

}  // namespace vellix::test
