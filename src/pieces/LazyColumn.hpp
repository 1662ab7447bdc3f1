// The rows of a model below one another within a Flickable, as a Repeater in a Column would have
// them. A row has an item once it comes into sight, and soon after it has come near; it keeps it
// while the keyboard is in it or beside it, and while the item says that it `stays`. The first and
// the last have theirs, so that Tab finds its way in from both sides. What was thought of the other
// rows' heights is corrected without moving what is in sight. Main thread only.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QAbstractItemModel>
#include <QPointer>
#include <QQmlComponent>
#include <QQuickItem>
#include <QTimer>
#include <optional>
#include <vector>

#include "pieces/row_heights.hpp"

namespace vellix {

class LazyColumn : public QQuickItem {
  Q_OBJECT
  QML_ELEMENT
  Q_CLASSINFO("DefaultProperty", "delegate")
  // Told once, all of them. Roles, and the `index`, go to the delegate's properties of their names.
  Q_PROPERTY(QVariant model MEMBER told_ REQUIRED)  // a list model
  Q_PROPERTY(QQmlComponent* delegate MEMBER delegate_ REQUIRED)
  Q_PROPERTY(qreal spacing MEMBER spacing_)
  // The role that tells which rows are about as high as one another; none: all are.
  Q_PROPERTY(QString alike MEMBER alike_)
  // The role that tells which rows have an item wherever they are; none: no other.
  Q_PROPERTY(QString always MEMBER always_)
  // Each row has its item at once, as without a Flickable.
  Q_PROPERTY(bool whole MEMBER whole_)

 public:
  explicit LazyColumn(QQuickItem* parent = nullptr);

  // Makes it where it is not there yet; null where there is no such row.
  Q_INVOKABLE QQuickItem* itemAt(int row);

 signals:
  // It has gone from the model, and goes now. What follows it has its `index` already.
  void itemRemoved(int index, QQuickItem* item);

 protected:
  void componentComplete() override;
  void geometryChange(const QRectF& now, const QRectF& before) override;
  void itemChange(ItemChange change, const ItemChangeData& data) override;
  void updatePolish() override;

 private slots:
  void layOutSoon() { polish(); }

 private:
  // From the top of the first row.
  struct Sight {
    double top = 0;
    double bottom = 0;
  };

  int count() const { return static_cast<int>(items_.size()); }
  QQuickItem*& itemOf(int row) { return items_[static_cast<std::size_t>(row)]; }
  QVariant data(int row, const QString& role) const;

  // What the model tells.
  void insert(int first, int last);
  void remove(int first, int last);
  void move(int first, int last, int to);
  void change(int first, int last, const QList<int>& roles);
  void number();

  void make(int row);
  void letGo(QQuickItem* item);
  void stack(int row);
  bool isKept(int row);
  // The first that has no item, within this much around what is in sight.
  std::optional<int> missing(double around);
  std::optional<int> missingNear();
  void makeNear();
  void letGoFar();

  void findView();
  void followKeyboard();
  Sight sight() const;
  void layOut();

  QVariant told_;
  QPointer<QAbstractItemModel> model_;
  QPointer<QQmlComponent> delegate_;
  qreal spacing_ = 0;
  QString alike_;
  QString always_;
  bool whole_ = false;
  QPointer<QQuickItem> view_;       // the Flickable around it
  std::vector<QQuickItem*> items_;  // one a row; null where there is none
  RowHeights heights_;
  double owed_ = 0;  // how far above their place the rows stand until the view has come to rest
  int keyed_ = -1;   // the row that the keyboard is in
  bool making_ = false;
  QTimer near_;
};

}  // namespace vellix
