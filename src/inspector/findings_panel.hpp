// The findings of the page on show: which ones, in which order, and what is said of each.
#pragma once

#include <string>
#include <vector>

#include "inspector/finding_card.hpp"

namespace vellix {

struct OtherPageView {
  Int page = 0;  // 0-based
  std::string name;
  std::string count;
  bool operator==(const OtherPageView&) const = default;
};
BOOST_DESCRIBE_STRUCT(OtherPageView, (), (page, name, count))

struct FindingsHead {
  std::string file;  // id of the ticket
  std::string title;
  std::string found;
  std::string notice;  // of a page without live text
  std::string calm;    // said in place of findings
  std::string calmReason;
  std::string passed;  // sums the passed checks up; empty when there are none to show
  bool operator==(const FindingsHead&) const = default;
};
BOOST_DESCRIBE_STRUCT(FindingsHead, (), (file, title, found, notice, calm, calmReason, passed))

struct FindingsPanelView {
  FindingsHead head;
  std::vector<FindingCardView> cards;
  std::vector<FindingCardView> passed;
  std::vector<OtherPageView> others;
};

// The references that count here: any that a finding of the page may point to.
std::vector<std::string> comparedRoles(const Store& store, const FileDetail& detail,
                                       const Page* page);
FindingsPanelView findingsPanel(const Store& store, const FileDetail& detail, Moment now,
                                const Calendar& calendar);

}  // namespace vellix
