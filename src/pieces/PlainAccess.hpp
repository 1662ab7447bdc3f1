// Qt Quick's own interface of an item, as it is told to a screen reader, for those that tell more.
#pragma once

#include <QAccessible>
#include <QPointer>
#include <QQuickItem>

namespace vellix {

class PlainAccess : public QAccessibleInterface {
 public:
  // Both go with the item.
  PlainAccess(QQuickItem* item, QAccessibleInterface* plain) : item_(item), plain_(plain) {}

  QQuickItem* item() const { return item_; }

  QAccessible::State state() const override { return plain_->state(); }
  bool isValid() const override { return item_ && plain_->isValid(); }
  QObject* object() const override { return item_; }
  QWindow* window() const override { return plain_->window(); }
  QList<QPair<QAccessibleInterface*, QAccessible::Relation>> relations(
      QAccessible::Relation match) const override {
    return plain_->relations(match);
  }
  QAccessibleInterface* focusChild() const override { return plain_->focusChild(); }
  QAccessibleInterface* childAt(int x, int y) const override { return plain_->childAt(x, y); }
  QAccessibleInterface* parent() const override { return plain_->parent(); }
  QAccessibleInterface* child(int index) const override { return plain_->child(index); }
  int childCount() const override { return plain_->childCount(); }
  int indexOfChild(const QAccessibleInterface* child) const override {
    return plain_->indexOfChild(child);
  }
  QString text(QAccessible::Text which) const override { return plain_->text(which); }
  void setText(QAccessible::Text which, const QString& text) override {
    plain_->setText(which, text);
  }
  QRect rect() const override { return plain_->rect(); }
  QAccessible::Role role() const override { return plain_->role(); }
  QColor foregroundColor() const override { return plain_->foregroundColor(); }
  QColor backgroundColor() const override { return plain_->backgroundColor(); }
  void* interface_cast(QAccessible::InterfaceType type) override {
    return plain_->interface_cast(type);
  }

 private:
  QPointer<QQuickItem> item_;
  QAccessibleInterface* plain_;
};

}  // namespace vellix
