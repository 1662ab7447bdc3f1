#include "defects.hpp"

#include <algorithm>
#include <map>

#include "barcode.hpp"

namespace vellix::demo {
namespace {

using Words = std::vector<Word>;

const std::map<QString, QString>& mistakes() {
  static const std::map<QString, QString> pairs = {
      {"evening", "morning"}, {"morning", "evening"}, {"north", "south"},  {"cold", "old"},
      {"never", "ever"},      {"light", "sight"},     {"lamp", "lump"},    {"water", "winter"},
      {"once", "ounce"},      {"house", "horse"},     {"paper", "pepper"}, {"quiet", "quite"},
      {"through", "though"},  {"from", "form"},       {"where", "were"},   {"then", "than"},
      {"little", "litter"},   {"there", "their"},     {"great", "grate"},  {"three", "tree"},
      {"their", "there"},     {"looked", "locked"},   {"wall", "well"},    {"window", "widow"},
      {"salt", "silt"},       {"bread", "beard"},     {"first", "fist"},   {"heard", "head"},
      {"twice", "twine"},     {"which", "witch"},     {"while", "whole"},  {"time", "tine"},
      {"would", "could"},     {"before", "be fore"}};
  return pairs;
}

std::string phrase(const Words& words, std::size_t at, std::size_t count = 1) {
  const std::size_t begin = at < 2 ? 0 : at - 2;
  const std::size_t end = std::min(words.size(), at + count + 3);
  QStringList parts;
  for (std::size_t i = begin; i < end; ++i) parts << words[i].text;
  return parts.join(u' ').toStdString();
}

std::string quoted(const QString& text) { return "“" + text.toStdString() + "”"; }

std::optional<Planted> changeIn(Words& words, std::size_t from, const std::string& place,
                                Defect defect) {
  for (std::size_t i = from; i < words.size(); ++i) {
    if (words[i].face != Face::roman) continue;
    const QString old = words[i].text;
    QString now;
    if (defect == Defect::stopForComma) {
      if (!old.endsWith(u',') || i + 1 == words.size()) continue;
      now = old.left(old.size() - 1) + u'.';
    } else {
      const auto found = mistakes().find(old);
      if (found == mistakes().end()) continue;
      now = found->second;
    }
    Planted planted{defect, {words[i].id}, {}, {}, {}, phrase(words, i), {}};
    words[i].text = now;
    planted.after = phrase(words, i);
    const bool stop = defect == Defect::stopForComma;
    planted.title = stop ? "Full stop for a comma, " + place : "One word changed";
    planted.detail = (stop ? "A full stop stands" : "It reads " + quoted(now)) + " where we sent " +
                     (stop ? "a comma, after “" + old.left(old.size() - 1).toStdString() + "”."
                           : quoted(old) + ".");
    if (!stop) planted.detail = "The proof, " + place + ": " + planted.detail;
    return planted;
  }
  return std::nullopt;
}

std::optional<Planted> changeText(PageArt& page, Defect defect, int line) {
  if (page.kind != PageKind::text) return changeIn(page.blurb, 6, "in the blurb", defect);
  auto& lines = page.text.lines;
  for (auto i = static_cast<std::size_t>(line); i < lines.size(); ++i) {
    const std::string place = "line " + std::to_string(i + 1);
    if (auto planted = changeIn(lines[i].words, 1, place, defect)) return planted;
  }
  return std::nullopt;
}

// Ends a line early and sets the rest of the paragraph anew behind it.
std::optional<Planted> moveBreak(PageArt& page, int line) {
  auto& lines = page.text.lines;
  for (auto i = static_cast<std::size_t>(std::max(line, 0)); i + 1 < lines.size(); ++i) {
    Line& early = lines[i];
    if (early.ends || early.words.size() < 7 || early.indent > 100) continue;
    std::size_t last = i;
    while (last < lines.size() && !lines[last].ends) ++last;
    if (last == lines.size() || last - i > 4) continue;

    Planted planted{Defect::movedBreak, {}, {}, "A line ends early", {}, {}, {}};
    const std::size_t keep = early.words.size() - 2;
    Words rest;
    QStringList moved;
    for (std::size_t w = keep; w < early.words.size(); ++w) {
      planted.wordIds.push_back(early.words[w].id);
      moved << early.words[w].text;
      rest.push_back(early.words[w]);
    }
    planted.detail = "Line " + std::to_string(i + 1) + " breaks before " +
                     quoted(moved.join(u' ')) +
                     ", and the rest of the paragraph runs on from there.";
    planted.before = phrase(early.words, keep, 2);
    early.words.resize(keep);
    early.justified = false;
    for (std::size_t l = i + 1; l <= last; ++l) {
      rest.insert(rest.end(), lines[l].words.begin(), lines[l].words.end());
    }
    auto reset = brokenLines(rest, 0, textBlock().width());
    for (Line& next : reset) next.starts = false;
    lines.erase(lines.begin() + static_cast<std::ptrdiff_t>(i) + 1,
                lines.begin() + static_cast<std::ptrdiff_t>(last) + 1);
    lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(i) + 1, reset.begin(), reset.end());
    planted.after = planted.before;
    const auto space = planted.after.find(moved.join(u' ').toStdString());
    if (space != std::string::npos && space > 0) planted.after.replace(space - 1, 1, " / ");
    return planted;
  }
  return std::nullopt;
}

// A passage that runs over the end of a line, so that it takes a box on each.
std::optional<Planted> changeFont(PageArt& page, int line) {
  auto& lines = page.text.lines;
  for (auto i = static_cast<std::size_t>(std::max(line, 0)); i + 1 < lines.size(); ++i) {
    if (lines[i].words.size() < 7 || lines[i + 1].words.size() < 5 || lines[i].ends) continue;
    Planted planted{Defect::wrongFont, {}, {}, "A passage is in another font", {}, {}, {}};
    QStringList passage;
    const auto change = [&](Word& word) {
      word.face = Face::fallback;
      planted.wordIds.push_back(word.id);
      passage << word.text;
    };
    for (std::size_t w = lines[i].words.size() - 4; w < lines[i].words.size(); ++w) {
      change(lines[i].words[w]);
    }
    change(lines[i + 1].words[0]);
    change(lines[i + 1].words[1]);
    planted.detail = quoted(passage.join(u' ')) +
                     " is set in DejaVu Sans. We sent it in EB Garamond, so the font was probably "
                     "not embedded.";
    return planted;
  }
  return std::nullopt;
}

}  // namespace

