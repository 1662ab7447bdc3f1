// The views in a window, over models, over a Store whose service is scripted. Every warning fails.
#pragma once

#include <QQmlApplicationEngine>
#include <QQuickView>
#include <QQuickWindow>

#include "approval/ApprovalModel.hpp"
#include "approval/ApproversModel.hpp"
#include "approval/HistoryModel.hpp"
#include "approval/SendModel.hpp"
#include "approval/ShareModel.hpp"
#include "approval/UploadModel.hpp"
#include "board/ActivityModel.hpp"
#include "board/BoardModel.hpp"
#include "board/PlanModel.hpp"
#include "compare/CompareModel.hpp"
#include "inspector/InspectorModel.hpp"
#include "jobs/ClaudeLogModel.hpp"
#include "jobs/ReportModel.hpp"
#include "notes/NotesModel.hpp"
#include "pieces/Theme.hpp"
#include "profile/ProfileModel.hpp"
#include "shell/CommandsModel.hpp"
#include "shell/PhotoModel.hpp"
#include "shell/RootModel.hpp"
#include "shell/SettingsModel.hpp"
#include "shell/SignInModel.hpp"
#include "store/store_test.hpp"
#include "ticket/FileModel.hpp"
#include "update/UpdateModel.hpp"
#include "update/update_fakes.hpp"
#include "views/plain_pictures.hpp"
#include "views/screen_reader.hpp"

namespace vellix {

class ViewTest : public StoreTest {
 public:
  ~ViewTest() override;

 protected:
  ViewTest();

  // Three tickets, the first with three pages and findings, all of it served and polled.
  void serveTheDay();
  static FileDetail lighthouse(Int rev = 1);

  // The models as initial properties, under the names that the views give them.
  QVariantMap models();
  // What the main window wants beside these.
  QVariantMap windowModels();
  // Loads one view, "Board/FileList" say, into a window of its own and shows it.
  void show(const QString& view, const QVariantMap& properties, QSize size);
  // Loads the main window, or another that is one by itself.
  void showMain(QSize size);
  void showWindow(const QString& view, const QVariantMap& properties, QSize size);
  QQuickWindow* window() { return window_; }
  Theme* theme();
  QQmlEngine* engine() { return engine_.get(); }
  ScreenReader reader() { return ScreenReader{window_}; }
  // Presses what a screen reader finds, and settles.
  bool press(const QString& name, QAccessible::Role role = QAccessible::Button);
  // Lets the Store, the bindings and the layout come to rest, and paints.
  void settle();
  void resize(QSize size);

  // The program itself is up to date, as long as the test sets nothing else.
  Updater& updater() { return updater_; }

  PlainPictures pictures;
  Asked asked;  // of the tools and files of an update
  FakeTools tools{desk.time, asked};
  FakeUpdateFiles updateFiles{desk.time, asked};
  FakeWakes wakes;

 private:
  Updater updater_{{desk.api, desk.http, desk.defaults, desk.time, tools, updateFiles, desk.opener,
                    wakes, [] {}},
                   {}};
  std::optional<SignInModel> signIn_;
  std::optional<RootModel> root_;
  std::optional<BoardModel> board_;
  std::optional<ActivityModel> activity_;
  std::optional<PlanModel> plan_;
  std::optional<FileModel> file_;
  std::optional<ReportModel> report_;
  std::optional<ClaudeLogModel> log_;
  std::optional<CompareModel> compare_;
  std::optional<InspectorModel> inspector_;
  std::optional<NotesModel> notes_;
  std::optional<ApprovalModel> approval_;
  std::optional<SendModel> send_;
  std::optional<UploadModel> upload_;
  std::optional<ShareModel> share_;
  std::optional<HistoryModel> history_;
  std::optional<ApproversModel> approvers_;
  std::optional<ProfileModel> profile_;
  std::optional<UpdateModel> update_;
  std::optional<CommandsModel> commands_;
  std::optional<PhotoModel> photo_;
  std::optional<SettingsModel> settings_;
  std::unique_ptr<QQmlApplicationEngine> engine_ = std::make_unique<QQmlApplicationEngine>();
  std::unique_ptr<QQuickView> view_;
  QQuickWindow* window_ = nullptr;
};

inline const QList<QSize> kSizes{{760, 540}, {1500, 940}};

}  // namespace vellix
