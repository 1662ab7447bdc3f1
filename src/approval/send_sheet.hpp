// The sheet that sends a ticket out for approval: who is picked, what is written, what comes after.
#pragma once

#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "pieces/choice.hpp"
#include "store/store.hpp"

namespace vellix {

// What is being prepared. No poll changes what is typed. It ends with the sheet, and with the
// session.
struct SendDraft {
  FileItem file;                 // as the board had it last
  std::set<std::string> picked;  // addresses
  std::vector<Guest> others;     // who were picked and are not, or not yet, on the list
  std::vector<Guest> list;       // the key approvers, as the board had them last
  std::string adding;            // an address
  std::string addName;
  std::string note;
};

// Who was asked the last time, and else everybody on the list.
SendDraft beginSend(const Store& store, const FileItem& file);
// Who was taken from the list meanwhile is not picked any more. Changes nothing else.
void follow(SendDraft& draft, const Store& store);
void pick(SendDraft& draft, const std::string& email, bool picked);
// Picks who was typed, and puts them on the list; with an address that is not valid it does
// nothing.
void addTyped(SendDraft& draft, Store& store);
// True when it was sent; the sheet closes then.
bool sendOut(const SendDraft& draft, Store& store);

// What happens after sending: the text is kept for the next time.
void setAfterSending(Store& store, std::string_view key);

struct PickedApproverView {
  std::string email;
  std::string name;
  bool picked = false;
  bool operator==(const PickedApproverView&) const = default;
};
BOOST_DESCRIBE_STRUCT(PickedApproverView, (), (email, name, picked))

struct SendSheetView {
  std::string title;
  std::string intro;
  std::vector<PickedApproverView> approvers;
  std::string none;     // said in place of approvers
  std::string example;  // of an address
  bool canAdd = false;
  std::vector<ChoiceView> after;
  std::string then;     // the key of one of them
  std::string hint;     // on that one; empty for none
  std::string trouble;  // why it cannot be sent any more; empty while it can
  bool canSend = false;
  bool operator==(const SendSheetView&) const = default;
};
BOOST_DESCRIBE_STRUCT(SendSheetView, (),
                      (title, intro, approvers, none, example, canAdd, after, then, hint, trouble,
                       canSend))

SendSheetView sendSheet(const SendDraft& draft, const Store& store);

}  // namespace vellix
