// Every view there is loads and paints, small and large, without a warning.
#include <QDir>
#include <QQmlComponent>

#include "pieces/Symbol.hpp"
#include "shell/mark_lab.hpp"
#include "views/view_test.hpp"

namespace vellix {
namespace {

class EveryView : public ViewTest {
 protected:
  EveryView() {
    serveTheDay();
    store().stats.set(Stats{.users = {{store().board()->me.email, PersonStats{}}}});
    store().profile.set(store().board()->me.email);
    updater().latest.set(VersionInfo{.version = "9.9",
                                     .build = 99,
                                     .url = "https://pages.tessarine.example/",
                                     .notes = "Faster pages."});
    models();
    store().profile.set(std::nullopt);
    desk.time.run();
    panel_.setData("import QtQuick\nItem {}", {});
    QQmlComponent flickable{engine()};
    flickable.setData("import QtQuick\nFlickable {}", {});
    flick_.reset(flickable.create());
    // Values like those that the models bring.
    const QVariantMap due{{"text", "Overdue 5 min"},
                          {"shortText", "Late 5 min"},
                          {"tinyText", "Late 5 min"},
                          {"icon", "clock"},
                          {"tone", "red"}};
    const QVariant pill =
        toQml(PillView{.text = "Changes", .icon = "arrow.uturn.backward", .tone = "red"});
    const QVariantMap count{
        {"text", "2"}, {"icon", ""}, {"tone", "red"}, {"help", "2 real issues"}};
    const QVariantMap who{
        {"letter", "r"}, {"color", "#7442e8"}, {"photo", "photo-1"}, {"help", "Renny Vale"}};
    const QVariantMap ticket{{"id", "t1"},        {"heading", "The Lighthouse"},
                             {"subline", "PO 7"}, {"thumb", "thumb-1"},
                             {"due", due},        {"count", count},
                             {"approval", pill},  {"spoken", "PO 7"},
                             {"selected", true},  {"assignee", who}};
    const QVariantMap lab{{"lab", toQml(markLab())}, {"symbols", Symbol::names()}};
    const QVariantList wordings{toQml(WordingView{"What we sent", "light"}),
                                toQml(WordingView{"Supplier file", ""})};
    const Box quarter{0.25, 0.25, 0.25, 0.25};
    const QVariant noteMark = toQml(NoteMarkView{"n1", 1, quarter, true, "Renny: here", "Note 1"});
    const QVariant draftMark = toQml(DraftMarkView{true, quarter, true, "Note on this area"});
    const QVariant crop = toQml(CropView{.img = "supplier-0",
                                         .aspect = 0.75,
                                         .part = quarter,
                                         .boxes = {quarter},
                                         .colour = "accent",
                                         .label = "Harrow Print file"});
    const QVariant chip = toQml(TagChipView{"jorvas@tessarine.example", "Jorvas Lind", "#1a84f0"});
    QVariantMap noteRow = toQml(NoteRowView{.id = "n1",
                                            .number = 12,
                                            .name = "Renny Vale",
                                            .when = "5 min ago",
                                            .text = "Too dark",
                                            .resolveHelp = "Resolve",
                                            .mine = true,
                                            .editable = true,
                                            .tagged = true})
                              .toMap();
    noteRow["who"] = who;
    noteRow["tags"] = QVariantList{chip};
    tags_ = pick("notes").second.value<NotesModel*>()->draftTags();
    const HistoryBlockView block{.head = "v1 · Supplier proof",
                                 .rows = {{.icon = "clock",
                                           .tone = "amber",
                                           .who = "Renny Vale",
                                           .said = "Asked Mara to approve",
                                           .when = "5 min ago"}}};
    const QVariantMap job =
        toQml(JobBlockView{
                  .key = "j",
                  .kind = "running",
                  .line = "Comparing p3",
                  .steps = stepsList({"Read the mail", "Comparing p3"}, true),
                  .footer = "Started by You · just now",
                  .stopKey = "stop-j",
                  .result = {.icon = "checkmark.circle.fill",
                             .title = "Done",
                             .tone = "green",
                             .lines = {{.key = "0", .text = "Filed 2 proofs", .icon = "checkmark"}},
                             .by = "By You"}})
            .toMap();
    own_ = {
        {"Approval/AddApprover", {{"example", "name@tessarine.example"}, {"canAdd", true}}},
        {"Approval/ApprovalCard", {pick("approval"), pick("send"), pick("upload")}},
        {"Approval/ApprovalPill", {{"pill", pill}}},
        {"Approval/ApprovalSheets", {pick("send"), pick("upload")}},
        {"Approval/ApproverAnswer",
         {{"answer", toQml(ApproverAnswerView{.email = "mara@tessarine.example",
                                              .name = "Mara Quell",
                                              .pill = {.text = "Waiting", .icon = "clock"},
                                              .spoken = "Mara Quell, Waiting"})}}},
        {"Approval/ApproversSection", {pick("approvers")}},
        {"Approval/ChangesAsked",
         {{"changes", toQml(ChangesAskedView{.email = "mara@tessarine.example",
                                             .line = "Mara asked for changes · 5 min ago",
                                             .note = "The spine is off"})}}},
        {"Approval/CheckedAgainst",
         {{"file", toQml(CheckedAgainstView{.label = "Checked against FBC:",
                                            .name = "fbc.pdf",
                                            .url = "https://files.example/fbc"})}}},
        {"Approval/HistoryBlock", {{"block", toQml(block)}}},
        {"Approval/HistoryList", {pick("history")}},
        {"Approval/HistoryRow", {{"event", toQml(block.rows.front())}}},
        {"Approval/RadioRow", {{"text", "Nothing"}, {"chosen", true}}},
        {"Approval/SectionTitle", {{"text", "APPROVERS"}}},
        {"Approval/ShareButton", {pick("share")}},
        {"Approval/VersionChip",
         {{"chip", toQml(VersionChipView{.n = 2, .badge = "v2", .caption = "Revision by Renny"})}}},
        {"Approval/VersionChips", {pick("approval")}},
        {"Board/ActivityButton", {pick("activity"), pick("pictures")}},
        {"Board/ActivityLine",
         {{"key", "7"},
          {"avatar", who},
          {"who", "Renny"},
          {"said", "marked reviewed"},
          {"when", "2 min ago"},
          {"where", "The Lighthouse · p3"},
          {"spoken", "Renny marked reviewed"},
          pick("pictures")}},
        {"Board/AssignButton", {pick("plan"), pick("pictures")}},
        {"Board/DueButton", {pick("plan")}},
        {"Board/DueChip", {{"due", due}}},
        {"Board/ReviewerRow",
         {{"person", toQml(ReviewerView{.name = "Renny Vale (you)", .chosen = true})},
          pick("pictures")}},
        {"Board/FileCount", {{"count", count}}},
        {"Board/FileRow", {{"ticket", ticket}, pick("pictures")}},
        {"Board/GroupHeader",
         {{"title", "Reviewed"}, {"folds", true}, {"open", false}, {"count", "3"}}},
        {"Board/FileLine",
         {{"index", 0},
          {"header", false},
          {"title", ""},
          {"folds", false},
          {"open", false},
          {"count", ""},
          {"ticket", ticket},
          {"kept", 0},
          pick("board"),
          pick("pictures")}},
        {"Board/FileList", {pick("board"), pick("pictures")}},
        {"Board/FileRows", {pick("board"), pick("pictures")}},
        {"Board/LiveDot", {pick("board"), {"room", 100}}},
        {"Board/PeopleBar", {pick("board"), pick("activity"), pick("pictures")}},
        {"Board/QueueSwitch", {pick("board")}},
        {"Board/Sidebar", {pick("board"), pick("activity"), pick("log"), pick("pictures")}},
        {"Board/SyncCard", {pick("board")}},
        {"Compare/CanvasBar",
         {pick("compare"), {"notesOpen", true}, {"notesHelp", "Hide the notes"}}},
        {"Compare/HandOver", {}},
        {"Compare/OverlayTools", {pick("compare")}},
        {"Compare/PageSteps", {pick("compare"), {"reach", 88}}},
        {"Compare/ZoomTools", {pick("compare"), {"reach", 44}}},
        {"Compare/CompareCanvas",
         {pick("compare"),
          pick("notes"),
          pick("pictures"),
          {"notesOpen", true},
          {"notesHelp", "Hide the notes"}}},
        {"Compare/StageBar", {{"view", QVariant::fromValue(flick_.get())}}},
        {"Ticket/FactTile", {{"label", "PO"}, {"value", "7781"}}},
        {"Ticket/FileHeader",
         {pick("file"), pick("report"), pick("plan"), pick("approval"), pick("send"),
          pick("upload"), pick("share"), pick("pictures")}},
        {"Ticket/FileView",
         {pick("file"),
          pick("report"),
          pick("plan"),
          pick("approval"),
          pick("send"),
          pick("upload"),
          pick("share"),
          pick("compare"),
          pick("notes"),
          pick("pictures"),
          {"panel", QVariant::fromValue(&panel_)}}},
        {"Ticket/HeaderWords", {{"header", models()["file"].value<FileModel*>()->header()}}},
        {"Ticket/TicketPanel",
         {{"side", models()["file"].value<FileModel*>()->notesPanel()},
          {"content", QVariant::fromValue(&panel_)},
          {"loaded", true},
          {"moves", true},
          {"foot", 48}}},
        {"Ticket/MultiView", {pick("file"), pick("report")}},
        {"Ticket/PageCell",
         {{"name", "12"},
          {"img", "supplier-0"},
          {"thumbHeight", 75},
          {"open", true},
          {"waiting", "2"},
          {"issues", "1"},
          {"notes", "1"},
          {"spoken", "2 to look at, 1 real issue, 1 note"},
          pick("pictures")}},
        {"Ticket/PageStrip", {pick("file"), pick("pictures")}},
        {"Jobs/ClaudeCritter", {{"busy", true}}},
        {"Jobs/ClaudeLog", {pick("log")}},
        {"Jobs/ClaudeLogButton", {pick("log")}},
        {"Jobs/JobBlock", {{"job", job}}},
        {"Jobs/JobFooter", {{"job", job}}},
        {"Jobs/JobHead", {{"job", job}}},
        {"Jobs/LogCard", {{"job", job}}},
        {"Jobs/LogHeading", {{"text", "Last sync"}}},
        {"Jobs/MarkedLine", {{"text", "Filed 2 proofs"}, {"icon", "checkmark"}}},
        {"Jobs/ReportRow",
         {{"report", toQml(ReportRowView{.key = "j",
                                         .icon = "checkmark.circle",
                                         .title = "Done",
                                         .tone = "green",
                                         .when = "5 min ago",
                                         .who = "You",
                                         .spoken = "Done, 5 min ago, You",
                                         .open = {.report = "r", .label = "Open the report"}})}}},
        {"Jobs/ResultBlock", {{"result", job["result"]}}},
        {"Jobs/StepsList", {{"list", job["steps"]}}},
        {"Jobs/TechnicalLog",
         {{"log", toQml(TechnicalLogView{.job = "j",
                                         .button = "Hide the technical log",
                                         .shown = true,
                                         .text = "09:41 began"})}}},
        {"Jobs/WorkingLine", {}},
        {"Jobs/ReportButtons", {pick("report")}},
        {"Jobs/ReportLines", {pick("report")}},
        {"Jobs/ReportWork", {pick("report")}},
        {"Ticket/ReviewActions", {pick("file"), pick("report")}},
        {"Compare/NoRef", {{"what", "No FBC for this page"}, {"why", "It was never made."}}},
        {"Compare/Crop",
         {pick("compare"), pick("pictures"), {"crop", crop}, {"ground", "#ffffff"}}},
        {"Compare/DraftOutline", {{"mark", draftMark}, {"picture", QSizeF{300, 400}}}},
        {"Compare/DrawLayer", {{"page", 0}}},
        {"Compare/Loupe", {pick("compare"), pick("pictures"), {"takesEscape", true}}},
        {"Compare/MiddleDrag", {{"scroll", QPointF{}}}},
        {"Compare/NoteMark",
         {{"mark", noteMark}, {"place", QRectF{20, 30, 80, 20}}, {"picture", QSizeF{300, 400}}}},
        {"Compare/NotePin", {{"number", 12}}},
        {"Compare/PageMarks",
         {pick("compare"),
          {"pane", "t1 supplier"},
          {"notes", QVariantList{noteMark}},
          {"draft", draftMark},
          {"draws", true},
          {"seen", true}}},
        {"Compare/Pane",
         {{"index", 0},
          {"key", "t1 supplier"},
          {"img", "supplier-0"},
          {"thumb", "small-0"},
          {"label", "Harrow Print file · p1"},
          {"tone", "purple"},
          {"missing", ""},
          {"missingWhy", ""},
          {"onStage", true},
          {"under", "submitted-0"},
          {"difference", true},
          {"notes", QVariantList{noteMark}},
          {"draft", draftMark},
          {"shifting", false},
          pick("compare"),
          pick("pictures")}},
        {"Compare/PaneToggle",
         {{"key", "third"},
          {"label", "FBC"},
          {"widest", "Last print"},
          {"tone", "orange"},
          {"icon", "circle"},
          {"help", "Show this page"},
          {"shown", false}}},
        {"Inspector/BeforeAfter", {{"wordings", wordings}}},
        {"Inspector/FindingCard",
         {{"id", "f1"},
          {"caption", "Words · vs what we sent"},
          {"title", "A word changed"},
          {"detail", "\"ligth\" for \"light\""},
          {"wordings", wordings},
          {"decision", "issue"},
          {"issue", true},
          {"fine", false},
          {"triage", true},
          {"busy", false},
          {"noteable", true},
          {"selectable", true},
          {"selected", true},
          {"compact", false},
          {"folds", true},
          {"decided", "Real issue · You · just now"},
          {"foldedIcon", "exclamationmark.triangle.fill"},
          {"foldedTone", "red"},
          {"foldedHelp", "Real issue · You · just now. Click to open."},
          {"notes", QVariantList{noteRow}},
          {"noteCount", "1"},
          {"noteActions", pick("notes").second},
          pick("pictures")}},
        {"Inspector/HistorySide", {pick("history")}},
        {"Inspector/Inspector",
         {pick("inspector"), pick("notes"), pick("history"), pick("pictures")}},
        {"Inspector/FindingHeader",
         {{"caption", "Words · vs what we sent"},
          {"title", "A word changed"},
          {"selected", true},
          {"brief", false}}},
        {"Inspector/PageSummary",
         {{"head", toQml(FindingsHead{.title = "Page 3",
                                      .found = "Matches",
                                      .notice = "This page has no live text.",
                                      .calm = "Nothing different here.",
                                      .calmReason = "The words match what we sent."})}}},
        {"Inspector/PanelRow", {{"text", "Page 3"}, {"count", "1 to look at"}}},
        {"Inspector/PassedChecks",
         {pick("inspector"), {"noteActions", pick("notes").second}, pick("pictures")}},
        {"Inspector/StateButton",
         {{"title", "Fine"},
          {"icon", "checkmark"},
          {"on", true},
          {"color", "#2e8b57"},
          {"decision", "fine"}}},
        {"Inspector/Triage",
         {{"decision", "fine"},
          {"issue", false},
          {"fine", true},
          {"busy", true},
          {"noteable", true}}},
        {"Jobs/ReportProgress", {{"text", "Ready in about 40 sec"}}},
        {"Notes/Composer", {pick("notes")}},
        {"Notes/DraftCard", {pick("notes"), {"open", true}}},
        {"Notes/NoteEditor", {pick("notes")}},
        {"Notes/NoteRow", {{"note", noteRow}, pick("notes"), pick("pictures")}},
        {"Notes/NoteRows", {{"rows", QVariantList{noteRow}}, pick("notes"), pick("pictures")}},
        {"Notes/NotesSection", {pick("notes"), pick("pictures")}},
        {"Notes/TagChip", {{"chip", chip}}},
        {"Notes/TagChips", {{"tags", QVariantList{chip}}}},
        {"Notes/TagPicker", {{"tags", QVariant::fromValue(tags_)}}},
        {"Profile/Bevel", {}},
        {"Profile/Figure", {{"text", "89%"}}},
        {"Profile/FigureTile",
         {{"title", "On time"},
          {"value", "89%"},
          {"note", "35 of 39 inside the window"},
          {"spoken", "On time: 89%"}}},
        {"Profile/IssueBar",
         {{"index", 0},
          {"word", "Words"},
          {"fraction", 0.5},
          {"count", "9"},
          {"spoken", "Words: 9"},
          {"colour", "#7442e8"}}},
        {"Profile/IssueBars", {pick("profile"), {"colour", "#7442e8"}}},
        {"Profile/MentionList", {pick("profile"), pick("pictures")}},
        {"Profile/MentionRow",
         {{"index", 0},
          {"ticket", "t1"},
          {"avatar", who},
          {"who", "Renny"},
          {"text", "Is it?"},
          {"when", "1 hr ago"},
          {"where", "The Lighthouse · p3"},
          {"spoken", "Renny: Is it?"},
          pick("pictures")}},
        {"Profile/MilestoneCell",
         {{"id", "10 reviews"},
          {"icon", "square.stack.3d.up"},
          {"earned", false},
          {"progress", "9 of 10"},
          {"fraction", 0.9},
          {"spoken", "10 reviews, 9 of 10"},
          {"colour", "#7442e8"},
          {"ink", "#ffffff"}}},
        {"Profile/Milestones", {pick("profile"), {"colour", "#7442e8"}, {"ink", "#ffffff"}}},
        {"Profile/OnTimeRing", {{"ring", toQml(onTimeRing(89))}, {"colour", "#7442e8"}}},
        {"Profile/OpenList", {pick("profile"), pick("pictures")}},
        {"Profile/OpenRow",
         {{"index", 0},
          {"id", "t1"},
          {"heading", "The Lighthouse"},
          {"subline", "PO 7"},
          {"thumb", "thumb-1"},
          {"due", due},
          {"approval", pill},
          {"spoken", "The Lighthouse"},
          pick("pictures")}},
        {"Profile/ProfileFigures",
         {pick("profile"), pick("pictures"), {"colour", "#7442e8"}, {"ink", "#ffffff"}}},
        {"Profile/ProfileHead",
         {{"person", pick("profile").second.value<ProfileModel*>()->head()}, pick("pictures")}},
        {"Profile/ProfileView", {pick("profile"), pick("pictures")}},
        {"Profile/ProgressBar", {{"value", 0.4}, {"color", "#7442e8"}}},
        {"Profile/Tiles", {pick("profile")}},
        {"Profile/ValueList", {{"label", "Open now"}}},
        {"Profile/WeekBar",
         {{"index", 0},
          {"fraction", 0.4},
          {"caption", "7 reviewed · week of Nov 3"},
          {"spoken", "Nov 3: 7 reviewed"},
          {"colour", "#7442e8"}}},
        {"Profile/WeeklyChart", {pick("profile"), {"colour", "#7442e8"}}},
        {"Update/RequiredUpdate", {pick("update")}},
        {"Update/UpdateBar", {pick("update")}},
        {"Update/UpdateButtons", {pick("update"), {"says", "It failed."}}},
        {"Shell/LabButtons", {}},
        {"Shell/LabMarks", lab},
        {"Shell/LabPillSection",
         {{"values", QVariantList{"red"}}, {"pill", QVariant::fromValue(&panel_)}}},
        {"Shell/LabPills", {{"lab", lab["lab"]}}},
        {"Shell/LabSection", {{"title", "Marks"}}},
        {"Shell/MarkLab", lab},
        {"Shell/CommandKeys", {pick("commands")}},
        {"Shell/MenuStrip", {pick("commands")}},
        {"Shell/MenuTitle", {pick("commands"), {"index", 1}}},
        {"Shell/OfflineBanner", {{"open", true}, {"problem", "This Mac is offline."}}},
        {"Shell/PlainView", {{"loading", true}, {"headline", ""}, {"line", "Loading the board…"}}},
        {"Shell/RootView", models()},
        {"Shell/SignInButton", {{"title", "Opening Google…"}, {"working", true}}},
        {"Shell/SignInView", {pick("signIn")}},
        {"Shell/SettingsGroup",
         {{"section",
           QVariantMap{{"title", "Heads-ups"},
                       {"toggles", QVariantList{QVariantMap{{"key", "dockBadge"},
                                                            {"label", "Show my open tickets"},
                                                            {"on", true}}}}}}}},
        {"Shell/PanelShot",
         {{"which", "share"}, pick("approval"), pick("send"), pick("upload"), pick("share")}},
        {"Shell/PdfChooser", {pick("upload")}},
        {"Shell/FileChooser", {{"title", "Pick one"}, {"filters", QStringList{"PDF (*.pdf)"}}}},
        {"Shell/FileChooserDialog", {}},
        {"Shell/PhotoChooser", {{"photo", windowModels()["photo"]}}},
        {"Shell/SettingsView", {pick("settings"), pick("approvers")}},
        {"Shell/ToastLayer",
         {{"toast", QVariantMap{{"id", "1"}, {"text", "Marked fine."}, {"undoLabel", "Undo"}}}}},
        {"Shell/UpdateCover", {pick("update"), {"floats", QVariant::fromValue(&floats_)}}},
        {"Shell/WaitingSheet", {{"open", true}}},
    };
  }

