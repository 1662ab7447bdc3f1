#include "update/update_prompts.hpp"

#include "records/words.hpp"

namespace vellix {
namespace {

using Kind = Updater::Phase::Kind;

UpdateStepView stepOf(const Updater::Phase& phase) {
  return {.working = phase.kind == Kind::working,
          .text = phase.text,
          .updatable = phase.kind == Kind::idle,
          .repeatable = phase.kind == Kind::failed};
}

}  // namespace

UpdateBarView updateBar(const Updater& updater) {
  const auto& phase = updater.phase();
  UpdateBarView view{.open = updater.showsBar() || phase.kind != Kind::idle, .step = stepOf(phase)};
  if (!view.open) return {};
  if (phase.kind == Kind::failed) view.symbol = "exclamationmark.triangle.fill";
  view.text = phase.text;
  if (phase.kind != Kind::idle) return view;

  const auto& latest = *updater.latest();
  view.symbol = "arrow.down.circle.fill";
  view.text =
      updater.isRequired() ? "Update Vellix to keep going." : buildName(latest) + " is ready.";
  view.notes = wordsOf(latest.notes);
  view.postponable = !updater.isRequired();
  return view;
}

RequiredUpdateView requiredUpdate(const Updater& updater) {
  if (!updater.isRequired()) return {};
  return {.open = true,
          .line = buildName(*updater.latest()) +
                  " is out, and this copy is too old to keep going. It takes about a minute and "
                  "reopens by itself.",
          .step = stepOf(updater.phase())};
}

}  // namespace vellix
