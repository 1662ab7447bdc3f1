// What the service knows and the rules by which it changes. Not locked: Service holds one lock
// around every use. Times are milliseconds since 1970.
#pragma once

#include <functional>
#include <future>
#include <map>
#include <mutex>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "asked.hpp"
#include "catalog.hpp"
#include "own_folder.hpp"
#include "own_run.hpp"
#include "records/json.hpp"
#include "report_pdf.hpp"
#include "shelf.hpp"

namespace vellix::demo {

class KeptReading;
struct KeptBoard;

class State {
 public:
  // `address` begins every link; `pace` scales every waiting time: 1 as people would see it,
  // smaller for hasty tests. The board holds the demo's own `books`, or none.
  State(Pictures& pictures, std::string address, double now, double pace, bool colleague,
        bool books);

  // From now on somebody's own proofs are copied into that folder.
  void copyOwnInto(const std::string& folder) { own_ = OwnFolder(folder); }
  // Somebody's own proofs come onto the board, and are checked; what to do about one that cannot be
  // opened is said in a sentence. Those that are there already stay as they are.
  std::expected<void, std::string> give(const std::vector<GivenProof>& proofs);

  // Ahead of all else, once: goes on with what the shelf holds, and keeps on it from then on. It
  // outlives the state, which was opened at the moment and with the books that it tells.
  Kept takeUp(Shelf& shelf, double now);
  // Keeps what changed since the last time; called before an answer leaves.
  Kept keep();
  // Another for every start: nothing that was lost with the last is taken for unchanged.
  Int starts() const { return keeping_.starts; }

  // Lets happen everything that was due by `now`; called before each request is answered.
  void advance(double now);

  // Sign-in. A code signs one person in; those of the demo may be used again and again.
  std::string codeFor(const std::string& email, const std::string& nonce);
  Outcome<SignInAnswer> exchange(const std::string& code, const std::string& nonce);
  const Person* personOf(const std::string& token) const;
  void forget(const std::string& token);
  void seen(const std::string& email);

  // Reading.
  Int rev() const { return rev_; }
  BoardState boardFor(const std::string& email) const;
  Outcome<FileDetail> detailOf(const std::string& id, std::optional<Int> version) const;
  Stats stats() const;
  const Job* job(const std::string& id) const;
  std::string logOf(const std::string& jobId) const;
  const std::string* pdfOf(const std::string& reportId);
  const std::vector<Ticket>& tickets() const { return tickets_; }

  // Findings and notes.
  Done setFinding(const std::string& id, const std::string& state, const std::string& by);
  Done addNote(const Json& body, const std::string& by);
  Done changeNote(const std::string& id, const Json& body, const std::string& by);

  // Tickets.
  Done setStatus(const std::string& id, const std::string& status, const std::string& by);
  Done assign(const std::string& id, const std::string& email, const std::string& by);
  Done setDue(const std::string& id, const Json& body, const std::string& by);
  Done setTrack(const std::string& id, const std::string& track, const std::string& by);

  // Approval, versions, sharing.
  Outcome<ShareAnswer> approval(const std::string& id, const Json& body, const std::string& by);
  Outcome<Uploaded> upload(const std::string& id, Upload upload, const std::string& by);
  // A version as a PDF: the file that came, or else what prints it when it is called.
  struct AsPdf {
    std::shared_ptr<const PdfFile> file = {};
    std::function<std::string()> print = {};
  };
  // `repaired` sets a proof as it was sent to be printed.
  Outcome<AsPdf> proofOf(const std::string& id, std::optional<Int> version, bool repaired) const;
  Outcome<ShareAnswer> share(const std::string& id, const Json& body, const std::string& by);
  Done setApprovers(const Json& body, const std::string& by);
  // The ticket that a link of that key leads to or once led to; none when there never was one.
  struct Linked {
    std::string ticket;
    bool renewed = false;
    bool enabled = false;
  };
  std::optional<Linked> linkedBy(const std::string& key) const;

  // Jobs and people.
  Done startJob(const Json& body, const std::string& by);
  Done stopJob(const std::string& id, const std::string& by);
  // A JPEG, whole, of no more than 4 MB and 2048 pixels a side.
  Done setPhoto(std::string bytes, const std::string& by);
  // Someone comes to the board, without figures for `counted` false, or leaves it.
  Done addPerson(const std::string& email, const std::string& name, bool counted);
  Done removePerson(const std::string& email);

  // How the worker goes on from now. It stays at the step of the name `hold`, "queued" for the line
  // ahead of the first, empty for nowhere; the job at work, else the next one, fails with `failure`
  // as what is to check; and it says nothing at all any more, until it is told not to be `silent`.
  Done setWorker(std::optional<std::string> hold, std::optional<std::string> failure,
                 std::optional<bool> silent);

  // Everyone asked who has not answered says now what `kind` tells, "approved" or "changes"; only
  // `approver`, when one is named.
  Done answerNow(const std::string& id, const std::string& approver, const std::string& kind,
                 const std::string& note);
  // From now on approvers answer, and checks end, only when asked to, or again by themselves.
  void setWaits(std::optional<bool> approvers, std::optional<bool> checks);

  // The check finds so many more changed words on that page, one below the other.
  Done findMore(const std::string& fileId, Int page, Int count);
  // The other reviewer does something now; `fileId` empty for a ticket of the colleague's choice.
  Done colleagueActs(const std::string& fileId, const std::string& text, const std::string& by,
                     const std::vector<std::string>& tags = {});

 private:
  struct Happening {
    double at = 0;
    std::function<void()> what;
  };

