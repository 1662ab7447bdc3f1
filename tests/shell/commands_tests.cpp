// The menu bar's words, shortcuts and commands.
#include "shell/commands.hpp"

#include "store/store_test.hpp"

namespace vellix {
namespace {

class Commands : public StoreTest {
 protected:
  explicit Commands(std::optional<std::string> token = "token-1") : StoreTest(std::move(token)) {}

  CommandView entry(const std::string& key) {
    for (const auto& menu : menuBar(store())) {
      for (const auto& one : menu.entries) {
        if (one.key == key) return one;
      }
    }
    ADD_FAILURE() << "no command " << key;
    return {};
  }
  bool enabled(const std::string& key) { return entry(key).enabled; }
  std::string text(const std::string& key) { return entry(key).text; }
  void run(const std::string& key) {
    runCommand(store(), key);
    desk.time.run();
  }
  void serveOne() {
    serveBoard(boardOf({ticketAt("t1", 1), ticketAt("t2", 1)}));
    serveDetail(detailOf(ticketAt("t1", 1)));
    poll();
  }
};

class SignedOutCommands : public Commands {
 protected:
  SignedOutCommands() : Commands(std::nullopt) {}
};

TEST_F(Commands, StandInTheirMenusInOrder) {
  std::vector<std::string> lines;
  for (const auto& menu : menuBar(store())) {
    lines.push_back("[" + menu.title + "]");
    for (const auto& one : menu.entries) {
      lines.push_back(one.key.empty() ? "-" : one.text + " " + one.shortcut);
    }
  }
  EXPECT_EQ(lines, (std::vector<std::string>{"[Vellix]",
                                             "Change my photo… ",
                                             "Sign out ",
                                             "-",
                                             "Settings… Ctrl+,",
                                             "-",
                                             "Quit Vellix Ctrl+Q",
                                             "[Review]",
                                             "Sync Ctrl+Shift+S",
                                             "Refresh Ctrl+R",
                                             "-",
                                             "Make report Ctrl+Shift+P",
                                             "Mark reviewed Ctrl+D",
                                             "-",
                                             "Activity Ctrl+Y",
                                             "[View ]",
                                             "Zoom in Ctrl+=",
                                             "Zoom out Ctrl+-",
                                             "Fit the page Ctrl+0",
                                             "-",
                                             "Hide notes Ctrl+Alt+I",
                                             "Hide the page strip "}));
}

std::string lineOf(const ShortcutView& one) {
  std::string line = one.key + (one.enabled ? "" : " (off)") + (one.repeats ? " (repeats)" : "") +
                     (one.everywhere ? " (everywhere)" : "") + (one.listed ? "" : " (unlisted)");
  for (const auto& sequence : one.sequences) line += " " + sequence;
  return line;
}

TEST_F(SignedOutCommands, HaveTheirShortcuts) {
  std::vector<std::string> lines;
  for (const auto& one : shortcuts(store())) lines.push_back(lineOf(one));
  EXPECT_EQ(lines,
            (std::vector<std::string>{
                "settings (everywhere) Ctrl+,", "quit (everywhere) Ctrl+Q",
                "sync (off) Ctrl+Shift+S", "refresh (off) Ctrl+R", "report (off) Ctrl+Shift+P",
                "markReviewed (off) Ctrl+D", "activity Ctrl+Y", "zoomIn (repeats) Ctrl+= Ctrl++",
                "zoomOut (repeats) Ctrl+-", "fitPage Ctrl+0", "notes Ctrl+Alt+I",
                "nextPart (off) (unlisted) F6", "previousPart (off) (unlisted) Shift+F6",
                "nextTicket (off) (repeats) (unlisted) Alt+Down",
                "previousTicket (off) (repeats) (unlisted) Alt+Up"}));
}

TEST_F(Commands, HaveTheirShortcutsWhileTheyAreOffered) {
  serveOne();
  for (const auto& one : shortcuts(store())) {
    EXPECT_EQ(one.enabled, isEnabled(store(), one.key)) << one.key;
    EXPECT_TRUE(!one.listed || one.enabled == enabled(one.key)) << one.key;
  }
}

TEST_F(SignedOutCommands, OffersOnlyWhatNeedsNoSession) {
  std::vector<std::string> offered;
  for (const auto& menu : menuBar(store())) {
    for (const auto& one : menu.entries) {
      if (!one.key.empty() && one.enabled) offered.push_back(one.key);
    }
  }
  EXPECT_EQ(offered, (std::vector<std::string>{"settings", "quit", "activity", "zoomIn", "zoomOut",
                                               "fitPage", "notes", "pageStrip"}));
}

TEST_F(SignedOutCommands, ADisabledOneDoesNothing) {
  for (const char* key : {"signOut", "sync", "refresh", "report", "markReviewed"}) run(key);
  EXPECT_TRUE(lines().empty());
  EXPECT_FALSE(store().refreshing());
  EXPECT_TRUE(store().busy().empty());
}

TEST_F(Commands, ChangeOnePhotoAtATime) {
  EXPECT_TRUE(enabled("changePhoto"));
  store().busy.set({"photo"});
  EXPECT_FALSE(isEnabled(store(), "changePhoto"));
  EXPECT_FALSE(isEnabled(store(), "nothing"));
}

TEST_F(Commands, LeaveATicketBehindAPersonsPageAlone) {
  serveOne();
  store().profile.set("renny@tessarine.example");
  for (const char* key : {"report", "markReviewed"}) {
    EXPECT_FALSE(enabled(key)) << key;
    run(key);
    EXPECT_EQ(desk.http.count("POST"), 0U) << key;
  }
}

TEST_F(Commands, OfATicketNeedExactlyOne) {
  for (const char* key : {"report", "markReviewed"}) EXPECT_FALSE(enabled(key)) << key;
  serveOne();
  for (const char* key : {"report", "markReviewed"}) {
    EXPECT_TRUE(enabled(key)) << key;
    store().selection.set({"t1", "t2"});
    EXPECT_FALSE(enabled(key)) << key;
    run(key);
    EXPECT_EQ(desk.http.count("POST"), 0U) << key;
    store().selection.set({});
    EXPECT_FALSE(enabled(key)) << key;
    store().selection.set({"t1"});
  }
}

TEST_F(Commands, MarkTheTicketOnShowReviewed) {
  serveOne();
  run("markReviewed");
  ASSERT_EQ(desk.http.count("POST api/files/t1/status"), 1U);
  EXPECT_EQ(desk.http.exchanges.back().request.body, R"({"status":"reviewed"})");
  EXPECT_EQ(store().board()->files[0].status, "reviewed");
}

TEST_F(Commands, DoNotMarkReviewedTwiceAtATime) {
  serveOne();
  runCommand(store(), "markReviewed");
  store().selection.set({"t1"});
  EXPECT_FALSE(enabled("markReviewed"));
  runCommand(store(), "markReviewed");
  desk.time.run();
  EXPECT_EQ(desk.http.count("POST api/files/t1/status"), 1U);
  routes.set("POST api/files/t1/status", answerOf(200, "{}"));
  answer(desk.http.exchanges.size() - 1, answerOf(200, "{}"));
  ASSERT_EQ(desk.toastText(), "Marked reviewed.");
  desk.toast()->undo();
  desk.time.run();
  EXPECT_EQ(*desk.http.matching("POST api/files/t1/status").back()->request.body,
            R"({"status":"new"})");
  EXPECT_TRUE(enabled("markReviewed"));
}

// The last open ticket stays selected, and a second press may come after the answer.
TEST_F(Commands, DoNotMarkReviewedWhatIs) {
  serveOne();
  FileItem reviewed = store().board()->files[0];
  reviewed.status = "reviewed";
  store().board.set(boardOf({reviewed}));
  store().selection.set({"t1"});
  EXPECT_FALSE(enabled("markReviewed"));
  runCommand(store(), "markReviewed");
  desk.time.run();
  EXPECT_EQ(desk.http.count("POST api/files/t1/status"), 0U);
}

TEST_F(Commands, DoNotAskForASyncTwiceAtATime) {
  runCommand(store(), "sync");
  EXPECT_FALSE(enabled("sync"));
  run("sync");
  EXPECT_EQ(desk.http.count("POST api/jobs"), 1U);
}

TEST_F(Commands, AskForNoSyncWhileOneStands) {
  for (const char* status : {"queued", "running"}) {
    BoardState board = boardOf({});
    board.sync = jobOf(status, "sync");
    store().board.set(board);
    EXPECT_FALSE(enabled("sync")) << status;
    run("sync");
  }
  EXPECT_EQ(desk.http.count("POST api/jobs"), 0U);
  for (const char* status : {"done", "stuck"}) {
    BoardState board = boardOf({});
    board.sync = jobOf(status, "sync");
    store().board.set(board);
    EXPECT_TRUE(enabled("sync")) << status;
  }
  run("sync");
  EXPECT_EQ(desk.http.count("POST api/jobs"), 1U) << "of one that was given up";
}

TEST_F(Commands, AskForNoSecondReportOnTheSameTicket) {
  serveOne();
  runCommand(store(), "report");
  EXPECT_FALSE(enabled("report"));
  run("report");
  EXPECT_EQ(desk.http.count("POST api/jobs"), 1U);
  answer(desk.http.exchanges.size() - 1, answerOf(409));
  BoardState board = *store().board();
  board.jobs = {jobOf("running")};
  board.jobs[0].args = JobArgs{.file_ids = std::vector<std::string>{"t1"}};
  store().board.set(board);
  EXPECT_FALSE(enabled("report"));
  run("report");
  EXPECT_EQ(desk.http.count("POST api/jobs"), 1U);
  store().selection.set({"t2"});
  EXPECT_TRUE(enabled("report"));
}

TEST_F(Commands, AskForASync) {
  routes.set("POST api/jobs", answerOf(200, "{}"));
  run("sync");
  EXPECT_EQ(desk.http.count("POST api/jobs"), 1U);
  EXPECT_EQ(desk.toastText(), "Asked the Mac mini to sync.");
}

TEST_F(Commands, AskForTheReportOfTheTicketOnShow) {
  serveOne();
  routes.set("POST api/jobs", answerOf(200, "{}"));
  store().selection.set({"t2"});
  run("report");
  const auto sent = std::ranges::find_if(
      desk.http.exchanges, [](const auto& exchange) { return exchange.line() == "POST api/jobs"; });
  ASSERT_NE(sent, desk.http.exchanges.end());
  EXPECT_EQ(sent->request.body, R"({"kind":"report","file_ids":["t2"]})");
  EXPECT_EQ(desk.toastText(), "Asked the Mac mini for the report.");
}

TEST_F(Commands, ActivityIsShownAndHidden) {
  run("activity");
  EXPECT_TRUE(store().showActivity());
  run("activity");
  EXPECT_FALSE(store().showActivity());
}

TEST_F(Commands, RefreshIsTheManualOne) {
  serveOne();
  runCommand(store(), "refresh");
  EXPECT_TRUE(store().refreshing());
  desk.time.run();
  EXPECT_FALSE(store().refreshing());
  EXPECT_EQ(desk.toastText(), "Up to date.");
}

TEST_F(Commands, SignOutIsTheUsersOwn) {
  serveOne();
  run("signOut");
  EXPECT_FALSE(store().signedIn());
  EXPECT_FALSE(desk.toast());
  EXPECT_EQ(desk.http.count("POST api/logout"), 1U);
}

TEST_F(Commands, ZoomByTheirSteps) {
  run("zoomIn");
  EXPECT_EQ(store().zoom(), 1.25);
  run("zoomIn");
  EXPECT_EQ(store().zoom(), 1.5);
  run("zoomOut");
  EXPECT_EQ(store().zoom(), 1.25);
  run("fitPage");
  EXPECT_EQ(store().zoom(), 1.0);
}

TEST_F(Commands, TheNotesFollowThePreferenceWhileDocked) {
  EXPECT_EQ(text("notes"), "Hide notes");
  run("notes");
  EXPECT_FALSE(store().prefs.showNotes());
  EXPECT_EQ(text("notes"), "Show notes");
}

TEST_F(Commands, TheNotesFollowTheDrawerWhileFloating) {
  store().notesFloat.set(true);
  EXPECT_EQ(text("notes"), "Show notes");
  run("notes");
  EXPECT_TRUE(store().notesDrawer());
  EXPECT_TRUE(store().prefs.showNotes());
  EXPECT_EQ(text("notes"), "Hide notes");
}

TEST_F(Commands, ThePageStripIsFlippedAndKept) {
  run("pageStrip");
  EXPECT_EQ(text("pageStrip"), "Show the page strip");
  EXPECT_EQ(desk.defaults.flag("ShowPageStrip"), false);
  run("pageStrip");
  EXPECT_EQ(text("pageStrip"), "Hide the page strip");
}

TEST_F(Commands, AnUnknownOneAndASeparatorDoNothing) {
  serveOne();
  const auto before = lines();
  run("");
  run("settings");
  run("quit");
  run("nonsense");
  EXPECT_EQ(lines(), before);
  EXPECT_TRUE(store().signedIn());
}

TEST_F(Commands, AreOutOfReachBehindWhatCoversTheWindow) {
  serveOne();
  std::vector<std::string> left;
  for (const auto& menu : menuBar(store(), true)) {
    for (const auto& one : menu.entries) {
      if (one.enabled && !one.key.empty()) left.push_back(one.key);
      EXPECT_EQ(isEnabled(store(), one.key, true), one.key == "quit") << one.key;
    }
  }
  EXPECT_EQ(left, std::vector<std::string>{"quit"});
  for (const auto& one : shortcuts(store(), true)) {
    EXPECT_EQ(one.enabled, one.key == "quit") << one.key;
  }
}

}  // namespace
}  // namespace vellix
