#include "pieces/vocabulary.hpp"

namespace vellix {

PillView statusPill(std::string_view status) {
  if (status == "reviewed")
    return {.text = "Reviewed", .icon = "checkmark.circle", .tone = "green"};
  if (status == "in_review")
    return {.text = "In review", .icon = "magnifyingglass", .tone = "amber"};
  return {.text = "New", .icon = "", .tone = "purple", .dashed = true};
}

PillView severityPill(std::string_view severity) {
  if (severity == "high") return {.text = "Fix", .icon = "exclamationmark.triangle", .tone = "red"};
  if (severity == "medium") return {.text = "Check", .icon = "eye", .tone = "amber"};
  return {.text = "Minor", .icon = "minus.circle", .tone = "gray"};
}

PillView trackPill(bool reprint) {
  if (reprint) return {.text = "Reprint", .icon = "arrow.triangle.2.circlepath", .tone = "gray"};
  return {.text = "New title", .icon = "sparkles", .tone = "gray"};
}

}  // namespace vellix
