#include "board/assign_button.hpp"

#include "records/words.hpp"
#include "store/people.hpp"

namespace vellix {
namespace {

bool isReprint(const FileItem& file) { return file.track == "reprint"; }

ReviewerView reviewerView(const Store& store, const FileItem& file, const Person& person) {
  const bool me = person.email == store.board()->me.email;
  return {.email = person.email,
          .avatar = avatarOf(person.email, store),
          .name = personName(store, person.email) + (me ? " (you)" : ""),
          .usually = handlesReprints(person.email) ? "Usually reprints" : "Usually new titles",
          .chosen = file.assignee == person.email};
}

}  // namespace

AssignButtonView assignButton(const Store& store, const FileItem& file) {
  const auto& busy = store.busy();
  AssignButtonView view{.text = "Assign",
                        .move = isReprint(file) ? "Move to New titles" : "Move to Reprints",
                        .busy = busy.contains("assign") || busy.contains("track")};
  if (hasWords(file.assignee)) {
    view.text = displayName(store, file.assignee);
    view.avatar = avatarOf(file.assignee, store);
  }
  if (!store.board()) return view;
  for (const Person& person : store.board()->users) {
    view.people.push_back(reviewerView(store, file, person));
  }
  return view;
}

void chooseReviewer(Store& store, const FileItem& file, const std::string& email) {
  if (file.assignee != email) store.assign(file, email);
}

void moveToOtherQueue(Store& store, const FileItem& file) {
  store.setTrack(file, isReprint(file) ? "new_title" : "reprint");
}

}  // namespace vellix
