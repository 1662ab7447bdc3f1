#include "told_text.hpp"

#include <algorithm>
#include <numeric>

namespace vellix::demo {
namespace {

constexpr std::size_t kMostWords = 48;
constexpr std::size_t kLastWords = 8;
constexpr qsizetype kMostLetters = 120;

std::string told(const Flow& flow, std::size_t from, std::size_t to, bool lines) {
  QString text;
  for (std::size_t i = from; i < to; ++i) {
    if (to - from > kMostWords && i == to - kLastWords) text += QStringLiteral(" …");
    if (to - from > kMostWords && i >= from + kMostWords - kLastWords && i < to - kLastWords)
      continue;
    const FlowWord& word = flow[i];
    if (i > from && lines && !onOneLine(flow[i - 1], word)) {
      text += QStringLiteral(" / ");
    } else if (i > from && !(word.joined && flow[i - 1].first.word == word.first.word)) {
      text += u' ';
    }
    text += word.text.size() > kMostLetters ? word.text.left(kMostLetters) + u'…' : word.text;
  }
  return text.toStdString();
}

}  // namespace

std::string phraseOf(const Flow& flow, std::size_t from, std::size_t to) {
  return told(flow, from, to, false);
}

std::string brokenPhraseOf(const Flow& flow, std::size_t from, std::size_t to) {
  return told(flow, from, to, true);
}

std::string quoted(const std::string& phrase) { return "“" + phrase + "”"; }

Surroundings around(std::size_t from, std::size_t to, std::size_t begin, std::size_t end) {
  return {from < begin + 2 ? begin : from - 2, std::min(end, to + 2)};
}

std::vector<QRectF> boxesOn(const Flow& flow, const std::vector<std::size_t>& words,
                            std::size_t page) {
  std::vector<QRectF> boxes;
  std::size_t before = 0;
  bool open = false;  // whether the word before put the last box
  for (const std::size_t i : words) {
    const FlowWord& word = flow[i];
    const bool goesOn = open && before + 1 == i && onOneLine(flow[before], word);
    open = false;
    const auto put = [&](const FlowPart& part, bool more) {
      open = part.page == page && !part.box.isEmpty();
      if (!open) return;
      if (more) {
        boxes.back() = boxes.back().united(part.box);
      } else {
        boxes.push_back(part.box);
      }
    };
    put(word.first, goesOn);
    if (word.rest) put(*word.rest, false);
    before = i;
  }
  return boxes;
}

std::vector<std::size_t> wordsFrom(std::size_t from, std::size_t to) {
  std::vector<std::size_t> all(to - from);
  std::iota(all.begin(), all.end(), from);
  return all;
}

void mark(Finding& finding, const Pair& pair, const Flows& flows, const std::vector<QRectF>& boxes,
          const std::vector<std::size_t>& reference) {
  const auto& partner = pair.partners[static_cast<std::size_t>(finding.page)];
  putBoxes(finding, boxes,
           partner ? boxesOn(flows.reference, reference, partner->page) : std::vector<QRectF>{});
}

void mark(Finding& finding, const Pair& pair, const Flows& flows,
          const std::vector<std::size_t>& proof, const std::vector<std::size_t>& reference) {
  mark(finding, pair, flows, boxesOn(flows.proof, proof, static_cast<std::size_t>(finding.page)),
       reference);
}

}  // namespace vellix::demo