std::string kindOf(Defect defect) {
  switch (defect) {
    case Defect::changedWord:
    case Defect::stopForComma:
      return "words";
    case Defect::movedBreak:
      return "breaks";
    case Defect::wrongFont:
      return "fonts";
    case Defect::shiftedPicture:
      return "picture";
    case Defect::barcodeDigit:
      return "barcode";
    case Defect::strayColour:
      return "spots";
    case Defect::coveredCredit:
      return "hidden";
    case Defect::trimmed:
      return "size";
  }
  return "words";
}

std::optional<Planted> plant(PageArt& page, Defect defect, int line) {
  const bool text = page.kind == PageKind::text;
  Planted planted{defect, {}, {}, {}, {}, {}, {}};
  switch (defect) {
    case Defect::changedWord:
    case Defect::stopForComma:
      return changeText(page, defect, std::max(line, 0));
    case Defect::movedBreak:
      return text ? moveBreak(page, line) : std::nullopt;
    case Defect::wrongFont:
      return text ? changeFont(page, line) : std::nullopt;
    case Defect::shiftedPicture:
      if (text && page.text.plateHeight <= 0) return std::nullopt;
      page.pictureShift = {0.0195, -0.0088};
      planted.element = Element::picture;
      planted.title = "The art sits elsewhere";
      planted.detail = "The picture is 3.0 mm to the right and 1.9 mm higher than in our file.";
      return planted;
    case Defect::barcodeDigit: {
      if (text || page.barcode.size() != 13) return std::nullopt;
      planted.before = page.barcode;
      page.barcode[9] = page.barcode[9] == '7' ? '1' : '7';
      planted.after = page.barcode;
      planted.element = Element::barcode;
      planted.title = "The barcode reads another number";
      planted.detail = "It reads " + page.barcode + ". Our file has " + planted.before +
                       ", and the check digit of the new number should be " +
                       std::string(1, checkDigit(page.barcode)) + ".";
      return planted;
    }
    case Defect::strayColour:
      if (text) return std::nullopt;
      page.strayColour = true;
      planted.element = Element::medal;
      planted.title = "A spot color is left in the file";
      planted.detail = "The medal prints in a fifth ink, “Spot Magenta 2”. Our file has four.";
      return planted;
    case Defect::coveredCredit:
      if (text) return std::nullopt;
      page.creditCovered = true;
      planted.element = Element::credit;
      planted.title = "A line lies under the art";
      planted.detail = "The credit line is in the file, and the color band is drawn over it.";
      return planted;
    case Defect::trimmed:
      page.trim = 12;
      planted.title = "The page is narrower";
      planted.detail = "151.1 × 215.9 mm, where we sent 152.4 × 215.9 mm.";
      return planted;
  }
  return std::nullopt;
}

Finding located(const Planted& planted, const PageArt& proof, const PageArt& reference) {
  Finding finding;
  finding.kind = kindOf(planted.defect);
  finding.title = planted.title;
  if (!planted.detail.empty()) finding.detail = planted.detail;
  if (!planted.before.empty()) finding.before = planted.before;
  if (!planted.after.empty()) finding.after = planted.after;
  if (planted.element) {
    finding.box = fractionBox(proof, *planted.element);
    finding.ref_box = fractionBox(reference, *planted.element);
  } else if (!planted.wordIds.empty()) {
    const auto boxes = fractionBoxes(proof, planted.wordIds);
    const auto refBoxes = fractionBoxes(reference, planted.wordIds);
    if (!boxes.empty()) finding.box = boxes.front();
    if (!refBoxes.empty()) finding.ref_box = refBoxes.front();
    if (boxes.size() > 1) finding.boxes = boxes;
  }
  return finding;
}

}  // namespace vellix::demo
