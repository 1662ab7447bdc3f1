#include "approval/approval_buttons.hpp"

#include <algorithm>
#include <optional>

#include "approval/approval_round.hpp"
#include "approval/approval_stage.hpp"
#include "gateway/url.hpp"
#include "records/finding_words.hpp"
#include "records/words.hpp"

namespace vellix {
namespace {

using enum ApprovalControl;
using Button = std::optional<ApprovalButtonView>;

bool isBusy(const Store& store, const char* key) { return store.busy().contains(key); }

std::string linkOf(const FileItem& file) { return file.share ? wordsOf(file.share->url) : ""; }

Button copyButton(const FileItem& file) {
  if (linkOf(file).empty()) return std::nullopt;
  return ApprovalButtonView{.key = "copyForNotion",
                            .label = "Copy for Notion",
                            .icon = "square.on.square",
                            .help = std::string{kNotionHelp},
                            .quiet = true};
}

// A detail that lags behind the board tells who was asked the last time.
bool isOfThisRound(const FileItem& file, const FileDetail* detail) {
  const Approval* approval = approvalIn(detail);
  return !approval || !approval->state || approval->state == file.approval;
}

// There is nobody to write to once all have answered.
Button emailButton(const FileItem& file, const FileDetail* detail) {
  if (linkOf(file).empty()) return std::nullopt;
  return ApprovalButtonView{
      .key = "emailAgain",
      .label = "Email again",
      .icon = "envelope",
      .quiet = true,
      .enabled = isOfThisRound(file, detail) && !waitingApprovers(file, detail).empty()};
}

Button takeBackButton(const Store& store) {
  return ApprovalButtonView{.key = "takeBack",
                            .label = "Take back",
                            .icon = "arrow.uturn.backward",
                            .quiet = true,
                            .enabled = !isBusy(store, "approval")};
}

Button uploadButton(const Store& store, const char* key, const char* label, bool quiet) {
  const bool uploading = isBusy(store, "revision");
  return ApprovalButtonView{.key = key,
                            .label = uploading ? "Uploading…" : label,
                            .icon = "arrow.up.doc",
                            .opens = "upload",
                            .quiet = quiet,
                            .enabled = !uploading};
}

Button sendButton(const Store& store, const FileItem& file) {
  const bool again = offers(file, uploadAgain);
  return ApprovalButtonView{
      .key = "send",
      .label = again ? "Send " + versionName(file.versionNumber()) + " for approval"
                     : "Send for approval",
      .icon = "paperplane",
      .opens = "send",
      .enabled = !isBusy(store, "approval")};
}

Button mailButton(const FileItem& file) {
  const auto mail = file.links ? file.links->gmail : std::nullopt;
  if (!mail || !isLinkTarget(*mail)) return std::nullopt;
  return ApprovalButtonView{.key = "supplierEmail",
                            .label = supplierOf(file) + " email",
                            .icon = "envelope",
                            .url = *mail,
                            .quiet = true};
}

Button sentButton(const Store& store, const FileItem& file) {
  return ApprovalButtonView{.key = "markSent",
                            .label = "Mark sent to " + wordsOr(file.supplier, "supplier"),
                            .icon = "paperplane",
                            .enabled = !isBusy(store, "approval")};
}

Button buttonOf(ApprovalControl control, const Store& store, const FileItem& file,
                const FileDetail* detail) {
  switch (control) {
    case copyForNotion:
      return copyButton(file);
    case emailAgain:
      return emailButton(file, detail);
    case takeBack:
      return takeBackButton(store);
    case uploadRevision:
      return uploadButton(store, "uploadRevision", "Upload revision", canBeSent(file));
    case uploadAgain:
      return uploadButton(store, "uploadAgain", "Upload again", true);
    case send:
      return sendButton(store, file);
    case supplierEmail:
      return mailButton(file);
    case markSent:
      return sentButton(store, file);
  }
  return std::nullopt;
}

}  // namespace

std::vector<ApprovalButtonView> approvalButtons(const Store& store, const FileItem& file,
                                                const FileDetail* detail) {
  std::vector<ApprovalButtonView> buttons;
  for (const ApprovalControl control : approvalStage(file).controls) {
    if (auto button = buttonOf(control, store, file, detail)) buttons.push_back(*std::move(button));
  }
  return buttons;
}

void pressApprovalButton(Store& store, std::string_view key) {
  const FileItem* file = store.currentFile();
  if (!file) return;
  const FileDetail* detail = store.currentDetail();
  const auto buttons = approvalButtons(store, *file, detail);
  const auto pressed = std::ranges::find(buttons, key, &ApprovalButtonView::key);
  if (pressed == buttons.end() || !pressed->enabled) return;
  if (key == "copyForNotion") store.copyNotionLink(*file);
  if (key == "emailAgain") {
    store.composeApprovalMail(*file, waitingApprovers(*file, detail), linkOf(*file));
  }
  if (key == "takeBack") store.withdrawApproval(*file);
  if (key == "markSent") store.markApprovalSent(*file);
}

}  // namespace vellix
