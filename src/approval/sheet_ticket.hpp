// The ticket that a sheet was opened for. It may go, or move on, while the sheet is open.
#pragma once

#include <string>

#include "store/store.hpp"

namespace vellix {

// As the board has it now; null when it has gone. Owned by the Store.
const FileItem* ticketOnBoard(const Store& store, const std::string& id);

// Why a sheet cannot do its work any more; empty as long as the ticket is there and `able`.
std::string sheetTrouble(const FileItem* file, bool (*able)(const FileItem&));

}  // namespace vellix
