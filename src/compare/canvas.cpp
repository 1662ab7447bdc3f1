#include "compare/canvas.hpp"

#include "records/finding_words.hpp"
#include "records/words.hpp"

namespace vellix {
namespace {

PaneInfo rolePane(const std::string& role, const Page& page, Int version) {
  const RefPage* ref = refPage(page, role);
  const std::string name = role == "previous" ? "v" + std::to_string(version - 1) : roleLabel(role);
  return {
      .key = role,
      .role = role,
      .img = ref ? ref->img : std::nullopt,
      .aspect = aspectOf(ref, page),
      .label = name + " · p" + wordsOr(ref ? ref->label : std::nullopt, page.name()),
      .tone = role == "submitted" ? "blue" : "orange",
  };
}

}  // namespace

const RefPage* refPage(const Page& page, const std::string& role) {
  if (!page.refs) return nullptr;
  const auto found = page.refs->find(role);
  return found == page.refs->end() ? nullptr : &found->second;
}

double aspectOf(const RefPage* ref, const Page& page) {
  const bool sized = ref && ref->px && ref->px->size() == 2 && (*ref->px)[1] > 0;
  return sized ? (*ref->px)[0] / (*ref->px)[1] : page.aspect();
}

std::string thirdRole(const Page& page, const FileItem& file, Int version) {
  if (version >= 2) return "previous";
  std::string preferred = file.track == "reprint" ? "latest" : "fbc";
  if (refPage(page, preferred) || file.ref(preferred)) return preferred;
  for (const char* other : {"fbc", "latest"}) {
    if (refPage(page, other)) return other;
  }
  return preferred;
}

std::vector<PaneInfo> panesOf(const Page& page, const FileItem& file, Int version,
                              const std::set<std::string>& shown) {
  std::vector<PaneInfo> panes;
  if (shown.contains("supplier")) {
    const std::string name =
        version >= 2 ? "v" + std::to_string(version) : supplierOf(file) + " file";
    panes.push_back({.key = "supplier",
                     .img = page.img,
                     .aspect = page.aspect(),
                     .label = name + " · p" + page.name(),
                     .tone = "purple",
                     .thumb = page.thumb});
  }
  if (version < 2 && shown.contains("submitted")) {
    panes.push_back(rolePane("submitted", page, version));
  }
  if (shown.contains("third")) {
    panes.push_back(rolePane(thirdRole(page, file, version), page, version));
  }
  return panes;
}

std::vector<std::string> rolesOf(const std::vector<PaneInfo>& panes) {
  std::vector<std::string> roles;
  for (const auto& pane : panes) {
    if (pane.role) roles.push_back(*pane.role);
  }
  return roles;
}

}  // namespace vellix
