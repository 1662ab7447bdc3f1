#include "ticket/file_header.hpp"

#include <algorithm>

#include "approval/approval_pill.hpp"
#include "gateway/url.hpp"
#include "records/finding_words.hpp"
#include "records/friendly_time.hpp"
#include "records/words.hpp"
#include "store/people.hpp"

namespace vellix {
namespace {

// Whose work the review was and how long ago; none unless both the status and the person are told.
std::string reviewedBy(const Store& store, const FileItem& file, Moment now,
                       const Calendar& calendar) {
  if (file.status != "reviewed" || !hasWords(file.status_by)) return {};
  std::string text = displayName(store, file.status_by);
  if (file.status_at) text += " · " + friendlyTime(momentOf(*file.status_at), now, calendar);
  return text;
}

std::vector<FactView> factsOf(const Store& store, const FileItem& file, Moment now,
                              const Calendar& calendar) {
  std::vector<FactView> facts{
      {"PO", wordsOf(file.po)},
      {"Supplier", wordsOf(file.supplier)},
      {"Pages", file.page_count ? std::to_string(*file.page_count) : ""},
      {"From", wordsOf(file.sender)},
      {"Came in", file.received ? calendar.monthAndDay(momentOf(*file.received)) : ""},
      {"Reviewed", reviewedBy(store, file, now, calendar)},
  };
  std::erase_if(facts, [](const FactView& fact) { return fact.value.empty(); });
  return facts;
}

// The first that can be opened.
std::optional<std::string> linkOf(const std::vector<Ref>& refs, std::string_view role) {
  const auto found = std::ranges::find_if(refs, [&](const Ref& ref) {
    return ref.role == role && ref.link && isLinkTarget(*ref.link);
  });
  return found == refs.end() ? std::nullopt : found->link;
}

std::vector<LinkView> linksOf(const FileItem& file, const FileDetail* detail) {
  // Of the version on show. What it does not tell is taken whole from the ticket, so that no list
  // is a mixture of two versions.
  static const Origin kNoOrigin;
  const Origin& origin = detail && detail->origin ? *detail->origin : kNoOrigin;
  const Links links = (origin.links ? origin.links : file.links).value_or(Links{});
  const std::vector<Ref> refs =
      (origin.refs ? origin.refs : file.refs).value_or(std::vector<Ref>{});
  const bool reprint = file.track == "reprint";
  // The reference that the name is true of, before the other.
  auto third = linkOf(refs, reprint ? "latest" : "fbc");
  if (!third) third = linkOf(refs, reprint ? "fbc" : "latest");

  std::vector<LinkView> all;
  const auto add = [&](std::string label, const char* icon, const std::optional<std::string>& url) {
    if (url && isLinkTarget(*url)) all.push_back({std::move(label), icon, *url});
  };
  add("Email", "envelope", links.gmail);
  add(supplierOf(file) + " file", "doc", links.drive);
  add("PO folder", "folder", links.drive_folder);
  add("InDesign", "pencil.and.ruler", links.indd);
  add("What we sent", "arrow.up.doc", linkOf(refs, "submitted"));
  add(reprint ? "Last print" : "FBC", "book.closed", third);
  return all;
}

}  // namespace

FileHeaderView fileHeader(const Store& store, const FileItem& file, const FileDetail* detail,
                          Moment now, const Calendar& calendar) {
  return {.heading = file.heading(),
          .status = statusPill(file.status),
          .track = trackPill(file.track == "reprint"),
          .approval = approvalPill(file, false),
          .summary = wordsOf(file.summary),
          .facts = factsOf(store, file, now, calendar),
          .links = linksOf(file, detail)};
}

}  // namespace vellix
