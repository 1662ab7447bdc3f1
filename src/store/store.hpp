// The one object that holds the client's state. Screens read it, redraw when it tells of a change,
// and change it only through its operations. Created once per process. Main thread only; its
// operations interleave only where they wait.
#pragma once

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "gateway/api.hpp"
#include "gateway/sign_in.hpp"
#include "records/records.hpp"
#include "store/ahead.hpp"
#include "store/ports.hpp"
#include "store/prefs.hpp"
#include "store/published.hpp"
#include "store/toast.hpp"

namespace vellix {

enum class CompareMode { side, overlay, blink };
struct NoteBody;
struct Staged;

class Store {
 public:
  using Ports = StorePorts;
  // What is passed must outlive the Store. Starts nothing.
  Store(API& api, SignIn& signIn, Prefs& prefs, Ports ports);
  Store(const Store&) = delete;
  Store& operator=(const Store&) = delete;

  enum Field : Changes::Fields {
    kSignedIn = 1 << 0,
    kBoard = 1 << 1,
    kDetails = 1 << 2,
    kSelection = 1 << 3,
    kPage = 1 << 4,
    kFocus = 1 << 5,
    kCanvas = 1 << 6,  // against, mode, zoom and shown
    kProblem = 1 << 7,
    kLastOK = 1 << 8,
    kToast = 1 << 9,
    kDraft = 1 << 10,   // the note being written: pinning and the drafts
    kPanels = 1 << 11,  // notesDrawer, notesFloat, profile, sideTab and showActivity
    kViewVersion = 1 << 12,
    kStats = 1 << 13,
    kBusy = 1 << 14,
    kRefreshing = 1 << 15,
    kQueue = 1 << 16,  // queue and mineOnly
  };
  // A poll has ended, well or not: time has passed.
  static constexpr Changes::Fields kPolled = kLastOK | kProblem;
  static constexpr Changes::Fields kAny = ~Changes::Fields{0};
  Changes changes;

  Published<bool> signedIn;
  Published<std::optional<BoardState>> board{changes, kBoard};
  Published<std::map<std::string, FileDetail>> details{changes, kDetails};  // by ticket id
  Published<std::set<std::string>> selection{changes, kSelection};
  Published<std::map<std::string, Int>> page{changes, kPage};  // ticket id to 0-based page
  Published<std::optional<std::string>> focus{changes, kFocus};
  Published<CompareMode> mode{changes, kCanvas, CompareMode::side};
  Published<std::optional<std::string>> problem{changes, kProblem};
  Published<std::optional<Moment>> lastOK{changes, kLastOK};
  Published<std::optional<Toast>> toast{changes, kToast};
  Published<std::optional<DraftNote>> draft{changes, kDraft};
  Published<double> zoom{changes, kCanvas, 1.0};
  Published<bool> notesDrawer{changes, kPanels, false};
  Published<bool> notesFloat{changes, kPanels, false};
  Published<std::set<std::string>> shown{changes, kCanvas, {"supplier", "submitted", "third"}};
  Prefs& prefs;
  Published<std::set<std::string>> busy{changes, kBusy};
  Published<bool> refreshing{changes, kRefreshing, false};
  Published<bool> showActivity{changes, kPanels, false};
  Published<std::string> queue;  // "reprint", "new_title", or none chosen yet
  Published<bool> mineOnly;
  Published<std::map<std::string, Int>> viewVersion{changes, kViewVersion};  // older, by ticket id
  Published<std::string> sideTab{changes, kPanels, "page"};
  Published<std::optional<std::string>> profile{changes, kPanels};  // whose page is open
  Published<std::optional<Stats>> stats{changes, kStats};
  // For what is still to come: no screen reads these, and nothing but staging sets one.
  Published<std::string> against{changes, kCanvas, "submitted"};
  Published<bool> pinning{changes, kDraft, false};
  Published<std::optional<std::pair<double, double>>> draftPin{changes, kDraft};
  Published<std::optional<std::string>> draftFinding{changes, kDraft};
  bool sample = false;  // staged without a server: all polling is off
  std::optional<std::string> etag;
  std::map<std::string, std::string> fileTags;  // "{id}#{version}" to Etag
  Int seenEvent = 0;
  const Moment started;

  // The refresh loop and the poll.
  void startLoop();
  bool looping() const { return loop_.has_value(); }
  Task<> refresh(std::stop_token stop = {});
  void requestRefresh();  // by hand: says how it went
  bool anyJobActive() const;
  std::map<std::string, const Person*> usersByEmail() const;
  Int openCount() const;  // of the user's own tickets

