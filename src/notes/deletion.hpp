// The two steps of deleting a note. Ends with the row that asks.
#pragma once

namespace vellix {

class Deletion {
 public:
  bool asked() const { return asked_; }

  // True when the note is to go. A double click, for which the pointer is on the entry, asks once.
  bool press(bool pointed) {
    if (asked_) return !hurried_ || !pointed;
    asked_ = hurried_ = true;
    return false;
  }
  // The time of a double click has passed since it was asked.
  void rest() { hurried_ = false; }

 private:
  bool asked_ = false;
  bool hurried_ = false;
};

}  // namespace vellix
