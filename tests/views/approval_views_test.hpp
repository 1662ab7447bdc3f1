// The ground of the tests of the approval's views: two key approvers, and the first ticket chosen.
#pragma once

#include "views/view_test.hpp"

namespace vellix {

class ApprovalViewsTest : public ViewTest {
 public:
  ~ApprovalViewsTest() override;

 protected:
  static constexpr const char* kMara = "mara@tessarine.example";
  static constexpr const char* kOlo = "olo@tessarine.example";

  ApprovalViewsTest();

  // Gives the first ticket a link, "https://proofs.example/s/1".
  static void shareIt(BoardState& board);
  // As if the board had been polled, or the ticket's detail fetched.
  void change(const std::function<void(BoardState&)>& how);
  void tell(const FileDetail& detail);
  // The card, and the sheets beside it.
  void showCard(QSize size = kSizes.front());
  // The share button, and its popover.
  void showShare();

  bool has(const QString& name, QAccessible::Role role) { return reader().find(name, role); }
  bool opens(const QString& dialog);
  bool closes(const QString& dialog);
  void type(const QString& text);
  void key(Qt::Key key);
  // The name of what has the keyboard.
  QString focused();
  // All that was asked of the service but reading.
  std::vector<std::string> posted();

  // They go with the engine, after the views.
  template <class Model, class... Args>
  Model& made(Args&... args) {
    auto* model = new Model{args...};
    model->setParent(engine());
    return *model;
  }

  ApprovalModel& approval_ = made<ApprovalModel>(store(), desk.time, desk.calendar);
  SendModel& send_ = made<SendModel>(store());
  UploadModel& upload_ = made<UploadModel>(store());
  ShareModel& share_ = made<ShareModel>(store());
  HistoryModel& history_ = made<HistoryModel>(store(), desk.time, desk.calendar);
  ApproversModel& approvers_ = made<ApproversModel>(store());

 private:
  // The window has the keyboard, and nothing in it moves by itself.
  void calm();
};

}  // namespace vellix