  // The session.
  Task<> signIn();
  void open(std::string url);  // a URL opened from outside
  Task<> completeSignIn(std::string url);
  void resume();  // takes up a session whose token was found only after the start
  void signOut(bool expired);

  // What is on show. Pointers belong to the Store and die with its next change.
  const FileItem* currentFile() const;
  const FileDetail* currentDetail() const;
  std::string effectiveQueue() const;
  std::vector<const FileItem*> filesInQueue(std::string_view queue) const;
  void setQueue(std::string value);
  void setMineOnly(bool flag);
  void reconcileSelection();
  // These alone, and no finding, in front of whatever page was open.
  void select(std::set<std::string> tickets);
  void toggleSelected(const std::string& ticket);
  void toggleFocus(const std::string& finding);
  void clearFocus();
  Task<> loadDetail(FileItem file, bool force, std::stop_token stop = {});
  // The ticket comes on show: starts an unforced loadDetail. Of several in a row only the last few
  // go on.
  void requestDetail(FileItem file);
  void stepPage(const FileDetail& detail, Int delta);
  void goToPage(const std::string& id, Int index);
  void showVersion(FileItem file, Int n);  // from its first page on, and no finding
  static constexpr double kZoomIn = 1.25;
  static constexpr double kZoomOut = 0.8;
  void stepZoom(double factor);
  void zoomTo(double value);  // held to 1.0 and 4.0; what is no number changes nothing
  void fitZoom();
  void setMode(CompareMode value);
  // Shows a hidden pane, hides a shown one. The last one stays.
  void togglePane(const std::string& key);
  bool notesOpen() const;
  void toggleNotes();
  void setNotesFloat(bool flag);  // told by the layout
  void setShowActivity(bool flag);
  void setSideTab(std::string tab);     // "page", "history"
  void dismissToast(std::uint64_t id);  // nothing once another has come
  void undoToast();                     // runs its undo and takes it away at once
  // Without a service, for a picture of the window.
  void pollNothing() { sample = true; }
  void stage(Staged staged);

  // Actions on the service.
  using Work = std::function<Task<API::Result<Done>>()>;
  void action(std::string key, std::optional<std::string> ok, Work work);
  void setFindingState(Finding finding, std::string state);
  // `page` is 0-based, `tags` are addresses. Takes the place from the draft and ends it. A text of
  // blanks does nothing.
  void addNote(std::string text, FileItem file, Int page, std::vector<std::string> tags,
               std::optional<std::string> findingID = std::nullopt);
  // On the page as a whole: a draft goes on.
  void addPageNote(std::string text, FileItem file, Int page, std::vector<std::string> tags);
  // In place of the draft there was. Written on the supplier's page, it shows that pane.
  void beginDraft(DraftNote note);
  void dropDraft();
  // What is none stays as it is.
  void updateNote(Note note, std::optional<std::string> text, std::optional<bool> resolved,
                  bool remove = false);
  void setStatus(FileItem file, std::string status);
  void assign(FileItem file, std::string email);
  void setDueDate(FileItem file, Moment date);
  void setUrgent(FileItem file, bool urgent);
  void resetDue(FileItem file);
  void setTrack(FileItem file, std::string track);
  // `approvers` are addresses. `after` is what follows: "notion" or "gmail", or nothing.
  void requestApproval(FileItem file, std::vector<std::string> approvers, std::string note,
                       std::string after);
  void withdrawApproval(FileItem file);
  void markApprovalSent(FileItem file);
  void saveApprovers(const std::vector<Guest>& list);  // in place of all there were
  // Sends the PDF at the local path. One at a time: a second press does nothing.
  void uploadRevision(FileItem file, std::string path, std::string note);
  // What is none stays as it is.
  void setShare(FileItem file, std::optional<bool> enabled, std::optional<std::string> access,
                bool reset);
  void requestSync();
  void requestReport(std::vector<std::string> fileIDs);
  void stopJob(const Job& job);
  // How long a report usually takes, in seconds, by those on the board.
  double typicalReportSeconds() const;
  // When a report that waits or is being made will be there, in words.
  std::string reportEstimate(const Job& job, Moment now) const;

  // Fetches the PDF into the person's downloads and opens it there. A second press while it is
  // under way does nothing.
  void openReport(Report report);
  // Makes the person's photo of the picture at the local path. One at a time.
  void changePhoto(std::string path);

  // Whose page is open: an address, or none. What it shows is fetched anew.
  void openProfile(std::optional<std::string> email);
  // What cannot be had leaves the figures as they are.
  Task<> loadStats(std::stop_token stop = {});

  // Out to the clipboard and the browser. Where there is no link, nothing happens.
  void copyLink(const FileItem& file);
  void copyNotionLink(const FileItem& file);
  void openLink(const FileItem& file);
  void composeApprovalMail(const FileItem& file, const std::vector<std::string>& emails,
                           const std::string& link);
  void openGmailCompose(const std::vector<std::string>& to, const std::string& subject,
                        const std::string& body);

