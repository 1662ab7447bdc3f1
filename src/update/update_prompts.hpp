// How a newer build is offered: the strip across the window, and the screen in front of everything
// when this copy is too old to go on.
#pragma once

#include <string>

#include "update/updater.hpp"

namespace vellix {

// What is done or has failed, and what can be done about it: the same on both.
struct UpdateStepView {
  bool working = false;  // a spinner stands before the text
  std::string text;      // empty where nothing is under way
  bool updatable = false;
  bool repeatable = false;  // as well as downloadable
  bool operator==(const UpdateStepView&) const = default;
};
BOOST_DESCRIBE_STRUCT(UpdateStepView, (), (working, text, updatable, repeatable))

struct UpdateBarView {
  bool open = false;
  std::string symbol;  // empty where a spinner stands
  std::string text;
  std::string notes;  // muted, behind the text; empty for none
  UpdateStepView step;
  bool postponable = false;
  bool operator==(const UpdateBarView&) const = default;
};
BOOST_DESCRIBE_STRUCT(UpdateBarView, (), (open, symbol, text, notes, step, postponable))
UpdateBarView updateBar(const Updater& updater);

struct RequiredUpdateView {
  bool open = false;
  std::string line;
  UpdateStepView step;
  bool operator==(const RequiredUpdateView&) const = default;
};
BOOST_DESCRIBE_STRUCT(RequiredUpdateView, (), (open, line, step))
RequiredUpdateView requiredUpdate(const Updater& updater);

}  // namespace vellix
