#include "text_flow.hpp"

#include <QHash>
#include <algorithm>
#include <cmath>

#include "reading_order.hpp"
#include "running_heads.hpp"

namespace vellix::demo {
namespace {

using Numbers = std::vector<std::size_t>;

bool isHyphen(QChar letter) {
  const char16_t code = letter.unicode();
  return code == u'-' || code == 0xAD || code == 0x2010 || code == 0x2011 || code == 0x58A;
}

// Of scripts that put no spaces between words.
bool standsAlone(char32_t code) {
  return (code >= 0x2E80 && code <= 0x31FF && code != 0x3000) ||
         (code >= 0x3400 && code <= 0x9FFF) || (code >= 0xF900 && code <= 0xFAFF) ||
         (code >= 0x20000 && code <= 0x3FFFF);
}

bool readsLeftwards(const QString& text) {
  return std::ranges::any_of(text, [](QChar letter) {
    return letter.direction() == QChar::DirR || letter.direction() == QChar::DirAL;
  });
}

QRectF sensible(const QRectF& box) {
  const bool finite = std::isfinite(box.x()) && std::isfinite(box.y()) &&
                      std::isfinite(box.width()) && std::isfinite(box.height());
  return finite && box.isValid() ? box : QRectF();
}

bool onOneLine(const QRectF& before, const QRectF& box, const QString& text) {
  if (before.isEmpty() || box.isEmpty()) return true;
  const double common = std::min(before.bottom(), box.bottom()) - std::max(before.top(), box.top());
  if (common < std::min(before.height(), box.height()) / 2) return false;
  return box.left() >= before.left() || (readsLeftwards(text) && box.right() <= before.right());
}

class FlowMaker {
 public:
  FlowMaker(Flow& flow, const std::vector<PdfPage>& pages, QHash<QString, int>& keys)
      : flow_(flow), pages_(pages), keys_(keys) {}

  void begin() { open_ = false; }

  void add(std::size_t page, std::uint32_t number) {
    const PdfWord& word = pages_[page].words[number];
    const FlowPart part{sensible(word.box), static_cast<std::uint32_t>(page), number};
    if (open_ && goesOnWith(part, word.text)) {
      FlowWord& broken = flow_.back();
      broken.rest = part;
      const bool drop = word.text.front().isLower();
      broken.text = (drop ? broken.text.chopped(1) : broken.text) + word.text;
      broken.key = keyOf(withoutHyphens(broken.text));
      return;
    }
    if (std::ranges::any_of(word.text, [](QChar c) { return c.unicode() >= 0x2E80; })) {
      split(part, word.text);
    } else {
      put(part, word.text, false);
    }
    open_ = true;
  }

 private:
  int keyOf(const QString& text) {
    const auto known = keys_.constFind(text);
    return known != keys_.cend() ? *known : *keys_.insert(text, static_cast<int>(keys_.size()));
  }

  void put(const FlowPart& part, const QString& text, bool joined) {
    flow_.push_back({text, keyOf(withoutHyphens(text)), part, {}, joined});
  }

  bool goesOnWith(const FlowPart& part, const QString& text) const {
    const FlowWord& before = flow_.back();
    if (before.rest || before.text.size() < 2 || !isHyphen(before.text.back()) ||
        !before.text[before.text.size() - 2].isLetterOrNumber() || !text.front().isLetter()) {
      return false;
    }
    return before.first.page != part.page || !onOneLine(before.first.box, part.box, text);
  }

  // Signs that stand alone are words of their own, each with its share of the box.
  void split(const FlowPart& part, const QString& text) {
    const std::vector<char32_t> codes = [&] {
      const auto ucs = text.toUcs4();
      return std::vector<char32_t>(ucs.begin(), ucs.end());
    }();
    double all = 0;
    for (const char32_t code : codes) all += standsAlone(code) ? 2 : 1;
    const bool down = part.box.height() > part.box.width() * 1.5 && codes.size() > 1;
    double at = 0;
    for (std::size_t from = 0; from < codes.size();) {
      std::size_t to = from;
      double wide = 0;
      do {
        wide += standsAlone(codes[to]) ? 2 : 1;
        ++to;
      } while (to < codes.size() && !standsAlone(codes[to - 1]) && !standsAlone(codes[to]));
      FlowPart piece = part;
      const QRectF& box = part.box;
      piece.box = down ? QRectF(box.x(), box.y() + box.height() * at / all, box.width(),
                                box.height() * wide / all)
                       : QRectF(box.x() + box.width() * at / all, box.y(), box.width() * wide / all,
                                box.height());
      put(piece, QString::fromUcs4(codes.data() + from, static_cast<qsizetype>(to - from)),
          from > 0);
      at += wide;
      from = to;
    }
  }

