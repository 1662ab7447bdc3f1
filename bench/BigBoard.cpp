#include "BigBoard.hpp"

namespace vellix::bench {
namespace {

constexpr double kHour = 3'600'000;
constexpr double kStart = 1'700'000'000'000;
constexpr const char* kMe = "renny@tessarine.example";
constexpr const char* kOther = "jorvas@tessarine.example";

std::string statusOf(int i) {
  if (i % 10 == 9) return "reviewed";
  return i % 2 == 0 ? "new" : "in_review";
}

FileItem ticket(int i) {
  const std::string number = std::to_string(i);
  FileItem file;
  file.id = "ticket-" + number;
  file.key = "files/" + number + "/v1";
  file.po = "PO-" + std::to_string(40'000 + i);
  file.title = "The Harbour at First Light, Volume " + number;
  file.component = "Text";
  file.supplier = i % 3 == 0 ? "Harrow Print" : "Calder & Sons";
  file.filename = "harbour_first_light_" + number + "_text_proof_v1.pdf";
  file.kind = "text";
  file.sender = "prepress@harrow.example";
  file.received = kStart + i * kHour;
  file.page_count = 64 + i % 300;
  file.links = Links{.gmail = "https://mail.tessarine.example/mail/" + number,
                     .drive = "https://drive.tessarine.example/file/" + number};
  file.refs = {
      {.role = "submitted", .name = "harbour_" + number + ".pdf", .page_count = 64, .matched = 64},
      {.role = "fbc",
       .name = "harbour_fbc_" + number + ".pdf",
       .page_count = 64,
       .matched = 62,
       .note = "Two pages of the advert section were left out."}};
  file.summary = "One word differs on page 12, and the barcode of the cover could not be read.";
  file.counts = Counts{.pages = 64, .high = i % 4, .medium = i % 7, .low = 3, .expected = 1};
  file.status = statusOf(i);
  file.status_by = kMe;
  file.status_at = kStart + i * kHour;
  file.created = kStart + i * kHour;
  file.rev = 1 + i % 5;
  file.thumb = "files/" + number + "/v1/thumb.jpg";
  file.tally = Tally{.open = i % 6, .issues = i % 3, .total = 9};
  file.track = "new_title";
  file.assignee = i % 2 == 0 ? kMe : kOther;
  file.due = kStart + i * kHour;
  file.due_by = kOther;
  file.version = 1;
  return file;
}

}  // namespace

BoardState bigBoard(int tickets) {
  BoardState board;
  board.rev = 1;
  board.me = {kMe, "Renny Vale"};
  board.users = {{.email = kMe, .name = "Renny Vale"}, {.email = kOther, .name = "Jorvas Lind"}};
  for (int i = 0; i < tickets; ++i) board.files.push_back(ticket(i));
  for (int i = 0; i < 200; ++i) {
    board.events.push_back({.id = 200 - i,
                            .at = kStart + i * kHour,
                            .by = kOther,
                            .kind = "status",
                            .file_id = "ticket-" + std::to_string(i),
                            .text = "marked it reviewed"});
  }
  return board;
}

}  // namespace vellix::bench
