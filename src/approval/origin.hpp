// Where a ticket's file came from, and what it was checked against.
#pragma once

#include <string>
#include <vector>

#include "platform/ports/calendar.hpp"
#include "store/store.hpp"

namespace vellix {

struct CheckedAgainstView {
  std::string key;
  std::string label;  // "Checked against {reference}:"
  std::string name;
  std::string url;  // where it is; empty when it is not told
  bool operator==(const CheckedAgainstView&) const = default;
};
BOOST_DESCRIBE_STRUCT(CheckedAgainstView, (), (key, label, name, url))

struct OriginView {
  std::string line;
  std::string folder;  // the address of the order's folder; empty when there is none
  std::vector<CheckedAgainstView> checked;
  std::string unchecked;  // said in place of these
  bool operator==(const OriginView&) const = default;
};
BOOST_DESCRIBE_STRUCT(OriginView, (), (line, folder, checked, unchecked))

OriginView originOf(const FileDetail& detail, Moment now, const Calendar& calendar);

}  // namespace vellix
