// Opens the token store in the folder given and carries out what the further arguments say: "read",
// "add=<token>", "remove", "settle"; a first one "limit=<ms>" bounds each job of the keyring. With
// "stalled=<ms>" as the first it stops the keyring's process, waits that long for the store, and
// further takes "wake", to let the keyring go on, and "primed", to wait for the store. It prints
// one line for each answer, and how long the longest turn of the main thread took. As "--silent"
// it is a Secret Service that never answers.
#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QElapsedTimer>
#include <QTimer>
#include <algorithm>
#include <csignal>
#include <cstdio>
#include <memory>

#include "gateway/late_token_store.hpp"
#include "platform/linux/FileTokenStore.hpp"
#include "platform/linux/TokenStores.hpp"
#include "platform/ports/task.hpp"
#include "platform/qt/QtMainLoop.hpp"

namespace vellix {
namespace {

Task<> settle(DurableTokenStore& store) {
  const auto settling = store.settled();
  co_await settling;
  std::printf("settled\n");
}

void carryOutPlain(DurableTokenStore& store, const QString& step) {
  if (step == "read") std::printf("token %s\n", store.read().value_or("none").c_str());
  if (step == "remove") store.remove();
  if (step.startsWith("add=")) store.add(step.mid(4).toStdString());
  std::fflush(stdout);
}

Task<> carryOutStalled(QtMainLoop& loop, std::unique_ptr<LateTokenStore>& held,
                       QStringList arguments) {
  const auto keyring = static_cast<pid_t>(
      QDBusConnection::sessionBus().interface()->servicePid("org.freedesktop.secrets").value());
  if (keyring > 0) ::kill(keyring, SIGSTOP);
  held = std::make_unique<LateTokenStore>(openTokenStore(arguments.at(1).toStdString()), loop);
  LateTokenStore& store = *held;
  const auto known = store.primedWithin(Milliseconds{arguments.at(2).mid(8).toDouble()});
  co_await known;
  std::printf("primed %s\n", store.primed().resolved() ? "yes" : "no");
  for (const QString& step : arguments.mid(3)) {
    carryOutPlain(store, step);
    if (step == "wake" && keyring > 0) ::kill(keyring, SIGCONT);
    if (step == "primed") {
      const auto primed = store.primed();
      co_await primed;
    }
    if (step == "settle") {
      auto settling = settle(store);
      co_await std::move(settling);
    }
  }
  if (keyring > 0) ::kill(keyring, SIGCONT);
  QCoreApplication::quit();
}

Task<> carryOut(QStringList arguments) {
  KeyringLimits limits;
  const QString first = arguments.value(2);
  if (first.startsWith("limit=")) limits.read = limits.job = first.mid(6).toInt();
  const auto opening = openTokenStore(arguments.at(1).toStdString(), limits);
  const auto store = co_await opening;
  std::printf("store %s\n", std::dynamic_pointer_cast<FileTokenStore>(store) ? "file" : "keyring");
  for (const QString& step : arguments.mid(2)) {
    carryOutPlain(*store, step);
    if (step == "settle") {
      auto settling = settle(*store);
      co_await std::move(settling);
    }
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
  vellix::QtMainLoop loop;
  std::unique_ptr<vellix::LateTokenStore> held;
  vellix::TaskScope tasks;
  QTimer::singleShot(0, [&] {
    const QStringList arguments = QCoreApplication::arguments();
    const bool stalled = arguments.value(2).startsWith("stalled=");
    tasks.start(stalled ? vellix::carryOutStalled(loop, held, arguments)
                        : vellix::carryOut(arguments));
  });
  const int code = QCoreApplication::exec();
  std::printf("longest turn %lld\n", static_cast<long long>(longest));
  return code;
}
