// The mail that asks for an approval.
#pragma once

#include <string>
#include <vector>

#include "store/store.hpp"

namespace vellix {

struct ApprovalMail {
  std::string subject;
  std::string body;
};

// To these addresses; the link is where they answer.
ApprovalMail approvalMail(const Store& store, const FileItem& file,
                          const std::vector<std::string>& emails, const std::string& link);

}  // namespace vellix
