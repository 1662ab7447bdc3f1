#include "ticket/review_button.hpp"

namespace vellix {
namespace {

bool isReviewed(const FileItem& file) { return file.status == "reviewed"; }

}  // namespace

ReviewButtonView reviewButton(const Store& store) {
  const FileItem* file = store.currentFile();
  if (!file) return {};
  const bool enabled = !store.busy().contains("status");
  if (isReviewed(*file)) {
    return {.text = "Reopen", .icon = "arrow.uturn.backward", .enabled = enabled};
  }
  return {.text = "Mark reviewed", .icon = "checkmark", .ends = true, .enabled = enabled};
}

void pressReviewButton(Store& store) {
  if (!reviewButton(store).enabled) return;
  const FileItem& file = *store.currentFile();
  store.setStatus(file, isReviewed(file) ? "in_review" : "reviewed");
}

}  // namespace vellix
