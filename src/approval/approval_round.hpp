// What the records tell of a ticket's round of approval. The detail may be null: it is not here
// yet.
#pragma once

#include <string>
#include <vector>

#include "records/records.hpp"

namespace vellix {

// What is returned by pointer belongs to the detail, and is null where it has none.
const Approval* approvalIn(const FileDetail* detail);
const Version* latestVersion(const FileDetail* detail);
// The approver's answer; null while there is none.
const Answer* answerOf(const Approval& approval, const std::string& email);

// Addresses, each once, in the order of asking.
std::vector<std::string> askedApprovers(const FileItem& file, const FileDetail* detail);
std::vector<std::string> waitingApprovers(const FileItem& file, const FileDetail* detail);
// Who asked for changes.
std::vector<std::string> changesAskedBy(const FileDetail* detail);

// The latest version is being compared with the one before it.
bool isBeingChecked(const FileDetail* detail);

// A version by its name, as "v3".
std::string versionName(Int n);

}  // namespace vellix
