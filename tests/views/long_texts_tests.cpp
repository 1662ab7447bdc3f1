// The main window over a service that fills every field with more than anybody reads.
#include <QMetaProperty>
#include <set>

#include "pieces/shown_text.hpp"
#include "views/sights.hpp"
#include "views/view_test.hpp"

namespace vellix {
namespace {

const std::string kEndless(5 * kMostShown, 'm');

// What a record is known and told apart by.
bool isKey(std::string_view field) {
  static const std::set<std::string_view> keys{
      "id",    "file_id",    "status", "kind",    "severity", "state",    "role",
      "track", "assignee",   "email",  "tz",      "color",    "img",      "thumb",
      "photo", "finding_id", "side",   "against", "by",       "approval", "resolved_by"};
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
  void expectBounded() {
    std::vector<qsizetype> lengths;
    collect(window()->contentItem(), lengths);
    ASSERT_GT(lengths.size(), 20U);
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

}  // namespace
}  // namespace vellix
