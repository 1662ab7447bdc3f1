// One ticket of ten thousand changes: what the list makes of it.
#include <QGuiApplication>

#include "BigBoard.hpp"
#include "Desk.hpp"
#include "children.hpp"
#include "measure.hpp"
#include "report.hpp"

namespace vellix::bench {
namespace {

constexpr double kBudget = 8;  // ms

struct RowSignals {
  explicit RowSignals(QAbstractItemModel* rows) {
    QObject::connect(rows, &QAbstractItemModel::dataChanged, &context,
                     [this](const QModelIndex& first, const QModelIndex& last) {
                       changed += last.row() - first.row() + 1;
                     });
    others.watch(rows);
  }
  int changed = 0;
  SignalCount others;  // `dataChanged` among them
  QObject context;
};

// As an answer comes in: records of its own, and then those that are held in place of equal ones.
// Both are done where it comes in, which is not the main thread.
BoardState comesIn(const BoardState& board, const SharedList<FileItem>& held) {
  BoardState fresh = board;
  fresh.files = std::vector<FileItem>(fresh.files.begin(), fresh.files.end());
  fresh.files.shareWith(held);
  return fresh;
}

}  // namespace

int listChild(int argc, char** argv) {
  const QGuiApplication application(argc, argv);
  Desk desk("staged", Desk::Board::staged);
  if (!desk.shown()) return 1;
  BoardState board = bigBoard(kManyTickets);
  const FileItem first = board.files.front();
  desk.store().details.edit([&](auto& details) { details[first.id] = {.file = first}; });
  desk.store().selection.set({first.id});
  desk.store().board.set(board);
  const auto filled = [&] { return desk.board().rows()->rowCount() > kManyTickets / 2; };
  if (!waitUntil(filled) || !desk.frames().settle()) {
    tellFault("the list was never filled");
    return 1;
  }

  RowSignals rows(desk.board().rows());
  std::vector<double> whole;
  int wrong = 0;
  for (int round = 0; round <= kRounds; ++round) {
    board.files.front().po = "PO-" + std::to_string(round);
    BoardState next = comesIn(board, desk.store().board()->files);
    const int frames = desk.frames().count();
    const int changed = rows.changed;
    const int told = rows.others.count();
    const double start = cpuOfThread();
    desk.store().board.set(std::move(next));
    // The changed row is the first one, so a frame is due.
    if (!waitUntil([&] { return desk.frames().count() > frames; })) ++wrong;
    const double took = cpuOfThread() - start;
    if (rows.changed - changed != 1 || rows.others.count() - told != 1) ++wrong;
    if (round > 0) whole.push_back(took);
    desk.frames().settle(50);
  }
  tell({.name = "one ticket of 10,000 differs, to the frame (CPU)",
        .ours = median(whole),
        .unit = "ms",
        .budget = kBudget});
  if (wrong > 0) tellFault("a changed ticket did not signal exactly its own row");
  return 0;
}

}  // namespace vellix::bench
