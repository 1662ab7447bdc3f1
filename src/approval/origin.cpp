#include "approval/origin.hpp"

#include "gateway/url.hpp"
#include "records/finding_words.hpp"
#include "records/friendly_time.hpp"
#include "records/words.hpp"

namespace vellix {
namespace {

// Where the service tells nothing of the version on show, the ticket itself is not wrong.
Origin toldOrigin(const FileDetail& detail) {
  if (detail.origin) return *detail.origin;
  const FileItem& file = detail.file;
  return {.supplier = file.supplier,
          .sender = file.sender,
          .received = file.received,
          .filename = file.filename,
          .refs = file.refs,
          .summary = file.summary,
          .links = file.links};
}

std::string openable(const std::optional<std::string>& url) {
  return url && isLinkTarget(*url) ? *url : "";
}

}  // namespace

OriginView originOf(const FileDetail& detail, Moment now, const Calendar& calendar) {
  const Origin origin = toldOrigin(detail);
  OriginView view;
  view.line =
      wordsOr(origin.supplier, "The supplier") + " sent " + wordsOr(origin.filename, "the proof");
  if (origin.received) {
    view.line += " · " + friendlyTime(momentOf(*origin.received), now, calendar);
  }
  if (origin.links) view.folder = openable(origin.links->drive_folder);
  for (const Ref& ref : origin.refs.value_or(std::vector<Ref>{})) {
    view.checked.push_back({.key = std::to_string(view.checked.size()),
                            .label = "Checked against " + roleLabel(ref.role) + ":",
                            .name = wordsOr(ref.name, "file"),
                            .url = openable(ref.link)});
  }
  if (view.checked.empty()) view.unchecked = "No file of ours was found to check it against.";
  return view;
}

}  // namespace vellix
