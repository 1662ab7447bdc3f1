#include "views/view_test.hpp"

#include <QCoreApplication>
#include <QTest>

#include "views/warnings.hpp"

namespace vellix {
namespace {

const QString kModules = QStringLiteral("qrc:/qt/qml");

QUrl urlOf(const QString& view) { return QUrl{kModules + "/Vellix/" + view + ".qml"}; }

FileDetail plainTicket(std::string id, std::string title, std::string status) {
  FileDetail detail = detailOf(ticketAt(std::move(id), 1));
  detail.file.title = std::move(title);
  detail.file.status = std::move(status);
  detail.file.pages = pagesOf(1);
  return detail;
}

}  // namespace

ViewTest::ViewTest() {
  watchWarnings();
  engine_->addImportPath(kModules);
}

ViewTest::~ViewTest() {
  view_.reset();
  qDeleteAll(engine_->rootObjects());
  // A list lets its rows go in a later turn, and their transitions must not outlive the engine.
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  engine_.reset();
  const QStringList warnings = takeWarnings();
  EXPECT_TRUE(warnings.isEmpty()) << warnings.join('\n').toStdString();
}

FileDetail ViewTest::lighthouse(Int rev) {
  FileDetail detail = plainTicket("t1", "The Lighthouse", "new");
  FileItem& file = detail.file;
  file.rev = rev;
  file.po = "PO 7";
  file.supplier = "Harrow Print";
  file.summary = "One word differs on the first page.";
  file.due = 1'700'000'000'000;
  file.thumb = "thumb-1";
  file.tally = Tally{.open = 2, .issues = 1, .total = 3};
  file.pages = pagesOf(3);
  for (auto& page : *file.pages) {
    page.img = "supplier-" + std::to_string(page.i);
    page.px = {300, 400};
    page.refs = {{"submitted", RefPage{.img = "submitted-" + std::to_string(page.i)}}};
  }
  file.pages->front().ocr = true;
  detail.findings = {findingOf("f1"), findingOf("f2"), findingOf("f3", 2)};
  detail.findings[0].title = "A word changed";
  detail.findings[0].detail = "\"ligth\" for \"light\"";
  detail.findings[1].title = "A line breaks elsewhere";
  return detail;
}

void ViewTest::serveTheDay() {
  const std::vector<FileDetail> details{lighthouse(),
                                        plainTicket("t2", "Harbour Bread", "in_review"),
                                        plainTicket("t3", "Rain", "reviewed")};
  BoardState board = boardOf({});
  for (const auto& detail : details) {
    board.files.push_back(detail.file);
    board.files.back().pages.reset();
    serveDetail(detail, "\"" + detail.file.id + "\"");
  }
  serveBoard(board);
  poll();
}

QVariantMap ViewTest::models() {
  if (!root_) {
    board_.emplace(store(), desk.defaults, desk.time, desk.calendar);
    activity_.emplace(store(), desk.time, desk.calendar);
    plan_.emplace(store(), desk.time, desk.calendar);
    file_.emplace(store(), desk.time, desk.calendar);
    report_.emplace(store(), desk.time, desk.calendar);
    log_.emplace(store(), desk.api, desk.time, desk.calendar);
    compare_.emplace(store(), desk.time);
    inspector_.emplace(store(), desk.time, desk.calendar);
    notes_.emplace(store(), desk.time, desk.calendar);
    approval_.emplace(store(), desk.time, desk.calendar);
    send_.emplace(store());
    upload_.emplace(store());
    share_.emplace(store());
    history_.emplace(store(), desk.time, desk.calendar);
    approvers_.emplace(store());
    profile_.emplace(store(), desk.time, desk.calendar);
    update_.emplace(updater_);
    signIn_.emplace(store(), desk.api, desk.browser, desk.time);
    commands_.emplace(store());
    photo_.emplace(store());
    settings_.emplace(store().prefs);
    root_.emplace(store(), desk.time);
  }
  return {{"signIn", QVariant::fromValue(&*signIn_)},
          {"root", QVariant::fromValue(&*root_)},
          {"board", QVariant::fromValue(&*board_)},
          {"activity", QVariant::fromValue(&*activity_)},
          {"plan", QVariant::fromValue(&*plan_)},
          {"file", QVariant::fromValue(&*file_)},
          {"report", QVariant::fromValue(&*report_)},
          {"log", QVariant::fromValue(&*log_)},
          {"compare", QVariant::fromValue(&*compare_)},
          {"inspector", QVariant::fromValue(&*inspector_)},
          {"notes", QVariant::fromValue(&*notes_)},
          {"approval", QVariant::fromValue(&*approval_)},
          {"send", QVariant::fromValue(&*send_)},
          {"upload", QVariant::fromValue(&*upload_)},
          {"share", QVariant::fromValue(&*share_)},
          {"history", QVariant::fromValue(&*history_)},
          {"profile", QVariant::fromValue(&*profile_)},
          {"update", QVariant::fromValue(&*update_)},
          {"pictures", QVariant::fromValue<PictureSource*>(&pictures)}};
}

QVariantMap ViewTest::windowModels() {
  models();
  return {{"commands", QVariant::fromValue(&*commands_)},
          {"photo", QVariant::fromValue(&*photo_)},
          {"approvers", QVariant::fromValue(&*approvers_)},
          {"settings", QVariant::fromValue(&*settings_)}};
}

void ViewTest::show(const QString& view, const QVariantMap& properties, QSize size) {
  view_ = std::make_unique<QQuickView>(engine_.get(), nullptr);
  view_->setResizeMode(QQuickView::SizeRootObjectToView);
  view_->resize(size);
  view_->setInitialProperties(properties);
  view_->setSource(urlOf(view));
  ASSERT_EQ(view_->status(), QQuickView::Ready) << view.toStdString();
  window_ = view_.get();
  view_->show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(view_.get()));
  settle();
}

void ViewTest::showMain(QSize size) {
  QVariantMap properties = models();
  properties.insert(windowModels());
  root_->start();
  showWindow("Shell/Main", properties, size);
}

void ViewTest::showWindow(const QString& view, const QVariantMap& properties, QSize size) {
  qDeleteAll(engine_->rootObjects());
  engine_->setInitialProperties(properties);
  engine_->load(urlOf(view));
  ASSERT_EQ(engine_->rootObjects().size(), 1);
  window_ = qobject_cast<QQuickWindow*>(engine_->rootObjects().constFirst());
  ASSERT_TRUE(window_);
  ASSERT_TRUE(QTest::qWaitForWindowExposed(window_));
  resize(size);
}

Theme* ViewTest::theme() {
  return engine_->singletonInstance<Theme*>(qmlTypeId("Vellix.Pieces", 1, 0, "Theme"));
}

bool ViewTest::press(const QString& name, QAccessible::Role role) {
  const bool pressed = reader().press(name, role);
  settle();
  return pressed;
}

void ViewTest::settle() {
  for (int turn = 0; turn < 3; ++turn) {
    desk.time.run();
    QCoreApplication::processEvents();
    window_->grabWindow();
  }
}

void ViewTest::resize(QSize size) {
  window_->resize(size);
  settle();
}

}  // namespace vellix
