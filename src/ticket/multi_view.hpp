// Several tickets at once.
#pragma once

#include <string>

#include "store/store.hpp"

namespace vellix {

struct MultiFilesView {
  std::string heading;
  std::string titles;
  bool operator==(const MultiFilesView&) const = default;
};
BOOST_DESCRIBE_STRUCT(MultiFilesView, (), (heading, titles))

MultiFilesView multiFiles(const Store& store);

}  // namespace vellix
