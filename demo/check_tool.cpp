#include "check_tool.hpp"

#include <cstdio>

#include "check/gathered.hpp"
#include "pdf_pages.hpp"
#include "records/json.hpp"
#include "version_check.hpp"

namespace vellix::demo {
namespace {

struct ToldPartner {
  Int page = 0;
  std::optional<Int> partner;
  bool moved = false;
  double likeness = 0;
};
BOOST_DESCRIBE_STRUCT(ToldPartner, (), (page, partner, moved, likeness))

struct ToldCheck {
  Int pages = 0;
  std::vector<ToldPartner> partners;
  std::vector<Finding> findings;
};
BOOST_DESCRIBE_STRUCT(ToldCheck, (), (pages, partners, findings))

bool opens(const std::shared_ptr<const PdfFile>& pdf, const std::string& path) {
  if (!pdf) std::fprintf(stderr, "%s: It cannot be opened.\n", path.c_str());
  return pdf != nullptr;
}

bool hasPages(const PdfReading& facts, const std::string& path) {
  if (facts.trouble == PdfTrouble::none) return true;
  std::fprintf(stderr, "%s: %s\n", path.c_str(), excuseFor(facts).c_str());
  return false;
}

}  // namespace

int checkAndPrint(const std::string& proof, const std::string& reference) {
  const auto pdf = PdfFile::at(proof);
  const auto other = PdfFile::at(reference);
  if (!opens(pdf, proof) || !opens(other, reference)) return 1;
  VersionCheck check(pdf, {{"submitted", "our file", other}});
  CheckNews news = check.atEnd();
  const PdfReading facts = news.proof.value_or(PdfReading{});
  if (!hasPages(facts, proof) || !hasPages(news.references["submitted"], reference)) return 1;
  ToldCheck told;
  told.pages = static_cast<Int>(facts.pages.size());
  for (const auto& [role, partners] : news.partners) {
    for (std::size_t i = 0; i < partners.size(); ++i) {
      ToldPartner& one = told.partners.emplace_back();
      one.page = static_cast<Int>(i);
      if (!partners[i]) continue;
      one.partner = static_cast<Int>(partners[i]->page);
      one.moved = partners[i]->moved;
      one.likeness = partners[i]->likeness;
    }
  }
  std::set<std::string> ids;
  putAmong(told.findings, std::move(news.findings), "finding", proof, ids);
  const auto json = encode(told);
  if (!json) {
    std::fputs("What was found could not be written as JSON.\n", stderr);
    return 1;
  }
  std::printf("%s\n", json->c_str());
  return 0;
}

}  // namespace vellix::demo