 private:
  using Session = std::uint64_t;  // counts sessions: an answer to one is not for the next
  template <class T>
  static bool isUnchanged(const API::Result<API::Answer<T>>& answer) {
    return answer && answer->response.status == 304;
  }
  Task<> runLoop(std::stop_token stop);
  Task<API::Result<API::Answer<BoardState>>> fetchBoard(std::stop_token stop);
  Milliseconds pause() const;
  void noticeNewEvents(const BoardState& fresh);
  void updateBadge();
  void noteProblem(const Failure& failure, Session session);
  Task<> refreshNow(Session session);
  Task<> beginSession();
  void endSession();
  Task<> logOut();
  // What is asked in `session` is asked, told of and fetched for in no other.
  Task<> runAction(std::string key, std::optional<std::string> ok, Work work, Session session);
  Task<> runUndoable(std::string key, Work work, Toast done, std::string failed, bool ahead,
                     Session session);
  Task<bool> settle(Work work, Toast done, std::string failed, Session session);
  Task<> pollWhole();
  Task<API::Result<Done>> thenReload(Task<API::Result<Done>> call, std::optional<FileItem> file);
  // Does nothing once the Store or the session has ended.
  std::function<void()> undo(std::function<void(Store&)> work) const;
  Task<> sendFindingState(Finding finding, std::string state, std::string text,
                          std::optional<DecidedAhead> ahead, Session session);
  // Posts what is shown ahead as of `shown`, if it is, and notes whether the service took it.
  template <class Body>
  Task<API::Result<Done>> tellAhead(Ahead<Told>& ahead, std::string id, std::optional<Order> shown,
                                    std::string path, Body body);
  Order order() { return ++lastOrder_; }
  std::optional<std::string> myEmail() const;
  // Since when the board shows it; none when it does not.
  std::optional<Order> reviewLocally(const std::string& id);
  void layOver(FileDetail& detail, Order asked);
  void layOver(BoardState& fresh, Order asked);
  void advanceAfterReview(BoardState changed, const std::string& id);
  // The ticket to review first, other than `except`; null when none waits.
  static const FileItem* firstDue(const std::vector<const FileItem*>& files,
                                  std::string_view except = {});
  void choose(std::set<std::string> tickets);  // whatever page is open stays in front
  void endDraft();
  void sendNote(NoteBody body, FileItem file);
  void focusNextOpen(const Finding& decided);
  const FileDetail* heldDetail(const std::string& id, Int version) const;  // null when none
  void prefetchAround(const std::string& id);
  // None when nothing shows it.
  std::optional<DecidedAhead> decideLocally(const Finding& finding, const std::string& state);
  Task<> loadDoubted(std::stop_token stop = {});
  Task<> reloadCurrentDetail();
  using Heard = std::function<void(const Json::Object&)>;
  // Posts. What the service says to it is for the session that asked.
  template <class Body>
  Task<API::Result<Done>> tell(std::string path, Body body, Heard heard = nullptr);
  Task<> fetchReport(Report report, std::string key, Session session);
  Task<API::Result<Done>> keepAndOpen(Report report, Session session);
  Task<> sendPhoto(std::string path, Session session);
  Task<API::Result<Done>> putPhoto(std::string jpeg);
  Task<> sendRevision(FileItem file, std::string path, std::string note, Session session);
  Task<> putRevision(FileItem file, std::string path, std::string note, Session session);
  Task<> takeUpRevision(FileItem file, Int n, Session session);
  std::stop_token sessionEnd() const;        // told when nobody waits for an answer any more
  bool holds(const std::string& key) const;  // for this session
  void hold(const std::string& key);
  void letGo(const std::string& key, Session session);
  void spawn(Task<> task);  // begins in a later turn

  API& api_;
  SignIn& signIn_;
  Ports ports_;
  std::optional<std::stop_source> loop_;
  std::deque<std::stop_source> asked_;  // of the last details that were requested
  Session session_ = 0;
  std::map<std::string, Session> holders_;  // of the busy keys: who took each last
  std::set<std::string> doubted_;           // ids of tickets whose detail here is not the service's
  Order lastOrder_ = 0;
  Order statsAsked_ = 0;                                           // of the figures that are held
  Ahead<Told> decided_;                                            // by finding id
  Ahead<Told> reviewed_;                                           // by ticket id
  std::shared_ptr<Store*> self_ = std::make_shared<Store*>(this);  // held weakly by callbacks
  TaskScope tasks_;
};

}  // namespace vellix
