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

bool opens(const std::shared_ptr<const PdfFile>& pdf, const PdfReading& facts,
           const std::string& path) {
  if (pdf && facts.trouble == PdfTrouble::none) return true;
  std::fprintf(stderr, "%s: %s\n", path.c_str(),
               pdf ? excuseFor(facts).c_str() : "It cannot be opened.");
  return false;
}

}  // namespace

int checkAndPrint(const std::string& proof, const std::string& reference) {
  const auto pdf = PdfFile::at(proof);
  const auto other = PdfFile::at(reference);
  const PdfReading facts = pdf ? pdf->facts() : PdfReading{};
  PdfReading otherFacts = other ? other->facts() : PdfReading{};
  if (!opens(pdf, facts, proof) || !opens(other, otherFacts, reference)) return 1;
  ToldCheck told;
  told.pages = static_cast<Int>(facts.pages.size());
  VersionCheck check(pdf, facts, {{"submitted", "our file", other, std::move(otherFacts)}});
  CheckNews news = check.atEnd();
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
