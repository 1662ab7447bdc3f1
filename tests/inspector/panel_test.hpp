// A ticket on show whose pages have every reference, and its findings panel.
#pragma once

#include <limits>

#include "inspector/findings_panel.hpp"
#include "store/store_test.hpp"

namespace vellix {

class PanelTest : public StoreTest {
 protected:
  static constexpr Int kPages = 30;

  PanelTest() {
    detail.file.pages = pagesOf(kPages);
    for (auto& page : *detail.file.pages) {
      page.refs.emplace();
      for (const char* role : {"submitted", "previous", "fbc", "latest"}) {
        page.refs->emplace(role, RefPage{});
      }
    }
  }

  struct Traits {
    Int page = 0;
    std::string kind = "words";
    std::string severity = "high";
    std::string state = "open";
    std::string against = "submitted";
  };
  static Finding finding(std::string id, const Traits& traits) {
    Finding finding = findingOf(std::move(id), traits.page, traits.severity);
    finding.kind = traits.kind;
    finding.state = traits.state;
    finding.against = traits.against;
    return finding;
  }

  void goTo(Int page) { store().page.set({{"t1", page}}); }
  // Puts the ticket on show, so that presses find its findings.
  void show() {
    store().board.set(boardOf({detail.file}));
    store().selection.set({"t1"});
    store().details.set({{"t1", detail}});
  }

  FindingsPanelView panel() {
    return findingsPanel(store(), detail, desk.time.now(), desk.calendar);
  }
  FindingsHead head() { return panel().head; }
  std::vector<std::string> cards() {
    std::vector<std::string> ids;
    for (const auto& card : panel().cards) ids.push_back(card.id);
    return ids;
  }
  FindingCardView card() { return panel().cards.at(0); }

  FileDetail detail = detailOf(ticketOf("t1"));
};

}  // namespace vellix