  // All views of a module, from the program's own resources.
  static QStringList viewsOf(const QString& module) {
    QStringList views;
    for (const QString& file : QDir{":/qt/qml/Vellix/" + module}.entryList({"*.qml"})) {
      views.append(module + "/" + file.chopped(4));
    }
    return views;
  }
  void loadAll(const QString& module) {
    const QStringList views = viewsOf(module);
    ASSERT_FALSE(views.isEmpty());
    for (const QString& view : views) {
      SCOPED_TRACE(view.toStdString());
      if (kFloats.contains(view)) continue;  // opened in tests of their own
      ASSERT_TRUE(own_.contains(view)) << "a view that no test gives its properties";
      for (const QSize size : kSizes) show(view, own_.value(view), size);
    }
  }

  void showPanel(const QString& panel, QSize size) {
    showWindow("Shell/PanelWindow",
               {pick("root"),
                pick("settings"),
                pick("approvers"),
                pick("approval"),
                pick("send"),
                pick("upload"),
                pick("share"),
                pick("log"),
                {"panel", panel},
                {"lab", toQml(markLab())},
                {"symbols", Symbol::names()}},
               size);
    EXPECT_EQ(window()->title(), "Vellix");
    EXPECT_EQ(window()->minimumSize(), kSizes.front());
  }

