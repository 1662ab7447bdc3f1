// The findings of a version as its check tells them one after the other.
#pragma once

#include <set>
#include <string>
#include <vector>

#include "records/records.hpp"

namespace vellix::demo {

// Puts them among `all` in the order of the pages and down each page. A finding's id follows from
// what it says, so one that a check tells again keeps what somebody decided; `told` gathers the
// ids.
void putAmong(std::vector<Finding>& all, std::vector<Finding> more, const std::string& folder,
              const std::string& ticket, std::set<std::string>& told);

// Takes out what the check that has ended did not tell again. What somebody decided or wrote on
// (`noted`) stays and says so.
void dropUntold(std::vector<Finding>& all, const std::set<std::string>& told,
                const std::set<std::string>& noted = {});

// "3 things to look at on 2 of 12 pages."
std::string summaryOf(const std::vector<Finding>& all, std::size_t pages);

}  // namespace vellix::demo
