// A ticket's story: what happened to each of its versions.
#pragma once

#include <string>
#include <vector>

#include "platform/ports/calendar.hpp"
#include "store/store.hpp"

namespace vellix {

struct HistoryRowView {
  std::string key;
  std::string icon;
  std::string tone;
  std::string who;
  std::string said;  // empty for nothing
  std::string when;
  std::string spoken;  // what a screen reader says of it
  bool operator==(const HistoryRowView&) const = default;
};
BOOST_DESCRIBE_STRUCT(HistoryRowView, (), (key, icon, tone, who, said, when, spoken))

struct HistoryBlockView {
  std::string key;
  std::string head;  // empty where the service tells of no versions
  std::string note;  // on the version; empty for none
  std::vector<HistoryRowView> rows;
  bool operator==(const HistoryBlockView&) const = default;
};
BOOST_DESCRIBE_STRUCT(HistoryBlockView, (), (key, head, note, rows))

struct HistoryView {
  std::string count;  // of versions
  std::vector<HistoryBlockView> blocks;
  std::string nothing;  // said where nothing has happened
  bool operator==(const HistoryView&) const = default;
};
BOOST_DESCRIBE_STRUCT(HistoryView, (), (count, blocks, nothing))

HistoryView history(const Store& store, const FileDetail& detail, Moment now,
                    const Calendar& calendar);

}  // namespace vellix