  void openPeople(double now);
  void open(double now);
  void openRounds();
  void openNotes();
  void openJobs();
  void remember(const Job& job, const std::vector<FileDetail>& tickets);
  Ticket* find(const std::string& id);
  std::pair<Ticket*, Finding*> findFinding(const std::string& id);
  FileItem itemOf(const Ticket& ticket) const;
  void later(double wait, std::function<void()> what);
  void record(Ticket* ticket, const std::string& kind, std::optional<std::string> by,
              const std::string& text, std::optional<Int> page = {});
  void touch(Ticket* ticket);
  std::string nameOf(const std::string& email) const;
  std::string secret();
  std::string nextId(const std::string& prefix);
  ShareInfo& shareOf(Ticket& ticket, const std::string& by);
  void renewLinks(Ticket& ticket);
  double dueOf(const FileItem& item) const;
  void answerRound(const std::string& id, double requestedAt, const std::string& approver);
  void answer(Ticket& ticket, const std::string& approver, const std::string& kind,
              std::optional<std::string> note);
  // A revision that is being read and compared beside.
  struct Check {
    std::string id;
    Int version = 0;
    double due = 0;
    std::shared_future<PdfReading> reading;
    std::future<Changes> changes;
    bool read = false;
  };
  Kept layOver(const KeptBoard& board, const KeptReading& from);
  Kept keepFiles();
  void takeUpJobs();
  void takeUpVersions(Ticket& ticket);
  void awaitAnswers(const Ticket& ticket);
  void outdateApproval(Ticket& ticket, std::optional<std::string> by);
  void compareBeside(Ticket& ticket, TicketVersion& version);
  void goOnWithChecks();
  void showPages(const Check& check);
  void finishCheck(Check& check);
  bool holdsOwn() const;
  void askForOwn(const std::string& by);
  void beginOwn();
  void takeCame(const Job& job, std::vector<Came> all);
  void goOnWithOwn();
  void beginCheck(OwnRun& run);
  void takeNews(Ticket& ticket, TicketVersion& version, const CheckNews& news);
  void loseProof(Ticket& ticket, TicketVersion& version, bool unread);
  void tellRefs(Ticket& ticket, TicketVersion& version);
  void tellStep(Job& job, const std::string& ahead, const std::string& step);
  void endCheck(Ticket& ticket, TicketVersion& version);
  void finishOwn(Job& job);
  void sumUp(Ticket& ticket, TicketVersion& version, std::optional<std::string> summary);
  void tellStopped();
  void letOwnGo();
  struct Worker {
    std::optional<OwnRun> own;
    std::vector<std::unique_ptr<VersionCheck>> ending;   // stopped, or done
    std::vector<std::future<std::vector<Came>>> looked;  // of runs that were stopped
    std::string hold;
    std::string failure;
    bool silent = false;
    Int silences = 0;
    Int turn = 0;                                   // what was planned for an earlier one is off
    std::vector<FileDetail> gathered;               // what the job at work is about
    std::future<std::string> pdf;                   // of a report, drawn beside
    bool waitsForPdf = false;                       // nothing else is left to do
    std::vector<std::future<std::string>> dropped;  // drawn for a job that was stopped
  };
  Job* runningJob();
  Job* nextInLine();
  std::vector<Job*> liveJobs();  // oldest first
  void goOn(double wait);
  void work();
  void begin(Job& job);
  void letGo();
  void giveWay(Job& stuck);
  void nextStep(Job& job);
  void goOnWithReport();
  void watchSilence();
  void end(Job& job, const std::string& status, std::optional<Summary> summary);
  void finishSync(Job& job);
  void finishReport(Job& job);
  ReportAsked reportOn(const std::vector<FileDetail>& tickets) const;
  void scheduleColleague();

  Pictures& pictures_;
  OwnFolder own_;
  std::mutex looking_;  // around every use of it once there is a sync
  std::string address_;
  bool books_ = true;
  double opened_ = 0;
  double now_ = 0;
  double pace_ = 1;
  Int rev_ = 100;
  Int nextEvent_ = 1;
  Int nextNumber_ = 1;
  std::minstd_rand colleague_{17};
  std::vector<Person> users_;
  std::set<std::string> uncounted_;  // of whom there are no figures
  std::vector<Guest> guests_;
  std::vector<Guest> approvers_;
  std::vector<Ticket> tickets_;
  std::vector<Event> events_;  // oldest first
  std::vector<Job> jobs_;      // newest first; a sync is kept apart
  std::optional<Job> sync_;
  std::vector<Job> oldSyncs_;    // no longer on the board
  std::vector<Report> reports_;  // newest first
  std::map<std::string, std::string> pdfs_;
  std::map<std::string, std::string> logs_;  // by job
  Worker worker_;
  std::map<std::string, std::string> tokens_;                         // to e-mail
  std::map<std::string, std::pair<std::string, std::string>> codes_;  // to e-mail and nonce
  std::map<std::string, std::string> links_;  // every link's key there ever was, to its ticket
  std::vector<Happening> happenings_;
  std::vector<Check> checks_;  // oldest first
  bool approversWait_ = false;
  bool checksWait_ = false;
  struct Keeping {
    Shelf* shelf = nullptr;
    Int starts = 0;
    Int rev = 0;
    bool more = false;                   // beside what counts the revision on
    std::map<std::string, Int> tickets;  // at which revision
    std::size_t events = 0;
    std::set<std::string> files;
  };
  Keeping keeping_;
};

}  // namespace vellix::demo
