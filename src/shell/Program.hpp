// Every part of the running program, made once in the order of its dependencies.
#pragma once

#include <QQmlComponent>
#include <QQmlEngine>
#include <memory>

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
#include "pictures/CachedPictures.hpp"
#include "pictures/QtPhotos.hpp"
#include "pictures/QtPictureDecoder.hpp"
#include "platform/System.hpp"
#include "platform/qt/QtCalendar.hpp"
#include "platform/qt/QtClipboard.hpp"
#include "platform/qt/QtDownloads.hpp"
#include "platform/qt/QtHttp.hpp"
#include "platform/qt/QtLocalFiles.hpp"
#include "platform/qt/QtMainLoop.hpp"
#include "platform/qt/QtPictureFiles.hpp"
#include "platform/qt/QtTools.hpp"
#include "platform/qt/QtUpdateFiles.hpp"
#include "platform/qt/QtUrlOpener.hpp"
#include "platform/qt/QtUuids.hpp"
#include "platform/qt/QtWindows.hpp"
#include "profile/ProfileModel.hpp"
#include "shell/CommandsModel.hpp"
#include "shell/PhotoModel.hpp"
#include "shell/RootModel.hpp"
#include "shell/SettingsModel.hpp"
#include "shell/SignInModel.hpp"
#include "shell/Stage.hpp"
#include "shell/closed_http.hpp"
#include "ticket/FileModel.hpp"
#include "update/UpdateModel.hpp"

namespace vellix {

// Main thread; lives from the first picture to the end of the process.
class Program {
 public:
  Program(QtMainLoop& loop, Defaults& defaults, TokenStore& tokens, Arguments arguments = {});

  // Stages the Store, or has it poll for a session that is there.
  void begin();
  // Reads the views on a thread of the engine's. Meanwhile the service answers, and what it tells
  // is taken in: the window is made once, of what there is by then.
  Task<> load();
  // False when the window could not be made. Reads the views itself where that has not been done.
  bool show();
  // Once shown: from now on it learns of newer builds.
  void keepUpToDate() { updater_.start(); }
  // From now on the theme goes with the desktop's look, which must outlive the program.
  void follow(const SystemLook& look);
  // Once shown: puts the window where the person sees it.
  void bringForward(const QByteArray& activationToken);
  Store& store() { return store_; }

  // Ends the process in a later turn, as if the person had.
  static void end();

 private:
  bool isAtRest() const;
  Task<> endAtRest();
  void read(QQmlComponent::CompilationMode mode);
  QVariantMap parts();
  QVariantMap panelOf(const std::string& panel);

  const Arguments arguments_;
  QtMainLoop& loop_;
  QtCalendar calendar_;
  QtWindows windows_;
  SystemMachine machine_;
  SystemBadge badge_;
  QtHttp http_;
  ClosedHttp closed_{loop_};
  QtUrlOpener opener_;
  QtClipboard clipboard_;
  QtLocalFiles localFiles_;
  QtDownloads downloads_;
  QtPhotos photos_;
  QtUuids uuids_;
  API api_;
  WaitingBrowser waiting_{loop_, opener_};
  SystemSignIn systemSignIn_{loop_};
  SignIn signIn_;
  PixelCache pixels_;
  QtPictureDecoder decoder_{pixels_};
  QtPictureFiles files_;
  Images images_;
  Prefs prefs_;
  Store store_;
  Stage stage_{arguments_, store_, images_, decoder_, loop_};
  SystemWakes wakes_;
  QtTools tools_;
  QtUpdateFiles updateFiles_{textInPropertyList};
  Updater updater_;
  CachedPictures pictures_{images_, pixels_, store_};
  BoardModel board_;
  ActivityModel activity_;
  PlanModel plan_;
  FileModel file_;
  ReportModel report_;
  ClaudeLogModel log_;
  CompareModel compare_;
  InspectorModel inspector_;
  NotesModel notes_;
  ApprovalModel approval_;
  SendModel send_;
  UploadModel upload_;
  ShareModel share_;
  HistoryModel history_;
  ApproversModel approvers_;
  ProfileModel profile_;
  SignInModel signInScreen_;
  CommandsModel commands_;
  SettingsModel settings_;
  PhotoModel photo_;
  UpdateModel update_{updater_};
  RootModel root_;  // told last: a view it makes finds the other models up to date
  QQmlEngine engine_;
  std::unique_ptr<QQmlComponent> views_;
  std::unique_ptr<QObject> shown_;
  TaskScope tasks_;
};

}  // namespace vellix
