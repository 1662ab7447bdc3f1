#include "approval/sheet_ticket.hpp"

#include <algorithm>

#include "approval/approval_pill.hpp"

namespace vellix {

const FileItem* ticketOnBoard(const Store& store, const std::string& id) {
  if (!store.board()) return nullptr;
  const auto& files = store.board()->files;
  const auto found = std::ranges::find(files, id, &FileItem::id);
  return found == files.end() ? nullptr : &*found;
}

std::string sheetTrouble(const FileItem* file, bool (*able)(const FileItem&)) {
  if (!file) return "This ticket isn't on the board any more.";
  if (able(*file)) return {};
  const auto pill = approvalPill(*file, false);
  return "This ticket has moved on: " + (pill ? pill->text : std::string{}) + ".";
}

}  // namespace vellix
