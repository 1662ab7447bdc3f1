// A long text that is pasted into a note, and what a key costs behind it.
#include <QClipboard>
#include <QGuiApplication>

#include "Actions.hpp"
#include "CrowdedBoard.hpp"
#include "children.hpp"
#include "measure.hpp"
#include "report.hpp"

namespace vellix::bench {
namespace {

constexpr int kLength = 100'000;
constexpr int kKeys = 10;  // behind each paste
constexpr double kPasteBudget = 50;
constexpr double kKeyBudget = 8;

// One paragraph.
QString longText() {
  QString text;
  for (int i = 0; text.size() < kLength; ++i) {
    text += QString("the harbour was grey at first light %1 ").arg(i);
  }
  return text.left(kLength);
}

void measurePaste(Actions& actions) {
  QQuickItem* field = actions.noteField();
  if (!field) return tellFault("there is no field for a note");
  QGuiApplication::clipboard()->setText(longText());
  std::vector<double> pastes;
  std::vector<double> keys;
  for (int round = 0; round <= kRounds; ++round) {
    const Cost paste = actions.key(Qt::Key_V, Qt::ControlModifier);
    if (field->property("length").toInt() != kLength) return tellFault("nothing was pasted");
    if (round > 0) pastes.push_back(paste.worst);
    for (int i = 0; i < kKeys; ++i) {
      const Cost key = actions.key(Qt::Key_A, {}, "a");
      if (round > 0) keys.push_back(key.worst);
    }
    if (field->property("length").toInt() != kLength + kKeys) tellFault("a key wrote nothing");
    actions.key(Qt::Key_A, Qt::ControlModifier);
    actions.key(Qt::Key_Delete);
  }
  tell({.name = "a paste of 100 kB into a note, to its frame (CPU)",
        .ours = median(pastes),
        .unit = "ms",
        .budget = kPasteBudget});
  tell({.name = "a key behind it (CPU)", .ours = median(keys), .unit = "ms", .budget = kKeyBudget});
}

}  // namespace

int pasteChild(int argc, char** argv) { return onCrowdedBoard(argc, argv, measurePaste); }

}  // namespace vellix::bench
