// Opens the token store in the folder given and carries out what the further arguments say: "read",
// "add=<token>", "remove", "settle"; a first one "limit=<ms>" bounds each job of the keyring. It
// prints one line for each answer, and how long the longest turn of the main thread took. As
// "--silent" it is a Secret Service that never answers.
#include <QCoreApplication>
#include <QDBusConnection>
#include <QElapsedTimer>
#include <QTimer>
#include <algorithm>
#include <csignal>
#include <cstdio>

#include "platform/linux/FileTokenStore.hpp"
#include "platform/linux/TokenStores.hpp"
#include "platform/ports/task.hpp"

namespace vellix {
namespace {

Task<> carryOut(QStringList arguments) {
  KeyringLimits limits;
  const QString first = arguments.value(2);
  if (first.startsWith("limit=")) limits.job = first.mid(6).toInt();
  const auto opening = openTokenStore(arguments.at(1).toStdString(), limits);
  const auto store = co_await opening;
  std::printf("store %s\n", std::dynamic_pointer_cast<FileTokenStore>(store) ? "file" : "keyring");
  for (const QString& step : arguments.mid(2)) {
    if (step == "read") std::printf("token %s\n", store->read().value_or("none").c_str());
    if (step == "remove") store->remove();
    if (step.startsWith("add=")) store->add(step.mid(4).toStdString());
    if (step == "settle") {
      const auto settling = store->settled();
      co_await settling;
      std::printf("settled\n");
    }
    std::fflush(stdout);
  }
  QCoreApplication::quit();
}

// Holds the name and sleeps for good, until it is killed.
int beSilent() {
  if (!QDBusConnection::sessionBus().registerService("org.freedesktop.secrets")) return 7;
  std::printf("ready\n");
  std::fflush(stdout);
  ::raise(SIGSTOP);
  return 0;
}

}  // namespace
}  // namespace vellix

int main(int argc, char** argv) {
  QCoreApplication application(argc, argv);
  if (application.arguments().value(1) == "--silent") return vellix::beSilent();
  QElapsedTimer sinceTick;
  qint64 longest = 0;
  QTimer ticker;
  QObject::connect(&ticker, &QTimer::timeout,
                   [&] { longest = std::max(longest, sinceTick.restart()); });
  ticker.start(10);
  sinceTick.start();
  vellix::TaskScope tasks;
  QTimer::singleShot(0, [&tasks] { tasks.start(vellix::carryOut(QCoreApplication::arguments())); });
  const int code = QCoreApplication::exec();
  std::printf("longest turn %lld\n", static_cast<long long>(longest));
  return code;
}
