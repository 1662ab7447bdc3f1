#include "notes/composer.hpp"

#include "records/trimmed.hpp"
#include "store/open_page.hpp"

namespace vellix {

ComposerView composer(const Store& store, const FileDetail& detail) {
  const bool posting = store.busy().contains("note");
  return {.title = "Note on page " + pageName(detail.file, pageIndex(store, detail.file)),
          .hint = store.prefs.drawToComment() ? "Or click the page" : "",
          .post = posting ? "Posting…" : "Post",
          .widest = "Posting…",
          .posting = posting};
}

std::string draftTitle(const DraftNote& draft, const std::string& pageName) {
  return (isArea(draft.w, draft.h) ? "Note on this area, p" : "Note here, p") + pageName;
}

DraftCardView draftCard(const Store& store, const FileDetail& detail) {
  const auto& draft = store.draft();
  const Int open = pageIndex(store, detail.file);
  if (!draft || draft->fileID != detail.file.id || draft->page != open) return {};
  return {.here = true, .title = draftTitle(*draft, pageName(detail.file, open))};
}

bool samePage(const std::optional<DraftNote>& one, const std::optional<DraftNote>& other) {
  return one && other && one->fileID == other->fileID && one->page == other->page;
}

bool isBlank(std::string_view text) { return trimmed(text).empty(); }

bool postNote(Store& store, const std::string& text, std::vector<std::string> tags) {
  const FileDetail* detail = store.currentDetail();
  if (!detail || isBlank(text) || store.busy().contains("note")) return false;
  const FileItem file = detail->file;
  store.addPageNote(text, file, pageIndex(store, file), std::move(tags));
  return true;
}

bool postDraft(Store& store, const std::string& text, std::vector<std::string> tags) {
  const FileDetail* detail = store.currentDetail();
  const auto draft = store.draft();
  if (!detail || !draft || draft->fileID != detail->file.id || isBlank(text)) return false;
  const FileItem file = detail->file;
  store.addNote(text, file, draft->page, std::move(tags));
  return true;
}

}  // namespace vellix
