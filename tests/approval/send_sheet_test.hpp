// The ground of the send sheet's tests.
#pragma once

#include "approval/approval_test.hpp"
#include "approval/send_sheet.hpp"

namespace vellix {

class SendSheets : public ApprovalTest {
 protected:
  void open() { draft = beginSend(store(), file()); }
  SendSheetView view() { return sendSheet(draft, store()); }
  std::vector<std::string> picked() {
    std::vector<std::string> emails;
    for (const auto& row : view().approvers) {
      if (row.picked) emails.push_back(row.email);
    }
    return emails;
  }
  // A poll's board reaches the open sheet.
  void pollBrings() {
    publish();
    follow(draft, store());
  }
  bool send() {
    const bool sent = sendOut(draft, store());
    desk.time.run();
    return sent;
  }
  void type(std::string email, std::string name = "") {
    draft.adding = std::move(email);
    draft.addName = std::move(name);
  }

  SendDraft draft;
};

}  // namespace vellix
