// Deciding a finding: shown at once, settled by the service, and taken back by Undo.
#include <algorithm>

#include "store/store_tell.hpp"

namespace vellix {
namespace {

struct StateBody {
  std::string state;
};
BOOST_DESCRIBE_STRUCT(StateBody, (), (state))

std::string decidedText(const std::string& state) {
  if (state == "issue") return "Marked a real issue.";
  if (state == "fine") return "Marked fine.";
  return "Reopened.";
}

}  // namespace

void Store::setFindingState(Finding finding, std::string state) {
  if (state != "open" && focus() == finding.id) focusNextOpen(finding);
  auto ahead = decideLocally(finding, state);
  hold(finding.id);
  std::string text = decidedText(state);
  spawn(sendFindingState(std::move(finding), std::move(state), std::move(text), std::move(ahead),
                         session_));
}

// The walk stays on the page: its last open finding clears the focus.
void Store::focusNextOpen(const Finding& decided) {
  const FileDetail* detail = currentDetail();
  if (!detail) return;
  const auto next = std::ranges::find_if(detail->findings, [&](const Finding& f) {
    return f.id != decided.id && f.page == decided.page && f.state == "open" && f.box &&
           f.kind != "expected" && f.kind != "pass" && f.severity != "low";
  });
  focus.set(next == detail->findings.end() ? std::nullopt : std::optional{next->id});
}

std::optional<DecidedAhead> Store::decideLocally(const Finding& finding, const std::string& state) {
  const FileDetail* detail = currentDetail();
  if (!detail ||
      std::ranges::find(detail->findings, finding.id, &Finding::id) == detail->findings.end()) {
    return std::nullopt;
  }
  DecidedAhead ahead{.ticket = currentFile()->id, .since = order()};
  decided_.show(finding.id, {state, myEmail(), wireOf(ports_.loop.now())}, ahead.since);
  details.edit([&](auto& all) { layOver(all.at(ahead.ticket), ahead.since); });
  return ahead;
}

// Without it a decision would be taken back, and shown again, by each answer from before it; and
// the next press would fall on it.
void Store::layOver(FileDetail& detail, Order asked) {
  if (decided_.empty()) return;
  for (Finding& finding : detail.findings) {
    const Told* told = decided_.over(finding.id, asked);
    if (!told) continue;
    finding.state = told->state;
    finding.state_by = told->by;
    finding.state_at = told->at;
  }
}

Task<> Store::sendFindingState(Finding finding, std::string state, std::string text,
                               std::optional<DecidedAhead> ahead, Session session) {
  Work post = [this, id = finding.id, since = ahead ? std::optional{ahead->since} : std::nullopt,
               state] {
    return tellAhead(decided_, id, since, "api/findings/" + id, StateBody{state});
  };
  Toast done{text, "Undo",
             undo([finding](Store& store) { store.setFindingState(finding, finding.state); })};
  auto settling = settle(std::move(post), std::move(done), "That didn't save. Try again.", session);
  const bool taken = co_await std::move(settling);
  if (session == session_) {
    // What was shown ahead of a refusal is false, and so is what was not shown and is taken.
    if (ahead.has_value() != taken) doubted_.insert(ahead ? ahead->ticket : finding.file_id);
    // After a failure this fetch is the rollback.
    auto reload = reloadCurrentDetail();
    co_await std::move(reload);
  }
  if (session == session_) {
    // The reviewer may have moved on meanwhile.
    auto others = loadDoubted();
    co_await std::move(others);
  }
  letGo(finding.id, session);
}

}  // namespace vellix
