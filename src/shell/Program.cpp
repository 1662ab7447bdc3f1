#include "shell/Program.hpp"

#include <QFontDatabase>
#include <QGuiApplication>
#include <QQmlFileSelector>
#include <QQuickWindow>
#include <QtDebug>

#include "bridge/value.hpp"
#include "pieces/Symbol.hpp"
#include "pieces/Theme.hpp"
#include "platform/qt/raise_window.hpp"
#include "shell/mark_lab.hpp"
#include "shell/unsent_words.hpp"

namespace vellix {
namespace {

QUrl urlOf(const char* view) {
  return QUrl{QStringLiteral("qrc:/qt/qml/Vellix/Shell/%1.qml").arg(QLatin1String(view))};
}

// The next of its states.
Pending<> changeOf(const QQmlComponent& views) {
  const Resolver<> told;
  QObject::connect(
      &views, &QQmlComponent::statusChanged, qApp, [told] { told(); },
      static_cast<Qt::ConnectionType>(Qt::QueuedConnection | Qt::SingleShotConnection));
  return told.pending();
}

}  // namespace

Program::Program(QtMainLoop& loop, Defaults& defaults, TokenStore& tokens, Arguments arguments)
    : arguments_(std::move(arguments)),
      loop_(loop),
      api_(shotPath(arguments_) ? static_cast<Http&>(closed_) : http_, tokens, defaults),
      signIn_(api_, {defaults, machine_, systemSignIn_.browser(waiting_), uuids_}),
      images_(api_, loop_, decoder_, files_),
      prefs_(loop_, defaults),
      store_(api_, signIn_, prefs_,
             {loop_, defaults, windows_, images_, badge_, localFiles_, clipboard_, opener_,
              downloads_, photos_}),
      updater_({api_, http_, defaults, loop_, tools_, updateFiles_, opener_, wakes_,
                [this] { tasks_.start(endAtRest()); }},
               runningCopy(API::buildNumber())),
      board_(store_, defaults, loop_, calendar_),
      activity_(store_, loop_, calendar_),
      plan_(store_, loop_, calendar_),
      file_(store_, loop_, calendar_),
      report_(store_, loop_, calendar_),
      log_(store_, api_, loop_, calendar_),
      compare_(store_, loop_),
      inspector_(store_, loop_, calendar_),
      notes_(store_, loop_, calendar_),
      approval_(store_, loop_, calendar_),
      send_(store_),
      upload_(store_),
      share_(store_),
      history_(store_, loop_, calendar_),
      approvers_(store_),
      profile_(store_, loop_, calendar_),
      signInScreen_(store_, api_, waiting_, loop_),
      commands_(store_),
      settings_(prefs_),
      photo_(store_),
      root_(store_, loop_) {}

void Program::begin() {
  if (stage_.on()) {
    stage_.setUp();
    root_.forceAppearance(stage_.appearance());
  } else if (!standsApart(arguments_)) {
    root_.start();
  }
}

void Program::read(QQmlComponent::CompilationMode mode) {
  engine_.addImportPath(QStringLiteral("qrc:/qt/qml"));
  QObject::connect(&engine_, &QQmlEngine::quit, qApp, &QCoreApplication::quit,
                   Qt::QueuedConnection);
  views_ = std::make_unique<QQmlComponent>(&engine_);
  views_->loadUrl(urlOf(panelAlone(arguments_).empty() ? "Main" : "PanelWindow"), mode);
}

Task<> Program::load() {
  read(QQmlComponent::Asynchronous);
  // Which fonts there are takes a while to find out, and the views ask for it first.
  QFontDatabase::hasFamily(QGuiApplication::font().family());
  while (views_->isLoading()) {
    const auto change = changeOf(*views_);
    co_await change;
  }
}

bool Program::show() {
  if (!views_) read(QQmlComponent::PreferSynchronous);
  const std::string panel = panelAlone(arguments_);
  shown_.reset(views_->createWithInitialProperties(panel.empty() ? parts() : panelOf(panel)));
  for (const auto& error : views_->errors()) qWarning().noquote() << error.toString();
  views_.reset();
  if (!shown_) return false;
  // Lists make ahead of being scrolled between two frames, and Qt's own chooser of files has views
  // for each style: neither is for the start.
  if (auto* window = qobject_cast<QQuickWindow*>(shown_.get())) {
    engine_.setIncubationController(window->incubationController());
  }
  new QQmlFileSelector(&engine_, &engine_);
  if (stage_.on()) stage_.present();
  return true;
}

QVariantMap Program::parts() {
  return {
      {"signIn", QVariant::fromValue(&signInScreen_)},
      {"root", QVariant::fromValue(&root_)},
      {"commands", QVariant::fromValue(&commands_)},
      {"photo", QVariant::fromValue(&photo_)},
      {"settings", QVariant::fromValue(&settings_)},
      {"board", QVariant::fromValue(&board_)},
      {"activity", QVariant::fromValue(&activity_)},
      {"plan", QVariant::fromValue(&plan_)},
      {"file", QVariant::fromValue(&file_)},
      {"report", QVariant::fromValue(&report_)},
      {"log", QVariant::fromValue(&log_)},
      {"compare", QVariant::fromValue(&compare_)},
      {"inspector", QVariant::fromValue(&inspector_)},
      {"notes", QVariant::fromValue(&notes_)},
      {"approval", QVariant::fromValue(&approval_)},
      {"send", QVariant::fromValue(&send_)},
      {"upload", QVariant::fromValue(&upload_)},
      {"share", QVariant::fromValue(&share_)},
      {"history", QVariant::fromValue(&history_)},
      {"approvers", QVariant::fromValue(&approvers_)},
      {"profile", QVariant::fromValue(&profile_)},
      {"update", QVariant::fromValue(&update_)},
      {"pictures", QVariant::fromValue<PictureSource*>(&pictures_)},
  };
}

QVariantMap Program::panelOf(const std::string& panel) {
  return {
      {"root", QVariant::fromValue(&root_)},
      {"settings", QVariant::fromValue(&settings_)},
      {"approvers", QVariant::fromValue(&approvers_)},
      {"approval", QVariant::fromValue(&approval_)},
      {"send", QVariant::fromValue(&send_)},
      {"upload", QVariant::fromValue(&upload_)},
      {"share", QVariant::fromValue(&share_)},
      {"log", QVariant::fromValue(&log_)},
      {"panel", QString::fromStdString(panel)},
      {"lab", toQml(markLab())},
      {"symbols", Symbol::names()},
      {"staged", stage_.on()},
  };
}

void Program::follow(const SystemLook& look) {
  auto* theme = engine_.singletonInstance<Theme*>(qmlTypeId("Vellix.Pieces", 1, 0, "Theme"));
  const auto take = [theme, &look] { theme->followSystem(look.look()); };
  QObject::connect(&look, &SystemLook::changed, theme, take);
  take();
}

// Behind the screen that insists on an update nobody could end what was begun.
bool Program::isAtRest() const {
  if (!store_.busy().empty()) return false;
  return updater_.isRequired() || !holdUnsentWords(QGuiApplication::topLevelWindows());
}

// What takes this copy's place waits for its end, so nothing that is under way need be lost.
Task<> Program::endAtRest() {
  while (!isAtRest()) {
    const auto pause = loop_.sleep(Milliseconds{1'000}, {});
    co_await pause;
  }
  end();
}

void Program::end() {
  QMetaObject::invokeMethod(qApp, &QCoreApplication::quit, Qt::QueuedConnection);
}

void Program::bringForward(const QByteArray& activationToken) {
  if (auto* window = qobject_cast<QWindow*>(shown_.get())) {
    raiseWindow(*window, activationToken);
  }
}

}  // namespace vellix
