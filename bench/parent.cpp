#include "parent.hpp"

#include <QCoreApplication>
#include <QDir>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>
#include <QTime>
#include <cstdio>
#include <memory>

#include "DemoService.hpp"
#include "children.hpp"
#include "measure.hpp"
#include "platform/linux/FileTokenStore.hpp"
#include "platform/qt/QtDefaults.hpp"
#include "report.hpp"

namespace vellix::bench {
namespace {

constexpr int kPatience = 175'000;  // ms, for one child
constexpr int kRestSeconds = 11;    // two polls and the pauses between them

const QStringList kNames{"opening", "paste", "decode", "list",   "poll", "actions", "demo",
                         "canvas",  "pages", "visits", "launch", "rest", "soak"};
const QStringList kByNameAlone{"scroll"};  // ten thousand rows are made, which takes minutes

class Child {
 public:
  Child(const QString& program, const QStringList& arguments) {
    process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process_.start(QCoreApplication::applicationDirPath() + "/" + program, arguments);
  }
  Report finish() {
    Report report;
    const bool ended = process_.waitForFinished(kPatience);
    if (!ended) process_.kill();
    for (const auto& line : process_.readAllStandardOutput().split('\n')) {
      report.read(line.toStdString());
    }
    if (!ended || process_.exitStatus() != QProcess::NormalExit || process_.exitCode() != 0) {
      report.faults.push_back(
          (process_.program() + " " + process_.arguments().join(' ') + " did not end well")
              .toStdString());
    }
    return report;
  }

 private:
  QProcess process_;
};

struct Session {
  QString server;
  QString token;
  QString scene;  // a file
};

std::unique_ptr<Child> start(bool bare, const Session& session, int seconds) {
  const QStringList times{QString::number(wallTime(), 'f'), QString::number(seconds)};
  if (!bare) {
    return std::make_unique<Child>("vellix_bench", QStringList{"--child", "launch"} + times);
  }
  return std::make_unique<Child>("vellix_bench_bare",
                                 times + QStringList{session.server, session.token, session.scene});
}

// Has the program tell what it shows, for the bare one. It warms the disk as well, and has the
// service paint its pictures.
Report tellScene(const Session& session) {
  return Child("vellix_bench",
               {"--child", "launch", QString::number(wallTime(), 'f'), "0", session.scene})
      .finish();
}

Report launches(const Session& session) {
  Report all;
  all.add({.faults = tellScene(session).faults});
  std::vector<double> first[2];
  std::vector<double> cpu[2];
  std::vector<double> memory[2];
  for (int round = 0; round <= kRounds; ++round) {
    for (const bool bare : {false, true}) {
      const Report one = start(bare, session, 0)->finish();
      all.add({.faults = one.faults});
      if (round == 0) continue;
      cpu[bare].push_back(one.figure("cpu to it"));
      first[bare].push_back(one.figure("first"));
      memory[bare].push_back(one.figure("pss"));
    }
  }
  all.results = {
      {"launch to the first painted board and page", median(first[0]), median(first[1]), "ms", 1.5},
      {"  its CPU, of all threads", median(cpu[0]), median(cpu[1]), "ms", 1.5},
      {"memory with board and page shown (PSS)", median(memory[0]), median(memory[1]), "MB", 1.5}};
  return all;
}

// What is due is told to the minute, so a minute that turns may rightly paint.
void awaitRoomInTheMinute() {
  while (QTime::currentTime().second() > 57 - kRestSeconds - 2) QThread::msleep(100);
}

Report rest(const Session& session) {
  const Report scene = tellScene(session);
  awaitRoomInTheMinute();
  const auto ours = start(false, session, kRestSeconds);
  const auto bare = start(true, session, kRestSeconds);
  const Report our = ours->finish();
  const Report their = bare->finish();
  Report all;
  all.add({.faults = scene.faults});
  all.add({.faults = our.faults});
  all.add({.faults = their.faults});
  const std::string seconds = std::to_string(kRestSeconds) + " s";
  all.results = {{"context switches in " + seconds + " of rest, with its polls",
                  our.figure("switches"), their.figure("switches"), "", 2}};
  // A poll each five seconds is all that may wake it.
  constexpr int kPolls = kRestSeconds / 5 + 1;
  if (!(our.figure("frames") == 0)) all.faults.push_back("a window at rest painted frames");
  if (!(our.figure("timers") <= kPolls)) all.faults.push_back("a window at rest has timers");
  return all;
}

// The user's own profile is neither read nor written, and no keyring is asked.
bool layOutProfile(const QString& folder, const DemoService& service, const std::string& token) {
  const QString path = QDir(folder).absolutePath();
  for (const char* kind : {"CONFIG", "CACHE", "DATA", "STATE"}) {
    const QString home = path + "/" + QString(kind).toLower();
    QDir().mkpath(home);
    qputenv(QByteArray("XDG_") + kind + "_HOME", home.toUtf8());
  }
  QDir().mkpath(path + "/runtime");
  QFile::setPermissions(path + "/runtime", QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
  qputenv("XDG_RUNTIME_DIR", (path + "/runtime").toUtf8());
  qputenv("HOME", path.toUtf8());
  qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=" + path.toUtf8() + "/no-bus");
  QtDefaults().setText("ServerURL", service.server());
  FileTokenStore tokens(configFolder() + "/session");
  tokens.add(token);
  return FileTokenStore(configFolder() + "/session").read() == token;
}

// One after the other, each in front of a program that has done nothing else.
Report actionsOf(const QString& name) {
  Report all;
  for (int kind = 0; kind < kKinds; ++kind) {
    all.add(Child("vellix_bench", {"--child", name, QString::number(kind)}).finish());
  }
  return all;
}

Report measure(const QString& name, const Session& session) {
  if (name == "actions" || name == "demo") return actionsOf(name);
  if (name == "launch") return launches(session);
  if (name == "rest") return rest(session);
  QStringList arguments{"--child", name};
  if (name == "poll") arguments << session.server << session.token;
  return Child("vellix_bench", arguments).finish();
}

}  // namespace

int run(const QStringList& names) {
  for (const auto& name : names) {
    if ((kNames + kByNameAlone).contains(name)) continue;
    std::fprintf(stderr, "vellix_bench [%s]...\n", qPrintable((kNames + kByNameAlone).join('|')));
    return 2;
  }
  // All in one thread and without a pause for further changes, so that a frame follows at once.
  qputenv("QSG_RENDER_LOOP", "basic");
  qputenv("QT_QPA_UPDATE_IDLE_TIME", "0");
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const QTemporaryDir folder;
  DemoService service;
  const std::string token = service.server().empty() ? "" : service.signIn();
  if (token.empty() || !layOutProfile(folder.path(), service, token)) {
    std::fprintf(stderr, "The demo service could not be started.\n");
    return 1;
  }
  const Session session{QString::fromStdString(service.server()), QString::fromStdString(token),
                        folder.filePath("scene.json")};
  Report all;
  for (const auto& name : names.isEmpty() ? kNames : names) {
    std::printf("%s...\n", qPrintable(name));
    std::fflush(stdout);
    all.add(measure(name, session));
  }
  all.print();
  return all.good() ? 0 : 1;
}

}  // namespace vellix::bench
