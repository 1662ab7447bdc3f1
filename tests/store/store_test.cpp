#include "store/store_test.hpp"

namespace vellix {

Job jobOf(std::string status, std::string kind) {
  return {.id = "j", .kind = std::move(kind), .status = std::move(status)};
}

Page pageOf(Int i) {
  Page page;
  page.i = i;
  return page;
}

std::vector<Page> pagesOf(Int count) {
  std::vector<Page> pages;
  pages.reserve(static_cast<std::size_t>(count));
  for (Int i = 0; i < count; ++i) pages.push_back(pageOf(i));
  return pages;
}

FileItem ticketAt(std::string id, Int rev, std::optional<Int> version) {
  FileItem file = ticketOf(std::move(id));
  file.rev = rev;
  file.version = version;
  return file;
}

FileDetail detailOf(FileItem file, std::vector<Finding> findings) {
  FileDetail detail;
  detail.version = file.version;
  detail.file = std::move(file);
  detail.findings = std::move(findings);
  return detail;
}

StoreTest::StoreTest(std::optional<std::string> token) : desk(std::move(token)) {}

StoreTest::~StoreTest() = default;

Store& StoreTest::store() { return desk.store(); }

void StoreTest::serveBoard(const BoardState& board, std::string tag) {
  routes.serve(kStateLine, jsonOf(board), std::move(tag));
}

void StoreTest::serveDetail(const FileDetail& detail, std::string tag) {
  routes.serve("GET api/files/" + detail.file.id, jsonOf(detail), std::move(tag));
}

void StoreTest::poll() {
  desk.tasks.start(store().refresh());
  desk.time.run();
}

void StoreTest::load(const FileItem& file, bool force) {
  desk.tasks.start(store().loadDetail(file, force));
  desk.time.run();
}

void StoreTest::answer(std::size_t index, HttpResult result) {
  desk.http.answer(index, std::move(result));
  desk.time.run();
}

std::size_t StoreTest::polls() { return desk.http.count(kStateLine); }

std::size_t StoreTest::detailRequests(const std::string& id) {
  return desk.http.count("GET api/files/" + id);
}

std::vector<std::string> StoreTest::lines() {
  std::vector<std::string> all;
  all.reserve(desk.http.exchanges.size());
  for (const auto& exchange : desk.http.exchanges) all.push_back(exchange.line());
  return all;
}

}  // namespace vellix
