// A demo service with somebody's own PDFs, made for one test.
#pragma once

#include <algorithm>

#include "kept_service.hpp"

namespace vellix::demo_tests {

inline WrittenPage saying(const std::vector<std::string>& lines) {
  WrittenPage page;
  double y = 700;
  for (const std::string& line : lines) {
    page.lines.push_back({.text = line, .y = y, .size = 14});
    y -= 20;
  }
  return page;
}

// With 200 words more than are read.
inline WrittenPage fullPage() {
  WrittenPage page{.width = 1200, .height = 1000};
  for (int line = 0; line <= 200; ++line) {
    std::string text;
    for (int word = 0; word < 200; ++word) text += "W ";
    page.lines.push_back({text, 20, 980 - 4.6 * line, 4});
  }
  return page;
}

inline const std::vector<std::string> kFirst = {
    "The harbour light had counted ships for eighty years", "and never once written down a name."};
inline const std::vector<std::string> kSecond = {
    "He climbed the stair twice to see whether the lamp", "had been turned, and found it burning."};
inline const std::vector<std::string> kThird = {
    "They are going to build it after all, she said at last,", "straight over the flats."};

class OwnService : public testing::Test {
 protected:
  std::string written(const std::string& name, const std::string& bytes) {
    const std::string path = sandbox_ / name;
    fill(path, bytes);
    return path;
  }
  std::string pdf(const std::string& name, const std::vector<WrittenPage>& pages) {
    return written(name, writtenPdf(pages));
  }
  void start(const std::vector<std::string>& arguments) {
    service_ = std::make_unique<RunningService>(arguments);
    ASSERT_GT(service_->port(), 0) << service_->announced();
    there_ = std::make_unique<Elsewhere>(service_->port(), "");
    there_->signIn();
  }
  std::string post(const std::string& path, const std::string& body) {
    const auto answer = there_->post(path, body);
    return answer && answer->status == 200 ? answer->body : std::string();
  }
  std::string get(const std::string& path) {
    const auto answer = there_->get(path);
    return answer && answer->status == 200 ? answer->body : std::string();
  }
  BoardState board() { return there_->board(); }
  FileDetail detail(const std::string& id, const std::string& query = {}) {
    return there_->detail(id, query);
  }
  // The board once its sync has ended.
  BoardState checked() {
    EXPECT_TRUE(there_->eventually(
        [](const BoardState& now) { return now.sync && !now.sync->active(); }, 600));
    return board();
  }
  void syncAgain() { EXPECT_EQ(post("/api/jobs", R"({"kind":"sync"})"), "{}"); }
  FileDetail onlyOne() {
    const BoardState now = checked();
    if (now.files.size() != 1) {
      ADD_FAILURE() << now.files.size() << " tickets";
      return {};
    }
    return detail(now.files.front().id);
  }

  Sandbox sandbox_;
  std::unique_ptr<RunningService> service_;
  std::unique_ptr<Elsewhere> there_;
};

inline std::vector<Finding> real(const FileDetail& detail) {
  std::vector<Finding> all;
  std::ranges::copy_if(detail.findings, std::back_inserter(all), [](const Finding& finding) {
    return finding.kind != "pass" && finding.kind != "expected";
  });
  return all;
}

// What is expected, and what is not, as "role: title".
inline std::vector<std::string> told(const FileDetail& detail, bool expected) {
  std::vector<std::string> all;
  for (const Finding& finding : detail.findings) {
    if (finding.kind == "pass" || (finding.kind == "expected") != expected) continue;
    all.push_back(finding.against + ": " + finding.title);
  }
  return all;
}

}  // namespace vellix::demo_tests
