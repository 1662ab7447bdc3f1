#include "views/approval_views_test.hpp"

#include <QAccessible>
#include <QGuiApplication>
#include <QQmlComponent>
#include <QQuickItem>
#include <QStyleHints>
#include <QTest>

namespace vellix {

ApprovalViewsTest::ApprovalViewsTest() {
  serveTheDay();
  change([](BoardState& board) {
    board.approvers = std::vector<Guest>{{.email = kMara, .name = "Mara Quell"},
                                         {.email = kOlo, .name = "Olo Brandt"}};
  });
  store().selection.set({"t1"});
  desk.time.run();
  // No two presses are a double press.
  QGuiApplication::styleHints()->setMouseDoubleClickInterval(0);
}

ApprovalViewsTest::~ApprovalViewsTest() {
  QGuiApplication::styleHints()->setMouseDoubleClickInterval(-1);
}

void ApprovalViewsTest::shareIt(BoardState& board) {
  board.files[0].share = ShareInfo{.enabled = true, .url = "https://proofs.example/s/1"};
}

void ApprovalViewsTest::change(const std::function<void(BoardState&)>& how) {
  BoardState board = *store().board();
  how(board);
  store().board.set(board);
  if (window())
    settle();
  else
    desk.time.run();
}

void ApprovalViewsTest::tell(const FileDetail& detail) {
  store().details.edit([&](auto& all) { all[detail.file.id] = detail; });
  if (window())
    settle();
  else
    desk.time.run();
}

void ApprovalViewsTest::showCard(QSize size) {
  const QVariantMap models{{"approval", QVariant::fromValue(&approval_)},
                           {"send", QVariant::fromValue(&send_)},
                           {"upload", QVariant::fromValue(&upload_)}};
  show("Approval/ApprovalCard", models, size);
  QQmlComponent component{engine(), QUrl{"qrc:/qt/qml/Vellix/Approval/ApprovalSheets.qml"}};
  auto* sheets = qobject_cast<QQuickItem*>(component.createWithInitialProperties(
      {{"send", models["send"]}, {"upload", models["upload"]}}));
  ASSERT_TRUE(sheets) << component.errorString().toStdString();
  sheets->setParent(window());
  sheets->setParentItem(window()->contentItem());
  calm();
}

void ApprovalViewsTest::showShare() {
  show("Approval/ShareButton", {{"share", QVariant::fromValue(&share_)}}, kSizes.front());
  calm();
}

void ApprovalViewsTest::calm() {
  theme()->setReducedMotion(true);
  window()->requestActivate();
  ASSERT_TRUE(QTest::qWaitForWindowActive(window()));
}

bool ApprovalViewsTest::opens(const QString& dialog) {
  return QTest::qWaitFor([&] { return has(dialog, QAccessible::Dialog); });
}

bool ApprovalViewsTest::closes(const QString& dialog) {
  return QTest::qWaitFor([&] { return !has(dialog, QAccessible::Dialog); });
}

void ApprovalViewsTest::type(const QString& text) {
  for (const QChar letter : text) QTest::keyClick(window(), letter.toLatin1());
  settle();
}

void ApprovalViewsTest::key(Qt::Key key) {
  QTest::keyClick(window(), key);
  settle();
}

QString ApprovalViewsTest::focused() {
  QAccessibleInterface* at = QAccessible::queryAccessibleInterface(window()->activeFocusItem());
  return at ? at->text(QAccessible::Name) : QString{};
}

std::vector<std::string> ApprovalViewsTest::posted() {
  std::vector<std::string> all;
  for (const auto& each : desk.http.exchanges) {
    if (!each.line().starts_with("GET")) {
      all.push_back(each.line() + " " + each.request.body.value_or(""));
    }
  }
  return all;
}

}  // namespace vellix
