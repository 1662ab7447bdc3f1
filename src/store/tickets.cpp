// What is done with a ticket as a whole: its review, its reviewer, its due date and its track.
#include <algorithm>

#include "records/words.hpp"
#include "store/store_tell.hpp"

namespace vellix {
namespace {

struct StatusBody {
  std::string status;
};
BOOST_DESCRIBE_STRUCT(StatusBody, (), (status))

struct AssignBody {
  std::string email;
};
BOOST_DESCRIBE_STRUCT(AssignBody, (), (email))

struct DueBody {
  std::optional<double> due;  // milliseconds since 1970
  std::optional<bool> urgent;
  std::optional<bool> reset;
};
BOOST_DESCRIBE_STRUCT(DueBody, (), (due, urgent, reset))

struct TrackBody {
  std::string track;
};
BOOST_DESCRIBE_STRUCT(TrackBody, (), (track))

constexpr const char* kUndo = "Undo";
constexpr const char* kNotSaved = "That didn't save.";

// Of another status than these it is said that the ticket is new, whatever it is.
const char* statusText(const std::string& status) {
  if (status == "reviewed") return "Marked reviewed.";
  if (status == "in_review") return "Back in review.";
  return "Moved to New.";
}

std::string duePath(const FileItem& file) { return "api/files/" + file.id + "/due"; }

}  // namespace

std::optional<std::string> Store::myEmail() const {
  return board() ? std::optional{board()->me.email} : std::nullopt;
}

void Store::setStatus(FileItem file, std::string status) {
  const auto ahead = status == "reviewed" ? reviewLocally(file.id) : std::nullopt;
  hold("status");
  // The reviewer was carried on: taking it back leads back as well.
  Toast done{statusText(status), kUndo, undo([file](Store& store) {
               store.setStatus(file, file.status);
               if (store.selection() != std::set{file.id}) store.select({file.id});
             })};
  spawn(runUndoable(
      "status",
      [this, id = file.id, ahead, status] {
        return tellAhead(reviewed_, id, ahead, "api/files/" + id + "/status", StatusBody{status});
      },
      std::move(done), kNotSaved, ahead.has_value(), session_));
}

std::optional<Order> Store::reviewLocally(const std::string& id) {
  if (!board()) return std::nullopt;
  BoardState changed = *board();
  if (!changed.files.find(id)) return std::nullopt;
  const Order since = order();
  reviewed_.show(id, {"reviewed", myEmail(), wireOf(ports_.loop.now())}, since);
  layOver(changed, since);
  advanceAfterReview(std::move(changed), id);
  return since;
}

void Store::layOver(BoardState& fresh, Order asked) {
  if (reviewed_.empty()) return;
  for (std::size_t at = 0; at < fresh.files.size(); ++at) {
    const Told* told = reviewed_.over(std::as_const(fresh.files)[at].id, asked);
    if (!told) continue;
    FileItem& file = fresh.files[at];
    file.status = told->state;
    file.status_by = told->by;
    file.status_at = told->at;
  }
}

void Store::advanceAfterReview(BoardState changed, const std::string& id) {
  board.set(std::move(changed));
  if (selection() != std::set{id} || !prefs.autoAdvance()) return;
  const FileItem* next = firstDue(filesInQueue(effectiveQueue()), id);
  choose({next ? next->id : id});
}

void Store::assign(FileItem file, std::string email) {
  const auto& people = board() ? board()->users : std::vector<Person>{};
  const auto person = std::ranges::find(people, email, &Person::email);
  const std::string name = person == people.end() ? "them" : person->firstName();
  Toast done{"Assigned to " + name + "."};
  // Who had no reviewer cannot be given back to nobody.
  if (hasWords(file.assignee) && *file.assignee != email) {
    done =
        Toast{done.text, kUndo, undo([file](Store& store) { store.assign(file, *file.assignee); })};
  }
  hold("assign");
  spawn(runUndoable(
      "assign",
      [this, path = "api/files/" + file.id + "/assign", email] {
        return tell(path, AssignBody{email});
      },
      std::move(done), kNotSaved, false, session_));
}

void Store::setDueDate(FileItem file, Moment date) {
  action("due", "Due date set.", [this, path = duePath(file), due = wireOf(date)] {
    return tell(path, DueBody{.due = due});
  });
}

void Store::setUrgent(FileItem file, bool urgent) {
  action("due", urgent ? "Marked urgent. Due today." : "No longer urgent.",
         [this, path = duePath(file), urgent] { return tell(path, DueBody{.urgent = urgent}); });
}

void Store::resetDue(FileItem file) {
  action("due", "Due 48 hours after it came in.",
         [this, path = duePath(file)] { return tell(path, DueBody{.reset = true}); });
}

void Store::setTrack(FileItem file, std::string track) {
  action("track", track == "reprint" ? "Moved to Reprints." : "Moved to New titles.",
         [this, path = "api/files/" + file.id + "/track", track] {
           return tell(path, TrackBody{track});
         });
}

}  // namespace vellix
