#include "check/look_told.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "check/ink.hpp"

namespace vellix::demo {
namespace {

constexpr double kLetters = 4;     // the least edges of letters that can be read
constexpr double kCovered = 0.35;  // of their edges, and they cannot any more
constexpr int kInk = 24;
constexpr int kFaintInk = 5;
constexpr double kMuch = 0.6;
constexpr double kLittle = 0.2;
constexpr double kSameDrawing = 0.85;
constexpr double kFlat = 12;  // shades

QRectF onReference(const Pages& pages, const QRect& place) {
  const double width = pages.reference.width();
  const double height = pages.reference.height();
  return QRectF(place.x() / width, place.y() / height, place.width() / width,
                place.height() / height);
}

Finding finding(const Pages& pages, const char* kind, const char* severity, std::string title,
                std::string detail) {
  Finding made = findingOn(pages.page, pages.pair, kind, severity);
  made.title = std::move(title);
  made.detail = std::move(detail);
  return made;
}

std::string millimetres(const Pages& pages, int pixels) {
  return QString::number(std::abs(pixels) / pages.perMillimetre, 'f', 1).toStdString() + " mm";
}

// "3.0 mm to the right and 1.9 mm higher"
std::string asMove(const Pages& pages, QPoint pixels) {
  std::string text;
  if (pixels.x() != 0) {
    text = millimetres(pages, pixels.x()) + (pixels.x() > 0 ? " to the right" : " to the left");
  }
  if (pixels.y() != 0) {
    if (!text.empty()) text += " and ";
    text += millimetres(pages, pixels.y()) + (pixels.y() > 0 ? " lower" : " higher");
  }
  return text;
}

// The words there that can be seen on the reference and not on the proof.
std::vector<const SameWord*> hiddenIn(const Pages& pages, const QRect& place) {
  std::vector<const SameWord*> hidden;
  for (const SameWord& word : pages.words) {
    const QRect box = word.place.toAlignedRect();
    if (!box.intersects(place)) continue;
    const double edges = edgesIn(pages.reference, box);
    if (edges >= kLetters && edgesIn(pages.overlay.proof, box) < kCovered * edges) {
      hidden.push_back(&word);
    }
  }
  return hidden;
}

std::size_t linesOf(const std::vector<const SameWord*>& words) {
  std::size_t lines = 0;
  double bottom = -1;
  for (const SameWord* word : words) {
    if (lines == 0 || std::abs(word->place.bottom() - bottom) > word->place.height() / 2) ++lines;
    bottom = word->place.bottom();
  }
  return lines;
}

Finding hidden(const Pages& pages, const std::vector<const SameWord*>& words) {
  constexpr std::size_t kMostQuoted = 8;
  std::string said;
  for (std::size_t i = 0; i < std::min(words.size(), kMostQuoted); ++i) {
    said += (i > 0 ? " " : "") + words[i]->text.toStdString();
  }
  if (words.size() > kMostQuoted) said += " …";
  QRectF then;
  for (const SameWord* word : words) then |= word->place;
  const std::size_t lines = linesOf(words);
  const bool one = words.size() == 1;
  const std::string what = one ? "A word" : lines == 1 ? "A line" : counted(lines, "", "lines");
  const QRgb before = groundAround(pages.reference, then.toAlignedRect());
  const QRect middle(then.toAlignedRect().center(), QSize(1, 1));
  const bool drawnOver = away(pixelAt(pages.overlay.proof, middle.x(), middle.y()), before) > kInk;
  const bool single = one || lines == 1;
  return finding(pages, "hidden", "high",
                 what + (!drawnOver ? " cannot be seen"
                         : single   ? " lies under the art"
                                    : " lie under the art"),
                 "“" + said + "” is in the file, and " +
                     (drawnOver ? "something is drawn over it." : "nothing of it shows.") +
                     " On the page of " + pages.pair.called + " it can be read.");
}

// What the pixels that differ show on either side.
struct Drawn {
  double before = 0;  // the parts of them that are not the ground
  double now = 0;
  bool flat = false;  // one colour each
};

Drawn drawnIn(const Pages& pages, const Area& area) {
  struct Colours {
    std::array<double, 3> sum{};
    std::array<double, 3> squares{};
  };
  const QImage* pictures[] = {&pages.reference, &pages.overlay.proof};
  const int least = area.faint ? kFaintInk : kInk;
  std::array<double, 2> ink{};
  std::array<Colours, 2> colours;
  double count = 0;
  const std::array<QRgb, 2> grounds{groundAround(*pictures[0], area.place),
                                    groundAround(*pictures[1], area.place)};
  for (int y = area.place.top(); y <= area.place.bottom(); ++y) {
    for (int x = area.place.left(); x <= area.place.right(); ++x) {
      const uchar* at[] = {pixelAt(*pictures[0], x, y), pixelAt(*pictures[1], x, y)};
      if (away(at[0], qRgb(at[1][0], at[1][1], at[1][2])) <= least) continue;
      ++count;
      for (std::size_t side = 0; side < 2; ++side) {
        ink[side] += away(at[side], grounds[side]) > least ? 1 : 0;
        for (std::size_t i = 0; i < 3; ++i) {
          colours[side].sum[i] += at[side][i];
          colours[side].squares[i] += at[side][i] * at[side][i];
        }
      }
    }
  }
  if (count == 0) return {};
  bool flat = true;
  for (const Colours& side : colours) {
    for (std::size_t i = 0; i < 3; ++i) {
      const double mean = side.sum[i] / count;
      flat = flat && side.squares[i] / count - mean * mean < kFlat * kFlat;
    }
  }
  return {ink[0] / count, ink[1] / count, flat};
}

Finding drawn(const Pages& pages, const Area& area) {
  const Drawn shown = drawnIn(pages, area);
  const std::string& file = pages.pair.called;
  if (shown.before >= kMuch && shown.now < kLittle) {
    return finding(pages, "picture", "high", "Art is missing",
                   "Nothing is drawn here where " + file + " shows something.");
  }
  if (shown.now >= kMuch && shown.before < kLittle) {
    return finding(pages, "picture", "medium", "Art came in",
                   "Something is drawn here where " + file + " shows nothing.");
  }
  const bool sameDrawing =
      std::abs(likenessIn(pages.reference, pages.overlay.proof, area.place)) >= kSameDrawing;
  if (shown.flat || sameDrawing) {
    return finding(pages, "picture", "medium", "The color differs",
                   "It is drawn as in " + file + ", in another color.");
  }
  return finding(pages, "picture", "medium", "The art differs",
                 "What is drawn here is not what " + file + " shows.");
}

}  // namespace

Finding ofArea(const Pages& pages, const Area& area) {
  const auto covered = hiddenIn(pages, area.place);
  Finding made = covered.empty() ? drawn(pages, area) : hidden(pages, covered);
  putBoxes(made, {pages.overlay.ofProof(area.place)}, {onReference(pages, area.place)});
  return made;
}

Finding ofMove(const Pages& pages, const ArtMove& move) {
  Finding made =
      finding(pages, "picture", "medium", "The art sits elsewhere",
              "The picture is " + asMove(pages, move.to.topLeft() - move.from.topLeft()) +
                  " than in " + pages.pair.called + ".");
  putBoxes(made, {pages.overlay.ofProof(move.to)}, {onReference(pages, move.from)});
  return made;
}

Finding throughout(const Pages& pages, const std::vector<Area>& areas,
                   const std::vector<ArtMove>& moves) {
  QRect now;
  QRect then;
  for (const Area& area : areas) {
    now |= area.place;
    then |= area.place;
  }
  for (const ArtMove& move : moves) {
    now |= move.to;
    then |= move.from;
  }
  Finding made = finding(pages, "picture", "medium", "The page looks different",
                         "It is drawn otherwise than in " + pages.pair.called + " in " +
                             std::to_string(areas.size() + moves.size()) + " places.");
  putBoxes(made, {pages.overlay.ofProof(now)}, {onReference(pages, then)});
  return made;
}

Finding liesAside(const Pages& pages, bool all) {
  return finding(pages, "picture", "low", "The page lies elsewhere",
                 std::string(all ? "All" : "Most") + " of it is " +
                     asMove(pages, pages.overlay.aside) + " than in " + pages.pair.called + ".");
}

}  // namespace vellix::demo
