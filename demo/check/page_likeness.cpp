#include "page_likeness.hpp"

#include <QHashFunctions>
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <unordered_map>

namespace vellix::demo {
namespace {

// The rarest features tell a page from others; with more of them two long documents take too long.
constexpr std::size_t kMostFeatures = 160;
constexpr int kGrid = 16;
constexpr int kMostShade = 255;
// A page whose shades differ by less shows nothing.
constexpr float kEvenShade = 2.5F;
// Of the likeness of two pages with few words, what these tell.
constexpr float kWordsOfFew = 0.3F;

using Features = std::vector<std::uint64_t>;

std::uint64_t mixed(std::uint64_t value) {
  value = (value ^ (value >> 33)) * 0xff51afd7ed558ccdULL;
  return value ^ (value >> 29);
}

// Its words, and each two that follow on each other; sorted.
Features featuresOf(const PdfPage& page) {
  Features features;
  features.reserve(2 * page.words.size());
  std::uint64_t before = 0;
  for (const PdfWord& word : page.words) {
    const std::uint64_t hash = mixed(qHash(word.text, 7) + 1);
    features.push_back(hash);
    if (before != 0) features.push_back(mixed(before * 31 + hash));
    before = hash;
  }
  std::ranges::sort(features);
  features.erase(std::ranges::unique(features).begin(), features.end());
  return features;
}

struct TextPage {
  std::uint64_t whole = 0;  // of all its words in order
  Features features;        // in the end only what the other document has as well
  float shared = 0;         // the part of its features that the other document has
  float weight = 0;
};

std::uint64_t wholeOf(const PdfPage& page) {
  std::uint64_t whole = page.words.size();
  for (const PdfWord& word : page.words) whole = mixed(whole * 31 + qHash(word.text, 7));
  return whole;
}

// On how many pages of either document a feature is.
struct Count {
  std::uint32_t proof = 0;
  std::uint32_t reference = 0;
  bool shared() const { return proof > 0 && reference > 0; }
  std::uint32_t all() const { return proof + reference; }
};
using Counts = std::unordered_map<std::uint64_t, Count>;

std::vector<TextPage> textPagesOf(const std::vector<PdfPage>& pages, Counts& counts,
                                  std::uint32_t Count::* side) {
  std::vector<TextPage> all;
  all.reserve(pages.size());
  for (const PdfPage& page : pages) {
    all.push_back({wholeOf(page), featuresOf(page)});
    for (const std::uint64_t feature : all.back().features) ++(counts[feature].*side);
  }
  return all;
}

float weightOf(const Count& count) { return 1.0F / static_cast<float>(count.all()); }

void keepTheRarest(std::vector<TextPage>& pages, const Counts& counts) {
  const auto count = [&](std::uint64_t feature) { return counts.find(feature)->second; };
  for (TextPage& page : pages) {
    const std::size_t before = page.features.size();
    std::erase_if(page.features, [&](std::uint64_t feature) { return !count(feature).shared(); });
    if (before > 0) {
      page.shared = static_cast<float>(page.features.size()) / static_cast<float>(before);
    }
    if (page.features.size() > kMostFeatures) {
      const auto last = page.features.begin() + static_cast<std::ptrdiff_t>(kMostFeatures);
      std::ranges::nth_element(page.features, last, [&](std::uint64_t a, std::uint64_t b) {
        return std::pair(count(a).all(), a) < std::pair(count(b).all(), b);
      });
      page.features.erase(last, page.features.end());
    }
    for (const std::uint64_t feature : page.features) page.weight += weightOf(count(feature));
  }
}

void likenByWords(LikenessTable& table, const std::vector<PdfPage>& proof,
                  const std::vector<PdfPage>& reference) {
  Counts counts;
  auto rows = textPagesOf(proof, counts, &Count::proof);
  auto columns = textPagesOf(reference, counts, &Count::reference);
  keepTheRarest(rows, counts);
  keepTheRarest(columns, counts);
  std::unordered_map<std::uint64_t, std::vector<std::uint32_t>> pagesWith;
  for (std::size_t i = 0; i < columns.size(); ++i) {
    for (const std::uint64_t feature : columns[i].features) {
      pagesWith[feature].push_back(static_cast<std::uint32_t>(i));
    }
  }
  for (std::size_t row = 0; row < rows.size(); ++row) {
    const TextPage& one = rows[row];
    for (const std::uint64_t feature : one.features) {
      const auto with = pagesWith.find(feature);
      if (with == pagesWith.end()) continue;
      const float weight = weightOf(counts.find(feature)->second);
      for (const std::uint32_t column : with->second) table.at(row, column).value += weight;
    }
    for (std::size_t column = 0; column < columns.size(); ++column) {
      const TextPage& other = columns[column];
      float& value = table.at(row, column).value;
      const float both = one.weight + other.weight;
      value = both > 0 ? std::min(1.0F, (one.shared + other.shared) * value / both) : 0;
      if (both > 0 && one.whole == other.whole) value = 1;
    }
  }
}

// A sketch brought to one size and brightness; none where there is nothing to see.
struct Seen {
  bool any = false;    // whether there is a sketch
  bool empty = false;  // whether it shows one even shade
  float shade = 0;
  std::array<float, std::size_t{kGrid} * kGrid> grid{};
};

Seen seen(const QImage& sketch) {
  Seen result;
  if (sketch.isNull()) return result;
  const QImage small = sketch.convertToFormat(QImage::Format_Grayscale8)
                           .scaled(kGrid, kGrid, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
  if (small.isNull()) return result;
  result.any = true;
  std::size_t i = 0;
  for (int y = 0; y < kGrid; ++y) {
    for (int x = 0; x < kGrid; ++x) result.grid[i++] = small.constScanLine(y)[x];
  }
  for (const float value : result.grid) result.shade += value / static_cast<float>(i);
  float spread = 0;
  for (float& value : result.grid) {
    value -= result.shade;
    spread += value * value;
  }
  result.empty = std::sqrt(spread / static_cast<float>(i)) < kEvenShade;
  for (float& value : result.grid) value /= std::max(1e-3F, std::sqrt(spread));
  return result;
}

float alike(const Seen& one, const Seen& other) {
  if (one.empty || other.empty) {
    if (one.empty != other.empty) return 0;
    return 1 - std::abs(one.shade - other.shade) / static_cast<float>(kMostShade);
  }
  float product = 0;
  for (std::size_t i = 0; i < one.grid.size(); ++i) product += one.grid[i] * other.grid[i];
  return std::clamp(product, 0.0F, 1.0F);
}

std::vector<Seen> allSeen(const std::vector<PdfPage>& pages, const std::vector<QImage>& sketches) {
  std::vector<Seen> all(pages.size());
  for (std::size_t i = 0; i < std::min(pages.size(), sketches.size()); ++i) {
    all[i] = seen(sketches[i]);
  }
  return all;
}

}  // namespace

bool showsNothing(const QImage& sketch) { return seen(sketch).empty; }

LikenessTable likenessOf(const std::vector<PdfPage>& proof, const std::vector<PdfPage>& reference,
                         const std::vector<QImage>& proofSketches,
                         const std::vector<QImage>& referenceSketches) {
  LikenessTable table(proof.size(), reference.size());
  likenByWords(table, proof, reference);
  const auto rows = allSeen(proof, proofSketches);
  const auto columns = allSeen(reference, referenceSketches);
  for (std::size_t row = 0; row < rows.size(); ++row) {
    if (!rows[row].any) continue;
    for (std::size_t column = 0; column < columns.size(); ++column) {
      if (!columns[column].any) continue;
      const std::size_t words = std::min(proof[row].words.size(), reference[column].words.size());
      if (words >= kFewWords) continue;
      Likeness& cell = table.at(row, column);
      const float looks = alike(rows[row], columns[column]);
      cell.byText = false;
      cell.value = words == 0 ? looks : kWordsOfFew * cell.value + (1 - kWordsOfFew) * looks;
    }
  }
  return table;
}

}  // namespace vellix::demo
