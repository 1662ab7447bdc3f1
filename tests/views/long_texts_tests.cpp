// The main window over a service that fills every field with more than anybody reads.
#include <QMetaProperty>
#include <set>

#include "pieces/shown_text.hpp"
#include "views/sights.hpp"
#include "views/view_test.hpp"

namespace vellix {
namespace {

constexpr const char* kMara = "mara@tessarine.example";
constexpr const char* kOlo = "olo@tessarine.example";
const std::string kEndless(5 * kMostShown, 'm');

// What a record is known and told apart by.
bool isKey(std::string_view field) {
  static const std::set<std::string_view> keys{
      "id",       "file_id", "status", "kind",     "severity", "state",       "role",  "track",
      "assignee", "email",   "tz",     "color",    "img",      "thumb",       "photo", "finding_id",
      "side",     "against", "by",     "approval", "asked",    "resolved_by", "url",   "access"};
  return keys.contains(field);
}

template <class T>
void fill(T& value) {
  if constexpr (Described<T>) {
    forEachMember<T>([&](auto member) {
      if (!isKey(member.name)) fill(value.*member.pointer);
    });
  } else if constexpr (isA<T, std::optional>) {
    if (!value) value.emplace();
    fill(*value);
  } else if constexpr (isA<T, std::vector>) {
    for (auto& entry : value) fill(entry);
  } else if constexpr (isA<T, std::map>) {
    for (auto& [key, entry] : value) fill(entry);
  } else if constexpr (std::is_same_v<T, std::string>) {
    value = kEndless;
  }
}

// Of each text that the window has laid out, seen or not, how long it is.
void collect(const QQuickItem* root, std::vector<qsizetype>& lengths) {
  for (const QQuickItem* child : root->childItems()) {
    for (const QMetaObject* each = child->metaObject(); each; each = each->superClass()) {
      if (std::string_view{each->className()} != "QQuickText") continue;
      lengths.push_back(
          each->property(each->indexOfProperty("text")).read(child).toString().size());
    }
    collect(child, lengths);
  }
}

class LongTexts : public ViewTest {
 protected:
  // All that is told of the round of approval, of the ticket's versions and of its story.
  static void fillTheRound(FileDetail& detail) {
    detail.file.version = detail.version = 2;
    detail.file.approval = "changes";
    detail.approval = Approval{.asked = {kMara, kOlo}, .requested_by = kMara, .note = ""};
    detail.approval->answers = {{kMara, {.kind = "changes", .note = ""}},
                                {kOlo, {.kind = "approved", .note = ""}}};
    detail.versions = std::vector<Version>{{.n = 1}, {.n = 2, .by = kOlo}};
    detail.origin = Origin{.refs = std::vector<Ref>{{.role = "submitted"}}};
    detail.history = std::vector<Event>{{.id = 1, .at = 1, .by = kMara, .kind = "comment"},
                                        {.id = 2, .at = 2, .by = kOlo, .kind = "changes"}};
    fill(*detail.approval);
    fill(*detail.versions);
    fill(*detail.origin);
    fill(*detail.history);
  }
  // The ticket, and whom it can be sent to.
  void fillTheBoard(FileItem& file) {
    file.share = ShareInfo{.enabled = true, .url = "https://proofs.example/s/1"};
    BoardState board = *store().board();
    board.approvers = std::vector<Guest>{{.email = kMara}, {.email = kOlo}};
    fill(*board.approvers);
    board.files[0] = file;
    store().board.set(board);
  }
  void expectBounded(std::size_t atLeast = 20) {
    std::vector<qsizetype> lengths;
    collect(window()->contentItem(), lengths);
    ASSERT_GT(lengths.size(), atLeast);
    const auto longest = std::ranges::max(lengths);
    EXPECT_LE(longest, kMostShown + 1);
    EXPECT_GT(longest, kMostOnALine) << "the endless texts are there";
  }
};

TEST_F(LongTexts, AreLaidOutToABound) {
  serveTheDay();
  FileDetail detail = lighthouse();
  detail.comments = {
      Note{.id = "n1", .file_id = "t1", .page = 0, .by = "jorvas@tessarine.example"}};
  fill(detail.findings);
  fill(detail.comments);
  for (auto& finding : detail.findings) finding.page = 0;
  fill(detail.file.title);
  fill(detail.file.supplier);
  fill(detail.file.summary);
  fill(detail.file.filename);
  fill(*detail.file.pages);
  BoardState board = *store().board();
  for (auto& person : board.users) fill(person.name);
  for (auto& file : board.files) fill(file.title);
  board.sync = Job{.id = "j1", .kind = "sync", .status = "running"};
  fill(board.sync->step);
  store().board.set(board);
  store().details.set({{"t1", detail}});
  store().problem.set(kEndless);
  store().toast.set(Toast{kEndless});
  showMain({1'500, 940});
  settle();
  expectBounded();
}

TEST_F(LongTexts, OfTheRoundAreLaidOutToABound) {
  serveTheDay();
  FileDetail detail = lighthouse();
  fillTheRound(detail);
  fill(detail.file.supplier);
  fillTheBoard(detail.file);
  store().details.set({{"t1", detail}});
  store().selection.set({"t1"});
  showMain({1'500, 940});
  expectBounded();
  ASSERT_TRUE(press("History", QAccessible::PageTab));
  expectBounded();
  ASSERT_TRUE(press("Upload revision"));
  expectBounded();
  QVariantMap parts = windowModels();
  show("Approval/ApproversSection", {{"approvers", parts["approvers"]}}, {460, 540});
  expectBounded(4);
}

TEST_F(LongTexts, OfWhoIsAskedAreLaidOutToABound) {
  serveTheDay();
  FileDetail detail = lighthouse();
  detail.file.approval = "revised";
  fillTheBoard(detail.file);
  store().details.set({{"t1", detail}});
  store().selection.set({"t1"});
  showMain({1'500, 940});
  ASSERT_TRUE(press("Send v1 for approval"));
  expectBounded();
}

}  // namespace
}  // namespace vellix
