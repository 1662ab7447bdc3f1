// A board with its details in one file, for staging the program without its service.
#pragma once

#include "records/records.hpp"

namespace vellix {

struct Sample {
  BoardState board;
  std::map<std::string, FileDetail> details;  // by ticket id
  bool operator==(const Sample&) const = default;
};
BOOST_DESCRIBE_STRUCT(Sample, (), (board, details))

}  // namespace vellix
