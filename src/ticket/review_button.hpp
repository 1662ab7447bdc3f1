// The button that ends a ticket's review, or takes it up again.
#pragma once

#include <string>

#include "store/store.hpp"

namespace vellix {

struct ReviewButtonView {
  std::string text;  // empty without a ticket
  std::string icon;
  bool ends = false;     // the review, which is the green one
  bool enabled = false;  // not while a status is on its way
  bool operator==(const ReviewButtonView&) const = default;
};
BOOST_DESCRIBE_STRUCT(ReviewButtonView, (), (text, icon, ends, enabled))

ReviewButtonView reviewButton(const Store& store);

// What it does for the ticket on show.
void pressReviewButton(Store& store);

}  // namespace vellix
