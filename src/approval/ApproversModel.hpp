// The list of the key approvers and who is typed beside it, for their view. Main thread only.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QObject>

#include "approval/approvers.hpp"
#include "bridge/Shown.hpp"

namespace vellix {

class ApproversModel : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("made by the program")
  Q_PROPERTY(Qml<ApproversSectionView> section READ section NOTIFY sectionChanged)
  // They end with the session, and where an approver is added.
  Q_PROPERTY(QString adding READ adding WRITE setAdding NOTIFY typedChanged)
  Q_PROPERTY(QString addName READ addName WRITE setAddName NOTIFY typedChanged)

 public:
  // The store must outlive the model.
  explicit ApproversModel(Store& store);

  Qml<ApproversSectionView> section() const { return section_.qml(); }

  QString adding() const { return QString::fromStdString(adding_); }
  void setAdding(const QString& text) { type(adding_, text); }
  QString addName() const { return QString::fromStdString(addName_); }
  void setAddName(const QString& text) { type(addName_, text); }

  Q_INVOKABLE void add();
  Q_INVOKABLE void remove(const QString& email);

 signals:
  void sectionChanged();
  void typedChanged();

 private:
  void type(std::string& field, const QString& text);
  void clear();  // what is typed
  void update();

  Store& store_;
  std::string adding_;
  std::string addName_;
  Shown<ApproversSectionView> section_;
  Changes::Subscription onChange_;
};

}  // namespace vellix
