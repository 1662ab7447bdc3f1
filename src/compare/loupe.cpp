#include "compare/loupe.hpp"

#include <algorithm>

#include "compare/canvas.hpp"
#include "compare/crop.hpp"
#include "compare/marks.hpp"
#include "records/finding_words.hpp"
#include "records/words.hpp"

namespace vellix {
namespace {

const Finding* findingInFocus(const Store& store, const FileDetail& detail, Int index) {
  if (!store.prefs.openLoupe() || !store.focus()) return nullptr;
  const auto found = std::ranges::find(detail.findings, *store.focus(), &Finding::id);
  const bool here = found != detail.findings.end() && found->page == index && found->box;
  return here ? &*found : nullptr;
}

CropView referenceCrop(const Finding& finding, const Page& page, const std::string& role,
                       const RefPage& reference) {
  const bool own = role == finding.against && finding.ref_box;
  const double aspect = aspectOf(&reference, page);
  return {.key = role,
          .img = *reference.img,
          .aspect = aspect,
          .part = cropAround(boxOf(own ? finding.ref_box : finding.box), aspect),
          .boxes = own ? boxesOn(role, finding) : boxesOf(finding),
          .colour = "reference",
          .label = roleLabel(role)};
}

}  // namespace

LoupeView loupe(const Store& store, const FileDetail& detail, const Page& page, Int index,
                const std::vector<std::string>& roles) {
  const Finding* finding = findingInFocus(store, detail, index);
  if (!finding) return {};
  LoupeView view{.open = true, .caption = cardCaption(*finding), .title = finding->title};
  view.crops.push_back({.key = "supplier",
                        .img = page.img.value_or(""),
                        .aspect = page.aspect(),
                        .part = cropAround(boxOf(finding->box), page.aspect()),
                        .boxes = boxesOf(*finding),
                        .colour = "accent",
                        .label = supplierOf(detail.file) + " file"});
  const auto compared = roles.empty() ? std::vector{finding->against} : roles;
  for (const auto& role : compared) {
    const RefPage* reference = refPage(page, role);
    if (reference && hasWords(reference->img)) {
      view.crops.push_back(referenceCrop(*finding, page, role, *reference));
    }
  }
  return view;
}

}  // namespace vellix
