#include "approval/version_chips.hpp"

#include <algorithm>

#include "approval/approval_round.hpp"
#include "records/finding_words.hpp"
#include "records/words.hpp"
#include "store/people.hpp"

namespace vellix {
namespace {

std::string spokenOf(const VersionChipView& chip) {
  std::string spoken = chip.badge + ", " + chip.caption;
  if (chip.checking) spoken += ", being checked";
  if (chip.failed) spoken += ", the check failed";
  return spoken;
}

}  // namespace

std::string versionCaption(const Store& store, const FileItem& file, const Version& version) {
  return version.n == 1 ? supplierOf(file) + " proof"
                        : "Revision by " + displayName(store, version.by);
}

std::vector<VersionChipView> versionChips(const Store& store, const FileDetail& detail) {
  std::vector<VersionChipView> chips;
  if (!detail.versions || detail.versions->size() < 2) return chips;
  for (const Version& version : *detail.versions) {
    VersionChipView chip{.n = version.n,
                         .badge = versionName(version.n),
                         .caption = versionCaption(store, detail.file, version),
                         .selected = version.n == detail.versionNumber(),
                         .checking = version.status == "checking",
                         .failed = version.status == "failed",
                         .help = wordsOr(version.note, wordsOf(version.filename)),
                         .spoken = {}};
    chip.spoken = spokenOf(chip);
    chips.push_back(std::move(chip));
  }
  return chips;
}

void pressVersion(Store& store, Int n) {
  const FileItem* file = store.currentFile();
  const FileDetail* detail = store.currentDetail();
  if (!file || !detail || !detail->versions) return;
  if (std::ranges::find(*detail->versions, n, &Version::n) == detail->versions->end()) return;
  store.showVersion(*file, n);
}

}  // namespace vellix
