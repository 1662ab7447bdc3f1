#include "pdf_pages.hpp"

#include "catalog.hpp"

namespace vellix::demo {
namespace {

std::vector<double> asPixels(QSize size) {
  return {static_cast<double>(size.width()), static_cast<double>(size.height())};
}

QSize sizeOf(const std::optional<std::vector<double>>& pixels) {
  if (!pixels || pixels->size() != 2) return {1, 1};
  return {static_cast<int>(pixels->front()), static_cast<int>(pixels->back())};
}

}  // namespace

Page pageRecord(const std::shared_ptr<const PdfFile>& pdf, const PdfPage& page, int index,
                const std::string& folder, Pictures& pictures) {
  const QSize size = pixelsOf(page);
  Page entry;
  entry.i = index;
  entry.w = page.width;
  entry.h = page.height;
  entry.px = asPixels(size);
  entry.img = pageKey("files/" + folder, index);
  entry.thumb = pageKey("thumbs/" + folder, index);
  entry.refs.emplace();
  enterPictures(pdf, entry, pictures);
  return entry;
}

void enterPictures(const std::shared_ptr<const PdfFile>& pdf, const Page& page,
                   Pictures& pictures) {
  const auto index = static_cast<int>(page.i);
  const QSize size = sizeOf(page.px);
  const QSize small = pixelsWithin({page.w.value_or(1), page.h.value_or(1), {}}, 180, 720);
  pictures.add(*page.img, pdf, index, size);
  pictures.add(*page.thumb, pdf, index, small);
}

RefPage refRecord(const std::shared_ptr<const PdfFile>& pdf, const PdfPage& page,
                  const Partner& partner, const std::string& folder, Pictures& pictures) {
  const QSize size = pixelsOf(page);
  const auto index = static_cast<int>(partner.page);
  RefPage entry;
  entry.i = index;
  // Without a name of its own it would be called by the proof's page, which may be another.
  entry.label = std::to_string(index + 1);
  entry.img = pageKey("refs/" + folder, index);
  entry.px = asPixels(size);
  entry.score = partner.likeness;
  entry.how = partner.byText ? "text" : "picture";
  enterPicture(pdf, entry, pictures);
  return entry;
}

void enterPicture(const std::shared_ptr<const PdfFile>& pdf, const RefPage& page,
                  Pictures& pictures) {
  pictures.add(*page.img, pdf, static_cast<int>(page.i.value_or(0)), sizeOf(page.px));
}

std::string excuseFor(const PdfReading& reading) {
  switch (reading.trouble) {
    case PdfTrouble::none:
      return {};
    case PdfTrouble::locked:
      return "The PDF is locked with a password. Upload one that opens without.";
    case PdfTrouble::empty:
      return "The PDF has no pages.";
    case PdfTrouble::tooLong:
      return "The PDF has " + std::to_string(reading.count) + " pages. Up to " +
             std::to_string(kMostPdfPages) + " can be checked.";
    case PdfTrouble::unread:
      return "The PDF could not be read just now. Upload it again.";
    case PdfTrouble::damaged:
      break;
  }
  return "The PDF is damaged and did not open. Upload it again.";
}

}  // namespace vellix::demo
