// A person's own proof, and the files that it is to be compared with.
#pragma once

#include <boost/describe.hpp>
#include <optional>
#include <string>

namespace vellix::demo {

// Paths of PDFs; empty for those that there are none of.
struct GivenProof {
  std::string proof;
  std::string sent;
  std::string previous;
  std::string fbc;
  std::string title;
  std::optional<double> due;  // in milliseconds since 1970
};
BOOST_DESCRIBE_STRUCT(GivenProof, (), (proof, sent, previous, fbc, title, due))

}  // namespace vellix::demo
