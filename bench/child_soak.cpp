// Eight hours of work by the program's own clock, which is put ahead: the board is polled and
// changes, and each minute a ticket is chosen, a page stepped, a decision made or a note written.
// Nothing may grow by it.
#include <QGuiApplication>
#include <algorithm>
#include <filesystem>
#include <map>
#include <numeric>
#include <ranges>

#include "Actions.hpp"
#include "CrowdedBoard.hpp"
#include "DemoService.hpp"
#include "children.hpp"
#include "measure.hpp"
#include "report.hpp"
#include "shell/allocator.hpp"
#include "shell/renderer.hpp"

namespace vellix::bench {
namespace {

constexpr int kHours = 8;
constexpr int kMinutes = 60;         // of an hour
constexpr int kPollsInAMinute = 12;  // by a window that is seen
constexpr Milliseconds kPause{5'000};
constexpr int kPatience = 2'000;      // ms, for a poll
constexpr double kLongestFrame = 50;  // ms
constexpr double kMostGrowth = 1.02;  // of the last hour against the second
constexpr int kModes = 3;
constexpr int kTickets = 4;               // that are chosen among
constexpr int kPagesSeen = 5;             // of a ticket
constexpr int kLetters = 20;              // of a note
constexpr std::ptrdiff_t kKeptNotes = 3;  // of ours on a ticket, before the oldest is taken away
constexpr int kFewest = 10;               // times that each kind of work must have been done
constexpr int kFewestPolls = 5'000;       // of 5,760: one may fall into another

double openFiles() {
  const std::filesystem::directory_iterator all("/proc/self/fd");
  return static_cast<double>(std::distance(begin(all), end(all)));
}

double mean(const std::vector<double>& figures) {
  return std::accumulate(figures.begin(), figures.end(), 0.0) / static_cast<double>(figures.size());
}

class Soak {
 public:
  Soak(Actions& actions, std::function<void()> changeBoard)
      : actions_(actions), changeBoard_(std::move(changeBoard)) {
    for (auto& kind : actions.kinds()) {
      // The program polls by itself here, and letters are written as whole notes.
      if (kind.name != "type a letter" && !kind.name.starts_with("a poll")) kinds_.push_back(kind);
    }
    done_.resize(kinds_.size());
  }

  // Has the caches hold what will be looked at: they may grow, up to their budgets.
  void fillCaches() {
    for (int mode = 0; mode < kModes; ++mode) {
      kind("switch the mode").once(mode);
      for (int ticket = 0; ticket < kTickets; ++ticket) {
        kind("select a ticket at hand").once(ticket);
        for (int page = 0; page < std::min(kPagesSeen, actions_.pages()); ++page)
          actions_.goTo(page);
      }
    }
  }

  void run() {
    for (int minute = 0; minute < kHours * kMinutes; ++minute) {
      for (int i = 0; i < kPollsInAMinute; ++i) poll();
      work(minute);
      const auto hour = static_cast<std::size_t>(minute / kMinutes);
      memory_[hour].push_back(residentMegabytes());
      files_[hour].push_back(openFiles());
    }
  }

  void report() {
    constexpr std::size_t last = kHours - 1;
    tell({"memory in the eighth hour, against the second", mean(memory_[last]), mean(memory_[1]),
          "MB", kMostGrowth});
    tell({"open files in the eighth hour, against the second", std::ranges::max(files_[last]),
          std::ranges::max(files_[1]), "", 1});
    tell({.name = "the dearest frame of eight hours (CPU)",
          .ours = std::ranges::max(dearest_ | std::views::values),
          .unit = "ms",
          .budget = kLongestFrame});
    std::string told = "In eight hours of its own clock: " + std::to_string(polls_) + " polls, " +
                       std::to_string(notes_) + " notes";
    for (std::size_t i = 0; i < kinds_.size(); ++i) {
      told += ", " + kinds_[i].name + " " + std::to_string(done_[i]) + " times";
      if (done_[i] < kFewest) tellFault(kinds_[i].name + " was hardly done");
    }
    tellNote(told + ".");
    std::string frames;
    for (const auto& [whose, dearest] : dearest_) {
      frames += " " + whose + " " + std::to_string(std::lround(dearest)) + ",";
    }
    frames.back() = '.';
    tellNote("Their dearest frames, ms:" + frames);
    std::string hours;
    for (const auto& hour : memory_) hours += " " + std::to_string(std::lround(mean(hour)));
    tellNote("Memory by the hour, MB:" + hours);
    if (notes_ < kFewest) tellFault("hardly a note was written");
    if (polls_ < kFewestPolls) tellFault("the board was hardly polled");
  }

 private:
  Actions::Kind& kind(const std::string& name) {
    return *std::ranges::find(kinds_, name, &Actions::Kind::name);
  }

  void poll() {
    const int before = polls_;
    actions_.desk().loop().putAhead(kPause);
    waitUntil([&] { return polls_ > before; }, kPatience);
  }

  void work(int n) {
    const auto which = static_cast<std::size_t>(n) % (kinds_.size() + 2);
    if (which < kinds_.size()) {
      const auto cost = kinds_[which].once(n / static_cast<int>(kinds_.size() + 2));
      if (cost) ++done_[which];
      note(cost.value_or(0), kinds_[which].name);
    } else if (which == kinds_.size()) {
      note(actions_.costs().of(changeBoard_).worst, "take the board's news");
    } else {
      writeNote();
    }
  }

  void writeNote() {
    const auto before = ours().size();
    QQuickItem* field = actions_.noteField();
    if (!field) return;
    for (int i = 0; i < kLetters; ++i) {
      note(actions_.key(Qt::Key_A + i, {}, QChar('a' + i)).worst, "type a letter");
    }
    note(actions_.key(Qt::Key_Return, Qt::ControlModifier).worst, "send a note");
    const auto now = ours();
    if (now.size() > before) ++notes_;
    if (std::ssize(now) > kKeptNotes) {
      actions_.desk().store().updateNote(now.front(), {}, {}, true);
      actions_.costs().rest();
    }
  }

  // The notes that were written here on the ticket on show, the oldest first.
  std::vector<Note> ours() {
    std::vector<Note> found;
    const FileDetail* detail = actions_.desk().store().currentDetail();
    if (!detail) return found;
    std::ranges::copy_if(detail->comments, std::back_inserter(found),
                         [](const Note& note) { return note.text.starts_with("abcdefgh"); });
    std::ranges::sort(found, {}, [](const Note& note) { return note.at; });
    return found;
  }

  void note(double frame, const std::string& whose) {
    double& dearest = dearest_[whose];
    dearest = std::max(dearest, frame);
  }

  Actions& actions_;
  std::function<void()> changeBoard_;
  std::vector<Actions::Kind> kinds_;
  std::vector<int> done_;
  int notes_ = 0;
  int polls_ = 0;
  Changes::Subscription onPoll_ =
      actions_.desk().store().changes.observe(Store::kLastOK, [this] { ++polls_; });
  std::map<std::string, double> dearest_;
  std::vector<double> memory_[kHours];
  std::vector<double> files_[kHours];
};

}  // namespace

int soakChild(int argc, char** argv) {
  giveFreedPicturesBack();
  const Settings settings;
  const QGuiApplication application(argc, argv);
  chooseRenderer();
  DemoService service;
  const std::string token = service.signIn();
  Settings::name(service.server());
  Actions actions(token, [] {});
  if (token.empty() || !actions.begin()) {
    tellFault("the demo's board was never shown");
    return 1;
  }
  int changes = 0;
  Soak soak(actions, [&] {
    // Another reviewer each time, since a ticket's date would move its row, and others be chosen.
    const BoardState& board = *actions.desk().store().board();
    const auto& file = board.files[static_cast<std::size_t>(++changes) % board.files.size()];
    const auto& user = board.users[static_cast<std::size_t>(changes) % board.users.size()];
    service.post("/api/files/" + file.id + "/assign", token,
                 QByteArray::fromStdString(R"({"email":")" + user.email + R"("})"));
  });
  soak.fillCaches();
  soak.run();
  soak.report();
  return 0;
}

}  // namespace vellix::bench
