#include "reader/prepress.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <exception>
#include <optional>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFPageObjectHelper.hh>
#include <set>

#include "reader/document.hpp"

namespace vellix::demo {
namespace {

constexpr int kDeepest = 24;
// Of all pages together; a made-up PDF may lead anywhere.
constexpr int kMostVisited = 400'000;

QString nameOf(QPDFObjectHandle object) {
  const std::string name = object.getName().substr(1);
  const QString text = QString::fromStdString(name);
  return text.contains(QChar::ReplacementCharacter) ? QString::fromLatin1(name) : text;
}

// Finds the spot colours below one page's resources.
class Inks {
 public:
  explicit Inks(int& left) : left_(left) {}

  void resources(QPDFObjectHandle resources, int depth = 0) {
    if (!enter(resources, depth) || !resources.isDictionary()) return;
    each(resources.getKey("/ColorSpace"), [&](auto space) { colours(space, depth + 1); });
    each(resources.getKey("/XObject"), [&](auto object) { drawn(object, depth + 1); });
    each(resources.getKey("/Pattern"), [&](auto pattern) { drawn(pattern, depth + 1); });
    each(resources.getKey("/Shading"),
         [&](auto shading) { colours(entry(shading, "/ColorSpace"), depth + 1); });
    // A font may be drawn as pages are, and a mask too.
    each(resources.getKey("/Font"),
         [&](auto font) { this->resources(entry(font, "/Resources"), depth + 1); });
    each(resources.getKey("/ExtGState"),
         [&](auto state) { drawn(entry(entry(state, "/SMask"), "/G"), depth + 1); });
  }

  std::vector<QString> found() const { return {found_.begin(), found_.end()}; }

 private:
  // Of a dictionary, or the one that a stream begins with.
  static QPDFObjectHandle entry(QPDFObjectHandle object, const char* key) {
    if (object.isStream()) return object.getDict().getKey(key);
    return object.isDictionary() ? object.getKey(key) : QPDFObjectHandle::newNull();
  }

  template <class Use>
  static void each(QPDFObjectHandle dictionary, const Use& use) {
    if (!dictionary.isDictionary()) return;
    for (const auto& [key, value] : dictionary.ditems()) use(value);
  }

  // False for what was seen before, or lies too deep.
  bool enter(QPDFObjectHandle object, int depth) {
    if (depth > kDeepest || left_ <= 0) return false;
    --left_;
    return !object.isIndirect() || seen_.insert(object.getObjGen()).second;
  }

  // A form, an image or a pattern.
  void drawn(QPDFObjectHandle object, int depth) {
    if (!enter(object, depth)) return;
    colours(entry(object, "/ColorSpace"), depth + 1);
    colours(entry(entry(object, "/Shading"), "/ColorSpace"), depth + 1);
    colours(entry(entry(object, "/Group"), "/CS"), depth + 1);
    resources(entry(object, "/Resources"), depth + 1);
  }

  void colours(QPDFObjectHandle space, int depth) {
    if (!enter(space, depth) || !space.isArray() || space.getArrayNItems() < 2) return;
    QPDFObjectHandle kind = space.getArrayItem(0);
    QPDFObjectHandle what = space.getArrayItem(1);
    if (!kind.isName()) return;
    if (kind.getName() == "/Separation") {
      ink(what);
    } else if (kind.getName() == "/DeviceN" && what.isArray()) {
      for (int i = 0; i < what.getArrayNItems(); ++i) ink(what.getArrayItem(i));
    } else if (kind.getName() == "/Indexed" || kind.getName() == "/Pattern") {
      colours(what, depth + 1);
    }
  }

  void ink(QPDFObjectHandle name) {
    static const std::set<QString> common = {QStringLiteral("All"),    QStringLiteral("None"),
                                             QStringLiteral("Cyan"),   QStringLiteral("Magenta"),
                                             QStringLiteral("Yellow"), QStringLiteral("Black")};
    if (!name.isName()) return;
    const QString text = nameOf(name);
    if (!text.isEmpty() && !common.contains(text)) found_.insert(text);
  }

  int& left_;
  std::set<QPDFObjGen> seen_;
  std::set<QString> found_;
};

std::optional<QRectF> boxOf(QPDFObjectHandle box) {
  if (!box.isArray() || box.getArrayNItems() != 4) return std::nullopt;
  std::array<double, 4> edges{};
  for (int i = 0; i < 4; ++i) {
    QPDFObjectHandle edge = box.getArrayItem(i);
    if (!edge.isNumber()) return std::nullopt;
    edges.at(static_cast<std::size_t>(i)) = edge.getNumericValue();
  }
  return QRectF(QPointF(edges[0], edges[1]), QPointF(edges[2], edges[3])).normalized();
}

// As shown, and never more than the sheet; empty when the page has no such box.
QSizeF shown(QPDFPageObjectHelper& page, const char* key) {
  const auto box = boxOf(page.getObjectHandle().getKey(key));
  if (!box) return {};
  const auto sheet = boxOf(page.getAttribute("/MediaBox", false));
  const QSizeF size = (sheet ? box->intersected(*sheet) : *box).size();
  QPDFObjectHandle turned = page.getAttribute("/Rotate", false);
  const bool lies = turned.isInteger() && turned.getIntValue() % 180 != 0;
  return lies ? size.transposed() : size;
}

// How many points a page's own unit has, of which all its lengths are told.
double unitOf(QPDFPageObjectHelper& page) {
  constexpr double kMost = 75'000;
  QPDFObjectHandle unit = page.getObjectHandle().getKey("/UserUnit");
  const double points = unit.isNumber() ? unit.getNumericValue() : 1;
  return points > 0 && points <= kMost ? points : 1;
}

}  // namespace

struct Prepress::Opened {
  QPDF pdf;
  std::vector<QPDFObjectHandle> pages;
  int left = kMostVisited;
};

Prepress::Prepress() : opened_(std::make_unique<Opened>()) {
  try {
    opened_->pdf.setSuppressWarnings(true);
    // What is damaged is mended by poppler alone; both would take twice the time.
    opened_->pdf.setAttemptRecovery(false);
    opened_->pdf.processFile(kInput);
    opened_->pages = opened_->pdf.getAllPages();
  } catch (const std::exception&) {
    opened_->pages.clear();
  }
}

Prepress::~Prepress() = default;

void Prepress::tell(int page, PdfPage& entry) {
  if (page < 0 || page >= std::ssize(opened_->pages)) return;
  try {
    QPDFPageObjectHelper helper(opened_->pages[static_cast<std::size_t>(page)]);
    entry.trim = shown(helper, "/TrimBox");
    entry.bleed = shown(helper, "/BleedBox");
    const double unit = unitOf(helper);
    entry.width *= unit;
    entry.height *= unit;
    entry.trim *= unit;
    entry.bleed *= unit;
    for (PdfWord& word : entry.words) word.size *= unit;
    Inks inks(opened_->left);
    inks.resources(helper.getAttribute("/Resources", false));
    entry.inks = inks.found();
  } catch (const std::exception&) {
    return;  // the rest of the page is read all the same
  }
}

}  // namespace vellix::demo
