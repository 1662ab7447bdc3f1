// Which ticket, page and finding are in front, and how a ticket's detail comes in.
#include <algorithm>
#include <iterator>
#include <limits>

#include "records/held_sum.hpp"
#include "store/people.hpp"
#include "store/store.hpp"

namespace vellix {
namespace {

// Fewer than a lane takes: polls and actions go beside them.
constexpr std::size_t kMostDetails = 4;
static_assert(kMostDetails < kMostInALane);

constexpr std::string_view kReprint = "reprint";
constexpr std::string_view kNewTitle = "new_title";

// Page numbers come from outside: whatever they are, nothing must overflow.
bool isNeighbour(Int one, Int other) {
  return one == other || std::max(one, other) - 1 == std::min(one, other);
}

// None for the newest.
std::optional<Int> chosenVersion(const Store& store, const std::string& id) {
  const auto chosen = store.viewVersion().find(id);
  return chosen == store.viewVersion().end() ? std::nullopt : std::optional{chosen->second};
}

}  // namespace

const FileItem* Store::currentFile() const {
  if (selection().size() != 1 || !board()) return nullptr;
  return board()->files.find(*selection().begin());
}

const FileDetail* Store::currentDetail() const {
  const FileItem* file = currentFile();
  if (!file) return nullptr;
  const auto found = details().find(file->id);
  return found == details().end() ? nullptr : &found->second;
}

const FileDetail* Store::heldDetail(const std::string& id, Int version) const {
  const auto found = details().find(id);
  const bool held = found != details().end() && found->second.versionNumber() == version;
  return held ? &found->second : nullptr;
}

std::string Store::effectiveQueue() const {
  if (queue() == kReprint || queue() == kNewTitle) return queue();
  const bool reprints = board() && handlesReprints(board()->me.email);
  return std::string{reprints ? kReprint : kNewTitle};
}

std::vector<const FileItem*> Store::filesInQueue(std::string_view wanted) const {
  std::vector<const FileItem*> files;
  if (!board()) return files;
  for (const auto& file : board()->files) {
    const bool inQueue = (file.track ? std::string_view{*file.track} : kNewTitle) == wanted;
    if (inQueue && (!mineOnly() || file.assignee == board()->me.email)) files.push_back(&file);
  }
  return files;
}

void Store::setQueue(std::string value) {
  queue.set(value);
  ports_.defaults.setText("Queue", value);
  reconcileSelection();
}

void Store::setMineOnly(bool flag) {
  mineOnly.set(flag);
  ports_.defaults.setFlag("MineOnly", flag);
}

const FileItem* Store::firstDue(const std::vector<const FileItem*>& files,
                                std::string_view except) {
  const auto dueOf = [](const FileItem* file) {
    return file->due.value_or(std::numeric_limits<double>::infinity());
  };
  const FileItem* first = nullptr;
  for (const FileItem* file : files) {
    if (file->status == "reviewed" || file->id == except) continue;
    if (!first || dueOf(file) < dueOf(first)) first = file;
  }
  return first;
}

void Store::reconcileSelection() {
  const auto list = filesInQueue(effectiveQueue());
  const bool stays =
      selection().size() == 1 && std::ranges::any_of(list, [&](const FileItem* file) {
        return file->id == *selection().begin();
      });
  if (stays) return;
  const FileItem* chosen = firstDue(list);
  if (!chosen && !list.empty()) chosen = list.front();
  choose(chosen ? std::set{chosen->id} : std::set<std::string>{});
}

void Store::choose(std::set<std::string> tickets) {
  selection.set(std::move(tickets));
  clearFocus();
}

void Store::select(std::set<std::string> tickets) {
  choose(std::move(tickets));
  profile.set(std::nullopt);
}

void Store::toggleSelected(const std::string& ticket) {
  auto tickets = selection();
  if (!tickets.insert(ticket).second) tickets.erase(ticket);
  select(std::move(tickets));
}

void Store::toggleFocus(const std::string& finding) {
  focus.set(focus() == finding ? std::nullopt : std::optional{finding});
}

void Store::clearFocus() { focus.set(std::nullopt); }

Task<> Store::loadDetail(FileItem file, bool force, std::stop_token stop) {
  const auto pinned = chosenVersion(*this, file.id);
  const Int wanted = pinned.value_or(file.versionNumber());
  const bool doubted = doubted_.contains(file.id);
  const bool whole = force || doubted;
  const FileDetail* held = heldDetail(file.id, wanted);
  if (!whole && held && held->file.rev == file.rev) co_return;
  const std::string key = file.id + "#" + std::to_string(pinned.value_or(0));
  std::optional<std::string> tag;
  if (const auto known = fileTags.find(key); !whole && known != fileTags.end()) {
    tag = known->second;
  }
  API::Request request{.path = "api/files/" + file.id, .etag = tag, .stop = stop};
  if (pinned) request.query.emplace("v", std::to_string(*pinned));
  const auto session = session_;
  const Order asked = order();
  auto call = api_.ask<FileDetail>(request);
  auto answer = co_await std::move(call);
  if (session == session_ && tag && isUnchanged(answer) && !heldDetail(file.id, wanted)) {
    // The tag has outlived what it came with: another session's detail, or another version.
    fileTags.erase(key);
    request.etag.reset();
    auto again = api_.ask<FileDetail>(request);
    answer = co_await std::move(again);
  }
  // Silence on purpose: the next poll repairs it, and it alone reports trouble.
  if (!answer || isUnchanged(answer)) co_return;
  // A sign-out in the meantime took the details away on purpose.
  if (!answer->record || session != session_) co_return;
  // Another version was chosen since, and is on its way.
  if (chosenVersion(*this, file.id) != pinned) co_return;
  layOver(*answer->record, asked);
  details.edit([&](auto& all) { all.insert_or_assign(file.id, std::move(*answer->record)); });
  const FileDetail& detail = details().at(file.id);
  // An answer to what was asked before the doubt came up does not settle it.
  if (doubted) doubted_.erase(file.id);
  if (const auto fresh = answer->response.header("etag")) {
    fileTags[key] = *fresh;
  } else {
    fileTags.erase(key);
  }
  if (!page().contains(file.id)) {
    const auto serious = std::ranges::find(detail.findings, "high", &Finding::severity);
    const Int first = serious == detail.findings.end() ? 0 : serious->page;
    page.edit([&](auto& pages) { pages[file.id] = first; });
  }
  prefetchAround(file.id);
}

// The ticket on show is fetched anyhow.
Task<> Store::loadDoubted(std::stop_token stop) {
  if (doubted_.empty() || !board()) co_return;
  const auto session = session_;
  const FileItem* shown = currentFile();
  std::vector<FileItem> files;
  for (const FileItem& file : board()->files) {
    if (&file != shown && doubted_.contains(file.id)) files.push_back(file);
  }
  for (const FileItem& file : files) {
    if (session != session_) co_return;
    auto load = loadDetail(file, true, stop);
    co_await std::move(load);
  }
}

// The next step, either way, shall find its pictures at hand. Of a ticket that is not on show
// nobody takes one.
void Store::prefetchAround(const std::string& id) {
  const FileItem* shown = currentFile();
  if (!shown || shown->id != id) return;
  std::vector<Page> pages;
  const FileDetail* detail = currentDetail();
  if (detail && detail->file.pages) {
    const auto entry = page().find(id);
    const Int current = entry == page().end() ? 0 : entry->second;
    std::ranges::copy_if(*detail->file.pages, std::back_inserter(pages),
                         [&](const Page& one) { return isNeighbour(one.i, current); });
  }
  ports_.pictures.prefetch(std::move(pages));
}

// The details of tickets passed by are worth having, but not in the way of the one on show.
void Store::requestDetail(FileItem file) {
  if (asked_.size() == kMostDetails) {
    asked_.front().request_stop();
    asked_.pop_front();
  }
  prefetchAround(file.id);
  const auto stop = asked_.emplace_back().get_token();
  spawn(loadDetail(std::move(file), false, stop));
}

void Store::stepPage(const FileDetail& detail, Int delta) {
  const std::string id = detail.file.id;
  const Int count = detail.file.pages ? static_cast<Int>(detail.file.pages->size()) : 0;
  const auto entry = page().find(id);
  // From the page that is shown, should the ticket have lost the one that was.
  const Int present =
      std::min(entry == page().end() ? 0 : entry->second, std::max<Int>(count - 1, 0));
  goToPage(id, std::max<Int>(std::min(heldSum(present, delta), count - 1), 0));
  dropDraft();
}

void Store::goToPage(const std::string& id, Int index) {
  page.edit([&](auto& pages) { pages[id] = index; });
  clearFocus();
  prefetchAround(id);
}

}  // namespace vellix
