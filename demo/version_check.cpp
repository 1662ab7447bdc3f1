#include "version_check.hpp"

#include <algorithm>

#include "check/agreed.hpp"
#include "check/look_check.hpp"
#include "check/sheet_check.hpp"
#include "check/text_check.hpp"
#include "page_ranges.hpp"
#include "unread_pages.hpp"

namespace vellix::demo {
namespace {

constexpr const char* kOurs = "submitted";
constexpr std::size_t kPagesInSight = 8;

// A page on which nothing is to be seen.
bool blank(const QImage& picture) {
  for (int y = 0; y < picture.height(); ++y) {
    const uchar* line = picture.constScanLine(y);
    if (std::any_of(line, line + std::ptrdiff_t{3} * picture.width(),
                    [](uchar shade) { return shade < 240; })) {
      return false;
    }
  }
  return true;
}

bool anyWithoutWords(const std::vector<PdfPage>& pages) {
  return std::ranges::any_of(pages, [](const PdfPage& page) { return page.words.empty(); });
}

}  // namespace

struct VersionCheck::Side {
  const CheckReference& reference;
  PdfReading facts = {};
  PagesRead read = {};
  Partners partners = {};
  // Pages of the proof: of which one side's words could not be read, or its looks, and those that
  // show something, in no words.
  std::set<std::size_t> wordless = {};
  std::set<std::size_t> unseen = {};
  std::set<std::size_t> silent = {};
};

// Whether that page was not compared as a whole.
bool VersionCheck::inPart(const Side& side, std::size_t page) const {
  return side.wordless.contains(page) || side.unseen.contains(page) ||
         hasMoreWords(pairOf(side), page);
}

VersionCheck::VersionCheck(std::shared_ptr<const PdfFile> proof,
                           std::vector<CheckReference> references)
    : proof_(std::move(proof)), references_(std::move(references)), found_(references_.size()) {
  std::ranges::stable_partition(references_, [](const auto& one) { return one.role == kOurs; });
  news_.step = "Reading the words";
  thread_ = std::jthread([this](const std::stop_token& stopped) {
    run(stopped);
    ended_ = true;
  });
}

VersionCheck::~VersionCheck() = default;

CheckNews VersionCheck::news() {
  const std::lock_guard lock(mutex_);
  CheckNews came = std::exchange(news_, {});
  news_.step = came.step;
  news_.done = came.done;
  return came;
}

CheckNews VersionCheck::atEnd() {
  if (thread_.joinable()) thread_.join();
  return news();
}

Pair VersionCheck::pairOf(const Side& side) const {
  return {pages_, side.read.pages, side.partners, side.reference.role, side.reference.called};
}

bool VersionCheck::hasOurs() const {
  return !references_.empty() && references_.front().role == kOurs;
}

void VersionCheck::say(std::string step) {
  const std::lock_guard lock(mutex_);
  news_.step = std::move(step);
}

// Our own file's come first, so that the others' can be held against them.
void VersionCheck::find(std::size_t reference, std::vector<Finding> findings, Tells what) {
  const std::lock_guard lock(mutex_);
  found_[reference].insert(found_[reference].end(), findings.begin(), findings.end());
  if (references_[reference].role == kOurs && withBefore_) {
    if (what == Tells::difference) tellBesideBefore(findings, *withBefore_);
    for (Finding& finding : findings) finding.against = "previous";
  }
  std::ranges::move(findings, std::back_inserter(news_.findings));
}

void VersionCheck::run(const std::stop_token& stopped) {
  const PdfReading facts = proof_->facts({Urgency::checked, stopped});
  if (stopped.stop_requested()) return;
  {
    const std::lock_guard lock(mutex_);
    news_.proof = facts;
  }
  if (facts.trouble == PdfTrouble::none) compare(facts, stopped);
  if (stopped.stop_requested()) return;
  const std::lock_guard lock(mutex_);
  news_.done = true;
}

void VersionCheck::compare(const PdfReading& facts, const std::stop_token& stopped) {
  std::vector<Side> sides = sidesOf(stopped);
  PagesRead proof = pagesOf(*proof_, facts, stopped);
  pages_ = std::move(proof.pages);
  for (Side& side : sides) side.read = pagesOf(*side.reference.pdf, side.facts, stopped);
  if (stopped.stop_requested()) return;
  match(sides, stopped);
  if (stopped.stop_requested()) return;
  tellUnread(proof.unread, sides);
  say("Comparing words");
  compareText(sides);
  comparePages(sides, stopped);
  if (!stopped.stop_requested()) tellRest(sides);
}

// One for each reference that has pages; the others are left out from here on.
std::vector<VersionCheck::Side> VersionCheck::sidesOf(const std::stop_token& stopped) {
  std::vector<PdfReading> all;
  std::erase_if(references_, [&](const CheckReference& reference) {
    PdfReading facts = reference.pdf->facts({Urgency::checked, stopped});
    const bool none = facts.trouble != PdfTrouble::none;
    const std::lock_guard lock(mutex_);
    news_.references[reference.role] = facts;
    if (!none) all.push_back(std::move(facts));
    return none;
  });
  std::vector<Side> sides;
  sides.reserve(all.size());
  for (std::size_t i = 0; i < all.size(); ++i) sides.push_back({references_[i], std::move(all[i])});
  return sides;
}

void VersionCheck::match(std::vector<Side>& sides, const std::stop_token& stopped) {
  say("Matching pages");
  const auto sketched = [&](const PdfFile& pdf) {
    return pdf.sketches(0, kMostPdfPages, {Urgency::checked, stopped});
  };
  std::vector<QImage> sketches;
  if (anyWithoutWords(pages_)) sketches = sketched(*proof_);
  for (Side& side : sides) {
    const bool drawn = !sketches.empty() && anyWithoutWords(side.read.pages);
    side.partners = partnersOf(pages_, side.read.pages, sketches,
                               drawn ? sketched(*side.reference.pdf) : std::vector<QImage>{});
    if (stopped.stop_requested()) return;
    const std::lock_guard lock(mutex_);
    news_.partners[side.reference.role] = side.partners;
    if (side.reference.role == "previous") withBefore_ = side.partners;
  }
}

void VersionCheck::tellUnread(const std::set<std::size_t>& unread, std::vector<Side>& sides) {
  for (std::size_t i = 0; i < sides.size(); ++i) {
    Side& side = sides[i];
    for (std::size_t page = 0; page < side.partners.size(); ++page) {
      const auto& partner = side.partners[page];
      if (unread.contains(page) || (partner && side.read.unread.contains(partner->page))) {
        side.wordless.insert(page);
      }
    }
    std::vector<Finding> findings = unreadFindings(pairOf(side), side.wordless, Unread::words);
    std::ranges::move(wordyFindings(pairOf(side)), std::back_inserter(findings));
    find(i, std::move(findings), Tells::notCompared);
  }
}

void VersionCheck::compareText(std::vector<Side>& sides) {
  for (std::size_t i = 0; i < sides.size(); ++i) {
    const Side& side = sides[i];
    const Pair pair = pairOf(side);
    std::vector<Finding> findings = textFindings(pair);
    std::ranges::move(sheetFindings(pair), std::back_inserter(findings));
    if (i > 0 && hasOurs()) {
      acceptAsOurs(findings, found_.front(), sides.front().partners);
    }
    find(i, std::move(findings));
  }
}

void VersionCheck::comparePages(std::vector<Side>& sides, const std::stop_token& stopped) {
  say("Comparing pages");
  inPieces(pages_.size(), kPagesInSight, stopped, [&](std::size_t from, std::size_t to) {
    lookAt(sides, from, to, stopped);
    const std::lock_guard lock(mutex_);
    looked_ += to - from;
    news_.step =
        "Comparing pages, " + std::to_string(looked_) + " of " + std::to_string(pages_.size());
  });
}

void VersionCheck::lookAt(std::vector<Side>& sides, std::size_t from, std::size_t to,
                          const std::stop_token& stopped) {
  std::set<std::size_t> wanted;
  for (std::size_t page = from; page < to; ++page) {
    if (std::ranges::any_of(sides, [&](const Side& side) {
          return page < side.partners.size() && side.partners[page].has_value();
        })) {
      wanted.insert(page);
    }
  }
  const auto sights = sightsOf(*proof_, wanted, stopped);
  std::vector<Finding> ours;
  for (std::size_t i = 0; i < sides.size(); ++i) {
    Side& side = sides[i];
    const Pair pair = pairOf(side);
    std::set<std::size_t> others;
    for (const std::size_t page : wanted) {
      if (side.partners[page]) others.insert(side.partners[page]->page);
    }
    const auto otherSights = sightsOf(*side.reference.pdf, others, stopped);
    if (stopped.stop_requested()) return;
    std::vector<Finding> findings;
    for (const std::size_t page : wanted) {
      if (!side.partners[page]) continue;
      const std::size_t partner = side.partners[page]->page;
      const auto sight = sights.find(page);
      const auto other = otherSights.find(partner);
      if (sight == sights.end() || other == otherSights.end()) {
        const std::lock_guard lock(mutex_);
        side.unseen.insert(page);
        continue;
      }
      std::ranges::move(lookFindings(pair, page, sight->second, other->second),
                        std::back_inserter(findings));
      std::ranges::move(barcodeFindings(pair, page, sight->second, other->second),
                        std::back_inserter(findings));
      if (!side.wordless.contains(page) && !hasMoreWords(pair, page) &&
          pages_[page].words.empty() && side.read.pages[partner].words.empty() &&
          !blank(sight->second.picture)) {
        const std::lock_guard lock(mutex_);
        side.silent.insert(page);
      }
    }
    if (i == 0) {
      ours = findings;
      const std::lock_guard lock(mutex_);
      std::ranges::copy_if(found_.front(), std::back_inserter(ours), [&](const Finding& finding) {
        return finding.page >= static_cast<Int>(from) && finding.page < static_cast<Int>(to);
      });
    } else if (hasOurs()) {
      acceptAsOurs(findings, ours, sides.front().partners);
    }
    find(i, std::move(findings));
  }
}

// Last what passed.
void VersionCheck::tellRest(std::vector<Side>& sides) {
  say("Writing what was found");
  for (std::size_t i = 0; i < sides.size(); ++i) {
    const Side& side = sides[i];
    const Pair pair = pairOf(side);
    std::vector<Finding> findings = unreadFindings(pair, side.unseen, Unread::looks);
    std::ranges::move(silentFindings(pair, side.silent), std::back_inserter(findings));
    find(i, std::move(findings), Tells::notCompared);
    std::vector<Finding> told = found_[i];
    // A revision's page has passed only where it is as in our own file too.
    const bool likeOurs = side.reference.role == "previous" && hasOurs();
    if (likeOurs) told.insert(told.end(), found_.front().begin(), found_.front().end());
    std::vector<Finding> passed = passFindings(pair, told);
    // What was told of a page ahead of it may go for it as well.
    std::erase_if(passed, [&](const Finding& pass) {
      const auto page = static_cast<std::size_t>(pass.page);
      return inPart(side, page) || (likeOurs && inPart(sides.front(), page));
    });
    find(i, std::move(passed));
  }
}

}  // namespace vellix::demo