  Flow& flow_;
  const std::vector<PdfPage>& pages_;
  QHash<QString, int>& keys_;
  bool open_ = false;
};

std::size_t wordsIn(const std::vector<PdfPage>& pages) {
  std::size_t count = 0;
  for (const PdfPage& page : pages) count += page.words.size();
  return count;
}

class FlowsMaker {
 public:
  FlowsMaker(const Pair& pair, const std::vector<bool>& byColumns)
      : pair_(pair),
        byColumns_(byColumns),
        referenceByColumns_(pair.reference.size(), false),
        proof_(flows_.proof, pair.proof, keys_),
        reference_(flows_.reference, pair.reference, keys_),
        proofHeads_(runningHeadsOf(pair.proof)),
        referenceHeads_(runningHeadsOf(pair.reference)) {
    flows_.proof.reserve(wordsIn(pair.proof));
    flows_.reference.reserve(wordsIn(pair.reference));
    for (std::size_t i = 0; i < pair.partners.size(); ++i) {
      if (!pair.partners[i]) continue;
      const std::size_t other = pair.partners[i]->page;
      keepShared(proofHeads_[i], pair.proof[i], referenceHeads_[other], pair.reference[other]);
    }
    for (std::size_t i = 0; i < byColumns.size(); ++i) {
      if (byColumns[i] && pair.partners[i]) referenceByColumns_[pair.partners[i]->page] = true;
    }
  }

  Flows made() {
    const std::size_t count = pair_.proof.size();
    Numbers pages;
    std::vector<bool> left(pair_.reference.size(), true);
    for (std::size_t i = 0; i < count; ++i) {
      const auto& partner = pair_.partners[i];
      if (partner && (partner->moved || !bothSpeak(i))) left[partner->page] = false;
      if (!partner || (!partner->moved && bothSpeak(i))) pages.push_back(i);
    }
    Numbers others;
    for (std::size_t i = 0; i < left.size(); ++i) {
      if (left[i]) others.push_back(i);
    }
    text(pages, others);
    for (std::size_t i = 0; i < count;) {
      Numbers run;
      Numbers from;
      while (i < count && moved(i) &&
             (from.empty() || pair_.partners[i]->page == from.back() + 1)) {
        run.push_back(i);
        from.push_back(pair_.partners[i++]->page);
      }
      if (run.empty()) {
        ++i;
      } else {
        text(run, from);
      }
    }
    for (std::size_t i = 0; i < count; ++i) {
      if (!pair_.partners[i] || !bothSpeak(i)) continue;
      const std::size_t other = pair_.partners[i]->page;
      if (proofHeads_[i].empty() && referenceHeads_[other].empty()) continue;
      begin(true);
      for (const std::uint32_t word : proofHeads_[i]) add(proof_, pair_.proof, i, word);
      for (const std::uint32_t word : referenceHeads_[other]) {
        add(reference_, pair_.reference, other, word);
      }
    }
    begin(false);
    return std::move(flows_);
  }

 private:
  bool bothSpeak(std::size_t page) const {
    return !pair_.proof[page].words.empty() &&
           !pair_.reference[pair_.partners[page]->page].words.empty();
  }
  bool moved(std::size_t page) const {
    return pair_.partners[page] && pair_.partners[page]->moved && bothSpeak(page);
  }

  void begin(bool heads) {
    flows_.stretches.push_back({flows_.proof.size(), flows_.reference.size(), heads});
    proof_.begin();
    reference_.begin();
  }

  static void add(FlowMaker& maker, const std::vector<PdfPage>& pages, std::size_t page,
                  std::uint32_t word) {
    if (!pages[page].words[word].text.isEmpty()) maker.add(page, word);
  }

  static void addText(FlowMaker& maker, const std::vector<PdfPage>& pages, const Numbers& numbers,
                      const RunningHeads& heads, const std::vector<bool>& byColumns) {
    for (const std::size_t page : numbers) {
      std::vector<bool> apart(pages[page].words.size(), false);
      for (const std::uint32_t word : heads[page]) apart[word] = true;
      if (byColumns[page]) {
        for (const std::uint32_t word : columnOrder(pages[page])) {
          if (!apart[word]) add(maker, pages, page, word);
        }
        continue;
      }
      for (std::size_t word = 0; word < apart.size(); ++word) {
        if (!apart[word]) add(maker, pages, page, static_cast<std::uint32_t>(word));
      }
    }
  }

  void text(const Numbers& proof, const Numbers& reference) {
    begin(false);
    addText(proof_, pair_.proof, proof, proofHeads_, byColumns_);
    addText(reference_, pair_.reference, reference, referenceHeads_, referenceByColumns_);
  }

  const Pair& pair_;
  const std::vector<bool>& byColumns_;
  std::vector<bool> referenceByColumns_;
  QHash<QString, int> keys_;
  Flows flows_;
  FlowMaker proof_;
  FlowMaker reference_;
  RunningHeads proofHeads_;
  RunningHeads referenceHeads_;
};

}  // namespace

QString withoutHyphens(const QString& text) {
  if (std::ranges::none_of(text, isHyphen)) return text;
  QString plain = text;
  plain.removeIf(isHyphen);
  return plain.isEmpty() ? text : plain;
}

Flows flowsOf(const Pair& pair, const std::vector<bool>& byColumns) {
  return FlowsMaker(pair, byColumns).made();
}

bool onOneLine(const FlowWord& before, const FlowWord& word) {
  if (word.joined && before.first.word == word.first.word) return true;
  const FlowPart& last = before.last();
  return last.page == word.first.page && onOneLine(last.box, word.first.box, word.text);
}

}  // namespace vellix::demo