 private:
  static inline const QStringList kFloats{"Approval/SendForApproval", "Approval/SharePopover",
                                          "Approval/UploadRevision",  "Board/ActivityView",
                                          "Board/AssignPopover",      "Board/DuePopover",
                                          "Jobs/ClaudeLogPopover",    "Shell/Main",
                                          "Shell/PanelWindow",        "Shell/SettingsWindow",
                                          "Shell/StripMenu"};

  std::pair<QString, QVariant> pick(const QString& name) {
    QVariantMap all = models();
    all.insert(windowModels());
    return {name, all[name]};
  }

  QQmlComponent panel_{engine()};
  QQuickItem floats_;
  std::unique_ptr<QObject> flick_;
  Tags* tags_ = nullptr;
  QMap<QString, QVariantMap> own_;
};

TEST_F(EveryView, OfTheApprovalLoads) { loadAll("Approval"); }
TEST_F(EveryView, OfTheBoardLoads) { loadAll("Board"); }
TEST_F(EveryView, OfTheCanvasLoads) { loadAll("Compare"); }
TEST_F(EveryView, OfTheJobsLoads) { loadAll("Jobs"); }
TEST_F(EveryView, OfTheInspectorLoads) { loadAll("Inspector"); }
TEST_F(EveryView, OfTheNotesLoads) { loadAll("Notes"); }
TEST_F(EveryView, OfTheProfileLoads) { loadAll("Profile"); }
TEST_F(EveryView, OfTheShellLoads) { loadAll("Shell"); }
TEST_F(EveryView, OfTheTicketLoads) { loadAll("Ticket"); }
TEST_F(EveryView, OfTheUpdateLoads) { loadAll("Update"); }

TEST_F(EveryView, StandsInTheMainWindowAtEverySize) {
  showMain(kSizes.front());
  for (const QSize size : kSizes) {
    for (const std::set<std::string>& selection :
         {std::set<std::string>{"t1"}, {"t2"}, {"t3", "t1"}, {}}) {
      store().selection.set(selection);
      resize(size);
    }
    store().profile.set(store().board()->me.email);
    resize(size);
    store().profile.set(std::nullopt);
  }
}

TEST_F(EveryView, StandsInTheMainWindowInTheDark) {
  store().prefs.appearance.set("dark");
  showMain(kSizes.back());
}

TEST_F(EveryView, ShowsTheLabAloneAsAPanel) {
  for (const QSize size : kSizes) {
    showPanel("lab", size);
    for (const QString text : {"Overdue 5 hr", "Due today 6 PM", "Due Wed 3 PM", "Up to date",
                               "Offline", "Ready in about 40 sec", "New", "In review", "Reviewed",
                               "Fix", "Check", "Minor", "Reprint", "New title"}) {
      EXPECT_EQ(reader().names(QAccessible::StaticText).count(text), 2)
          << text.toStdString() << ", in full and small";
    }
    EXPECT_TRUE(reader().find("wifi.exclamationmark", QAccessible::Graphic));
  }
}

TEST_F(EveryView, ShowsTheSettingsAloneAsAPanel) {
  for (const QSize size : kSizes) {
    showPanel("settings", size);
    auto* settings = reader().find("Settings", QAccessible::Pane);
    ASSERT_TRUE(settings);
    EXPECT_EQ(settings->rect().width(), 460);
    EXPECT_EQ(window()->mapFromGlobal(settings->rect().topLeft()).x(), (size.width() - 460) / 2);
    EXPECT_TRUE(reader().find("Appearance", QAccessible::Grouping));
  }
}

}  // namespace
}  // namespace vellix
