#include "approval/upload_sheet.hpp"

#include <algorithm>

#include "approval/approval_round.hpp"
#include "approval/approval_stage.hpp"
#include "approval/sheet_ticket.hpp"
#include "gateway/url.hpp"
#include "records/held_sum.hpp"
#include "records/trimmed.hpp"

namespace vellix {
namespace {

std::string nameIn(const std::string& path) { return path.substr(path.rfind('/') + 1); }

bool isPdf(const std::string& path) {
  std::string name = nameIn(path);
  std::ranges::transform(name, name.begin(), asciiLower);
  return name.ends_with(".pdf");
}

bool canUpload(const UploadDraft& draft, const Store& store) {
  const FileItem* file = ticketOnBoard(store, draft.file.id);
  return file && canBeRevised(*file) && !draft.path.empty() && !store.busy().contains("revision");
}

}  // namespace

UploadDraft beginUpload(const FileItem& file) { return {.file = file, .path = {}, .note = {}}; }

void follow(UploadDraft& draft, const Store& store) {
  if (const FileItem* file = ticketOnBoard(store, draft.file.id)) draft.file = *file;
}

void choosePdf(UploadDraft& draft, const std::string& path) {
  if (isPdf(path)) draft.path = path;
}

bool upload(const UploadDraft& draft, Store& store) {
  if (!canUpload(draft, store)) return false;
  const FileItem file = *ticketOnBoard(store, draft.file.id);
  store.uploadRevision(file, draft.path, std::string{trimmed(draft.note)});
  return true;
}

UploadSheetView uploadSheet(const UploadDraft& draft, const Store& store) {
  const Int next = heldSum(draft.file.versionNumber(), 1);
  const bool chosen = !draft.path.empty();
  return {.title = "Upload " + versionName(next),
          .intro = "The Mac mini checks it against " + versionName(heldSum(next, -1)) +
                   ", so you can see exactly what moved. Then send it back for approval.",
          .icon = chosen ? "doc.fill" : "doc.badge.plus",
          .file = chosen ? nameIn(draft.path) : "No PDF picked yet",
          .chosen = chosen,
          .choose = chosen ? "Choose another…" : "Choose PDF…",
          .trouble = sheetTrouble(ticketOnBoard(store, draft.file.id), canBeRevised),
          .canUpload = canUpload(draft, store)};
}

}  // namespace vellix
