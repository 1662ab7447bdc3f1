#include <QGuiApplication>
#include <QTimer>
#include <memory>
#include <optional>

#include "platform/linux/TokenStores.hpp"
#include "shell/Program.hpp"

namespace vellix {
namespace {

// A last token that is still on its way to the keyring gets this long when the program ends.
constexpr Milliseconds kLastWrite{2'000};

// The first argument that is not a flag: a URL that the program was started to open.
std::optional<std::string> urlArgument(const QStringList& arguments) {
  for (const auto& argument : arguments.mid(1)) {
    if (!argument.startsWith(u'-')) return argument.toStdString();
  }
  return std::nullopt;
}

class Run {
 public:
  explicit Run(QGuiApplication& application) : application_(application) {
    tasks_.start(start());
  }

  int exec() {
    const int code = application_.exec();
    if (tokens_) tasks_.start(finish());
    if (tokens_ && !settled_) application_.exec();
    return code;
  }

 private:
  // The token is read before anything is shown, so the first picture is the right one.
  Task<> start() {
    const auto opening = openTokenStore(configFolder());
    tokens_ = co_await opening;
    program_.emplace(loop_, defaults_, *tokens_);
    if (!program_->show()) {
      application_.exit(1);
      co_return;
    }
    if (const auto url = urlArgument(application_.arguments())) program_->store().open(*url);
  }

  Task<> finish() {
    QTimer::singleShot(static_cast<int>(kLastWrite.count()), &application_, &QCoreApplication::quit);
    const auto writing = tokens_->settled();
    co_await writing;
    settled_ = true;
    application_.quit();
  }

  QGuiApplication& application_;
  QtMainLoop loop_;
  QtDefaults defaults_;
  std::shared_ptr<DurableTokenStore> tokens_;
  std::optional<Program> program_;
  bool settled_ = false;
  TaskScope tasks_;
};

}  // namespace
}  // namespace vellix

int main(int argc, char* argv[]) {
  QGuiApplication application{argc, argv};
  application.setApplicationName("vellix");
  application.setApplicationDisplayName("Vellix");
  application.setDesktopFileName("vellix");
  application.setApplicationVersion(QString::fromStdString(vellix::API::shortVersion()));
  return vellix::Run{application}.exec();
}
