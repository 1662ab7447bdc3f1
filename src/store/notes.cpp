// Writing notes and changing them. Nothing is shown before the service has it.
#include "records/trimmed.hpp"
#include "store/store_tell.hpp"

namespace vellix {

struct NoteBody {
  std::string file_id;
  Int page = 0;
  std::string text;
  std::vector<std::string> tags;
  std::optional<Int> version;
  std::optional<double> x;
  std::optional<double> y;
  std::optional<double> w;
  std::optional<double> h;
  std::optional<std::string> side;
  std::optional<std::string> finding_id;
};
BOOST_DESCRIBE_STRUCT(NoteBody, (),
                      (file_id, page, text, tags, version, x, y, w, h, side, finding_id))

namespace {

struct NoteChange {
  std::optional<std::string> text;
  std::optional<bool> resolved;
  std::optional<bool> deleted;
};
BOOST_DESCRIBE_STRUCT(NoteChange, (), (text, resolved, deleted))

void place(NoteBody& body, const DraftNote& draft) {
  body.x = draft.x;
  body.y = draft.y;
  body.side = draft.side;
  if (isArea(draft.w, draft.h)) {
    body.w = draft.w;
    body.h = draft.h;
  }
  body.finding_id = draft.findingID;
}

// Without a place. None for a text of blanks.
std::optional<NoteBody> noteOn(const Store& store, const std::string& text, const FileItem& file,
                               Int index, std::vector<std::string> tags) {
  const std::string_view words = trimmed(text);
  if (words.empty()) return std::nullopt;
  NoteBody body{
      .file_id = file.id, .page = index, .text = std::string{words}, .tags = std::move(tags)};
  if (const auto detail = store.details().find(file.id); detail != store.details().end()) {
    body.version = detail->second.versionNumber();
  }
  return body;
}

}  // namespace

void Store::addNote(std::string text, FileItem file, Int index, std::vector<std::string> tags,
                    std::optional<std::string> findingID) {
  auto body = noteOn(*this, text, file, index, std::move(tags));
  if (!body) return;
  if (draft() && draft()->fileID == file.id) {
    place(*body, *draft());
  } else if (draftPin()) {
    body->x = draftPin()->first;
    body->y = draftPin()->second;
  }
  if (findingID) body->finding_id = std::move(findingID);
  endDraft();
  sendNote(*std::move(body), std::move(file));
}

void Store::addPageNote(std::string text, FileItem file, Int index, std::vector<std::string> tags) {
  auto body = noteOn(*this, text, file, index, std::move(tags));
  if (body) sendNote(*std::move(body), std::move(file));
}

void Store::sendNote(NoteBody body, FileItem file) {
  action("note", "Note added.", [this, body = std::move(body), file = std::move(file)] {
    return thenReload(tell("api/comments", body), file);
  });
}

void Store::beginDraft(DraftNote note) {
  // It is written on its page, which has to be seen.
  if (note.side == "supplier" && !shown().contains("supplier")) {
    shown.edit([](auto& panes) { panes.insert("supplier"); });
  }
  draft.set(std::move(note));
}

void Store::dropDraft() { draft.set(std::nullopt); }

void Store::endDraft() {
  draftPin.set(std::nullopt);
  dropDraft();
  pinning.set(false);
  draftFinding.set(std::nullopt);
}

void Store::updateNote(Note note, std::optional<std::string> text, std::optional<bool> resolved,
                       bool remove) {
  const char* done = remove      ? "Note deleted."
                     : !resolved ? "Saved."
                     : *resolved ? "Resolved."
                                 : "Reopened.";
  NoteChange change{.text = std::move(text),
                    .resolved = resolved,
                    .deleted = remove ? std::optional{true} : std::nullopt};
  action("n-" + note.id, done,
         [this, path = "api/comments/" + note.id, change = std::move(change)] {
           return thenReload(tell(path, change), std::nullopt);
         });
}

}  // namespace vellix
