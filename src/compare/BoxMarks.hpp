// The rectangles of all findings on one pane of a page, as areas that are pressed. There may be a
// thousand: they are drawn by one item and are none themselves, but for those that the keyboard has
// come to, and the first and the last, by which it comes. Main thread only.
#pragma once

#include <QtQml/qqmlregistration.h>
#include <QPointer>
#include <unordered_map>
#include <vector>

#include "compare/CompareModel.hpp"
#include "pieces/MarkFrames.hpp"
#include "pieces/PressArea.hpp"

namespace vellix {

class BoxMarks;

// A mark that the keyboard has come to: who remembers it finds it gone with its finding.
class BoxMark : public vellix::PressArea {
  Q_OBJECT

 public:
  BoxMark(int id, BoxMarks& marks);
  int id() const { return id_; }

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  const int id_;
  BoxMarks& marks_;
};

class BoxMarks : public vellix::PressArea {
  Q_OBJECT
  QML_ELEMENT
  Q_PROPERTY(vellix::CompareModel* compare READ compare WRITE setCompare NOTIFY compareChanged)
  Q_PROPERTY(QString pane MEMBER pane_ NOTIFY paneChanged)  // its key
  // The colours that a mark may have, by the names that its view gives them.
  Q_PROPERTY(QColor accent MEMBER accent_ NOTIFY coloursChanged)
  Q_PROPERTY(QColor green MEMBER green_ NOTIFY coloursChanged)
  Q_PROPERTY(QColor muted MEMBER muted_ NOTIFY coloursChanged)
  // The mark that the keyboard has come to by key, which a ring is due for; null for none.
  Q_PROPERTY(vellix::PressArea* keyed READ keyed NOTIFY keyedChanged)

 public:
  explicit BoxMarks(QQuickItem* parent = nullptr);
  ~BoxMarks() override;

  struct Mark {
    int id = 0;  // for as long as there is a mark of this key
    BoxMarkView view;
    QRectF place;
    BoxMark* item = nullptr;  // owned by the scene; null until the keyboard comes near
  };

  CompareModel* compare() const { return compare_; }
  void setCompare(CompareModel* compare);
  PressArea* keyed() const { return keyed_; }

  // In the order in which the keyboard comes by.
  const std::vector<Mark>& marks() const { return marks_; }
  const Mark* markOf(int id) const;     // null where there is none
  const Mark* at(QPointF point) const;  // the topmost; null for none
  const Mark* hoveredMark() const { return markOf(hovered_); }
  const Mark* heldMark() const { return pressed() ? markOf(held_) : nullptr; }
  // As they are drawn, from the lowest to the topmost.
  std::vector<MarkFrames::Frame> frames() const;
  // The item of a mark, which is made where there is none.
  BoxMark* itemOf(int id);
  void press(int id);
  // Gives the keyboard from this mark to the one before or behind it; false where there is none.
  bool step(int from, int by, Qt::FocusReason reason);

  bool contains(const QPointF& point) const override;

 signals:
  void compareChanged();
  void paneChanged();
  void coloursChanged();
  void keyedChanged();
  // The keyboard has come to a mark by key.
  void sought(QQuickItem* mark);
  // For a screen reader: what there is, or how it is.
  void marksChanged();
  void markChanged(int id, const vellix::BoxMarkView& before);
  void markReached(int id);

 protected:
  void geometryChange(const QRectF& now, const QRectF& before) override;
  void itemChange(ItemChange change, const ItemChangeData& data) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseUngrabEvent() override;
  void hoverEnterEvent(QHoverEvent* event) override;
  void hoverMoveEvent(QHoverEvent* event) override;
  void hoverLeaveEvent(QHoverEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void read();
  void place();
  void draw();
  void tellHelp();
  void hover(const Mark* mark);
  void follow(BoxMark* item);
  void stack();
  MarkFrames::Frame frameOf(const Mark& mark, const std::string& pointed) const;

  QPointer<CompareModel> compare_;
  QString pane_;
  QColor accent_;
  QColor green_;
  QColor muted_;
  std::vector<Mark> marks_;
  std::unordered_map<int, std::size_t> places_;  // in the marks, by their ids
  std::vector<std::size_t> order_;               // of the marks, from the lowest to the topmost
  int lastId_ = 0;
  int hovered_ = 0;  // ids; 0 for none
  int held_ = 0;
  QString pointed_;           // the finding that the pointer is told to be on
  BoxMark* keyed_ = nullptr;  // one of the marks' items
  MarkFrames* below_;
  MarkFrames* above_;  // of the ring around what the keyboard has come to
};

}  // namespace vellix
