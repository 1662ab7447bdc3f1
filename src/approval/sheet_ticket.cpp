#include "approval/sheet_ticket.hpp"

#include "approval/approval_pill.hpp"

namespace vellix {

const FileItem* ticketOnBoard(const Store& store, const std::string& id) {
  return store.board() ? store.board()->files.find(id) : nullptr;
}

std::string sheetTrouble(const FileItem* file, bool (*able)(const FileItem&)) {
  if (!file) return "This ticket isn't on the board any more.";
  if (able(*file)) return {};
  const auto pill = approvalPill(*file, false);
  return "This ticket has moved on: " + (pill ? pill->text : std::string{}) + ".";
}

}  // namespace vellix
