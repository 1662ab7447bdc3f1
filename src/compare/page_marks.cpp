#include "compare/page_marks.hpp"

#include <algorithm>

#include "compare/marks.hpp"
#include "notes/composer.hpp"
#include "notes/note_numbers.hpp"
#include "pieces/vocabulary.hpp"
#include "records/finding_kinds.hpp"
#include "records/finding_words.hpp"
#include "store/open_page.hpp"
#include "store/people.hpp"

namespace vellix {
namespace {

bool isOn(const Finding& finding, Int page, const std::vector<std::string>& roles) {
  return finding.page == page && counts(finding, roles);
}

std::string colourOf(const Finding& finding) {
  if (finding.state == "fine" || finding.kind == "pass") return "green";
  return finding.kind == "expected" ? "muted" : "accent";
}

// An edit of ours that came through is told from a check that did without their colours, too.
std::string lineOf(const Finding& finding) {
  if (finding.kind == "expected") return "dotted";
  return finding.kind == "pass" || finding.state == "fine" ? "dashed" : "solid";
}

void addBoxes(std::vector<BoxMarkView>& marks, const Store& store, const Finding& finding,
              const std::optional<std::string>& role, const std::string& pageName) {
  const std::string state = isPassed(finding) ? kindLabel(finding.kind) : stateWord(finding.state);
  BoxMarkView mark{.finding = finding.id,
                   .colour = colourOf(finding),
                   .line = lineOf(finding),
                   .selected = store.focus() == finding.id,
                   .help = finding.title,
                   .name = finding.title + ", " + severityPill(finding.severity).text + ", " +
                           state + ", page " + pageName};
  const auto boxes = boxesOn(role, finding);
  const std::string name = mark.name;
  for (std::size_t i = 0; i < boxes.size(); ++i) {
    mark.key = finding.id + " " + std::to_string(i);
    mark.box = boxes[i];
    if (boxes.size() > 1) {
      mark.name = name;
      mark.name.append(", ").append(std::to_string(i + 1)).append(" of ");
      mark.name.append(std::to_string(boxes.size()));
    }
    marks.push_back(mark);
  }
}

// What is open on this side and has a place on the page.
std::vector<NoteMarkView> noteMarks(const Store& store, const FileDetail& detail, Int index,
                                    const std::string& side, const std::string& pageName) {
  std::vector<NoteMarkView> marks;
  const auto numbers = noteNumbers(detail);
  for (std::size_t i = 0; i < numbers.size(); ++i) {
    const Note& note = detail.comments[i];
    const Int number = numbers[i];
    const std::string ofSide = note.side == "ours" ? "ours" : "supplier";
    if (note.page != index || note.isResolved() || ofSide != side) continue;
    const auto box = boxOf(std::vector{note.x.value_or(0), note.y.value_or(0), note.w.value_or(0),
                                       note.h.value_or(0)});
    if (!note.x || !note.y || !box) continue;
    const std::string help = displayName(store, note.by) + ": " + note.text;
    std::string name = "Note " + std::to_string(number) + ", ";
    name.append(help).append(", page ").append(pageName);
    marks.push_back({.key = note.id,
                     .number = number,
                     .box = *box,
                     .area = isArea(box->width, box->height),
                     .help = help,
                     .name = std::move(name)});
  }
  return marks;
}

DraftMarkView draftMark(const Store& store, const std::string& ticket, Int index,
                        const std::string& side, const std::string& pageName) {
  const auto& draft = store.draft();
  if (!draft || draft->fileID != ticket || draft->page != index || draft->side != side) return {};
  return {.here = true,
          .box = {draft->x, draft->y, draft->w, draft->h},
          .area = isArea(draft->w, draft->h),
          .name = draftTitle(*draft, pageName)};
}

}  // namespace

std::string sideOf(const std::optional<std::string>& role) { return role ? "ours" : "supplier"; }

PaneMarks marksOf(const Store& store, const FileDetail& detail, const Page& page, Int index,
                  const std::optional<std::string>& role, const std::vector<std::string>& roles) {
  PaneMarks marks;
  for (const Finding& finding : detail.findings) {
    if (!isOn(finding, index, roles) || (role && finding.against != *role)) continue;
    addBoxes(marks.boxes, store, finding, role, page.name());
  }
  const std::string side = sideOf(role);
  marks.notes = noteMarks(store, detail, index, side, page.name());
  marks.draft = draftMark(store, detail.file.id, index, side, page.name());
  return marks;
}

void beginNote(Store& store, const std::string& side, Spot from, Spot to, Extent picture) {
  const FileDetail* detail = store.currentDetail();
  if (!detail) return;
  DraftNote note = drawn(from, to, picture);
  note.fileID = detail->file.id;
  note.page = pageIndex(store, detail->file);
  note.side = side;
  store.beginDraft(std::move(note));
}

}  // namespace vellix
