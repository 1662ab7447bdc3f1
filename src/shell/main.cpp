#include <QGuiApplication>
#include <QTimer>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <utility>

#include "gateway/late_token_store.hpp"
#include "platform/System.hpp"
#include "platform/qt/QtDefaults.hpp"
#include "platform/qt/QtTools.hpp"
#include "platform/qt/QtUpdateFiles.hpp"
#include "shell/Program.hpp"
#include "shell/allocator.hpp"
#include "shell/renderer.hpp"
#include "shell/usage.hpp"
#include "update/rename.hpp"

namespace vellix {
namespace {

// A keyring that is locked or silent holds the first picture up for no longer than this.
constexpr Milliseconds kTokenPatience{2'000};
// A last token that is still on its way to the keyring gets this long when the program ends.
constexpr Milliseconds kLastWrite{2'000};

Arguments plain(const QStringList& arguments) {
  Arguments plain;
  for (const QString& argument : arguments) plain.push_back(argument.toStdString());
  return plain;
}

// What the program was started for: the first argument that is not a flag is a URL to open.
StartRequest requestOf(const QStringList& arguments, const QByteArray& activationToken) {
  StartRequest request{.urls = {}, .activationToken = activationToken};
  for (const auto& argument : arguments.mid(1)) {
    if (request.urls.isEmpty() && !argument.startsWith(u'-')) request.urls.append(argument);
  }
  return request;
}

class Run {
 public:
  Run(QGuiApplication& application, SystemApplication& desktop, StartRequest request)
      : application_(application),
        arguments_(plain(application.arguments())),
        desktop_(desktop),
        request_(std::move(request)) {
    tasks_.start(start());
  }

  int exec() {
    const int code = application_.exec();
    desktop_.retire();
    tasks_.start(finish());
    if (!settled_) application_.exec();
    return code;
  }

 private:
  // As a rule the token is read before anything is shown, so the first picture is the right one.
  // Otherwise the program begins signed out, and the board comes with the token.
  Task<> start() {
    const bool staged = shotPath(arguments_).has_value();
    if (!staged && renamed()) co_return;
    const auto known = tokens_.primedWithin(kTokenPatience);
    co_await known;
    program_.emplace(loop_, defaults_, tokens_, arguments_);
    program_->begin();
    auto loading = program_->load();
    co_await std::move(loading);
    if (!program_->show()) {
      application_.exit(1);
      co_return;
    }
    program_->follow(look_);
    if (!staged) program_->keepUpToDate();
    if (standsApart(arguments_)) co_return;
    open(request_.urls);
    desktop_.listen([this](const StartRequest& request) {
      program_->bringForward(request.activationToken);
      open(request.urls);
    });
    const auto primed = tokens_.primed();
    co_await primed;
    program_->store().resume();
  }

  static bool renamed() {
    QtTools tools;
    QtUpdateFiles files{textInPropertyList};
    return renameIfNeeded(runningCopy(API::buildNumber()), tools, files, Program::end);
  }

  void open(const QStringList& urls) {
    for (const auto& url : urls) program_->store().open(url.toStdString());
  }

  Task<> finish() {
    QTimer::singleShot(static_cast<int>(kLastWrite.count()), &application_,
                       &QCoreApplication::quit);
    const auto writing = tokens_.settled();
    co_await writing;
    settled_ = true;
    application_.quit();
  }

  QGuiApplication& application_;
  const Arguments arguments_;
  SystemApplication& desktop_;
  const StartRequest request_;
  SystemLook look_;  // asked ahead of the first picture
  QtMainLoop loop_;
  SystemDefaults defaults_;
  LateTokenStore tokens_{openTokenStore(configFolder()), loop_};
  std::optional<Program> program_;
  bool settled_ = false;
  TaskScope tasks_;
};

}  // namespace
}  // namespace vellix

int main(int argc, char* argv[]) {
  using namespace vellix;
  if (const auto text = usage({argv, argv + argc})) {
    std::fputs(text->c_str(), stdout);
    return std::fflush(stdout) == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
  }
  giveFreedPicturesBack();
  const QByteArray activationToken = givenActivationToken();
  QGuiApplication application{argc, argv};
  application.setApplicationName("vellix");
  application.setApplicationDisplayName("Vellix");
  application.setDesktopFileName(kDesktopName);
  application.setApplicationVersion(QString::fromStdString(API::shortVersion()));
  chooseRenderer();
  const auto request = requestOf(application.arguments(), activationToken);
  SystemApplication desktop;
  if (!standsApart(plain(application.arguments())) && desktop.handOver(request)) return 0;
  return Run{application, desktop, request}.exec();
}
