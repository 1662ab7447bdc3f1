#include "compare/MarksAccess.hpp"

#include <QQuickWindow>
#include <algorithm>
#include <unordered_map>
#include <unordered_set>

#include "compare/BoxMarks.hpp"
#include "pieces/PlainAccess.hpp"

namespace vellix {
namespace {

QAccessibleInterface* accessOf(BoxMarks* marks) {
  return QAccessible::queryAccessibleInterface(marks);
}

class MarkAccess : public QAccessibleInterface, public QAccessibleActionInterface {
 public:
  // A mark that has gone has no words and does nothing.
  MarkAccess(BoxMarks* marks, int id) : marks_(marks), id_(id) {}

  int id() const { return id_; }

  bool isValid() const override { return marks_; }
  QObject* object() const override { return nullptr; }
  QWindow* window() const override { return marks_ ? marks_->window() : nullptr; }
  QAccessibleInterface* parent() const override { return accessOf(marks_); }
  QAccessibleInterface* childAt(int, int) const override { return nullptr; }
  QAccessibleInterface* child(int) const override { return nullptr; }
  int childCount() const override { return 0; }
  int indexOfChild(const QAccessibleInterface*) const override { return -1; }
  QAccessible::Role role() const override { return QAccessible::Button; }
  void setText(QAccessible::Text, const QString&) override {}

  QString text(QAccessible::Text which) const override {
    const BoxMarks::Mark* mark = this->mark();
    if (!mark) return {};
    const BoxMarkView& view = mark->view;
    if (which == QAccessible::Name) return QString::fromStdString(view.name);
    const bool more = which == QAccessible::Description && view.help != view.name;
    return more ? QString::fromStdString(view.help) : QString{};
  }

  QRect rect() const override {
    const BoxMarks::Mark* mark = this->mark();
    if (!mark || !window()) return {};
    const QRectF place = marks_->mapRectToScene(mark->place);
    return {window()->mapToGlobal(place.topLeft().toPoint()), place.size().toSize()};
  }

  QAccessible::State state() const override {
    QAccessible::State state;
    const BoxMarks::Mark* mark = this->mark();
    if (!mark) {
      state.invalid = state.invisible = true;
      return state;
    }
    state.invisible = accessOf(marks_)->state().invisible;
    state.offscreen = !window() || !window()->geometry().intersects(rect());
    state.disabled = !marks_->isEnabled();
    state.focusable = true;
    state.focused = mark->item && mark->item->hasActiveFocus();
    state.checkable = true;
    state.checked = mark->view.selected;
    const BoxMarks::Mark* held = marks_->heldMark();
    state.pressed = (held && held->id == id_) || (mark->item && mark->item->pressed());
    return state;
  }

  void* interface_cast(QAccessible::InterfaceType type) override {
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                : nullptr;
  }
  QStringList actionNames() const override {
    return {setFocusAction(), pressAction(), toggleAction()};
  }
  QStringList keyBindingsForAction(const QString&) const override { return {}; }
  void doAction(const QString& action) override {
    if (!mark()) return;
    if (action == setFocusAction()) {
      marks_->itemOf(id_)->forceActiveFocus();
    } else if ((action == pressAction() || action == toggleAction()) && marks_->isEnabled() &&
               marks_->isVisible()) {
      marks_->press(id_);
    }
  }

 private:
  const BoxMarks::Mark* mark() const { return marks_ ? marks_->markOf(id_) : nullptr; }

  QPointer<BoxMarks> marks_;
  const int id_;
};

class MarksAccess : public QObject, public PlainAccess {
 public:
  MarksAccess(BoxMarks* marks, QAccessibleInterface* plain)
      : PlainAccess(marks, plain), marks_(marks) {
    connect(marks, &BoxMarks::marksChanged, this, &MarksAccess::keepUp);
    connect(marks, &BoxMarks::markChanged, this, &MarksAccess::tellChange);
    connect(marks, &BoxMarks::markReached, this, [this](int id) { tell(id, QAccessible::Focus); });
    connect(marks, &QQuickItem::enabledChanged, this, [this] {
      for (const auto& [id, known] : made_) {
        QAccessible::State changed;
        changed.disabled = true;
        tellState(id, changed);
      }
    });
  }
  ~MarksAccess() override {
    for (const auto& [id, known] : made_) QAccessible::deleteAccessibleInterface(known);
  }

  int childCount() const override { return marks_ ? static_cast<int>(marks_->marks().size()) : 0; }
  QAccessibleInterface* child(int index) const override {
    if (index < 0 || index >= childCount()) return nullptr;
    return of(marks_->marks()[static_cast<std::size_t>(index)].id);
  }
  QAccessibleInterface* childAt(int x, int y) const override {
    if (!marks_ || !window()) return nullptr;
    const auto* mark = marks_->at(marks_->mapFromGlobal(QPointF(x, y)));
    return mark ? of(mark->id) : nullptr;
  }
  QAccessibleInterface* focusChild() const override {
    if (!marks_) return nullptr;
    const auto& marks = marks_->marks();
    const auto found = std::ranges::find_if(
        marks, [](const BoxMarks::Mark& mark) { return mark.item && mark.item->hasActiveFocus(); });
    return found == marks.end() ? nullptr : of(found->id);
  }
  int indexOfChild(const QAccessibleInterface* child) const override {
    const auto* mark = dynamic_cast<const MarkAccess*>(child);
    if (!mark || !marks_) return -1;
    return static_cast<int>(std::ranges::find(marks_->marks(), mark->id(), &BoxMarks::Mark::id) -
                            marks_->marks().begin());
  }

 private:
  QAccessibleInterface* of(int id) const {
    const auto [place, isNew] = made_.try_emplace(id, QAccessible::Id{});
    if (isNew) {
      place->second = QAccessible::registerAccessibleInterface(new MarkAccess{marks_, id});
    }
    return QAccessible::accessibleInterface(place->second);
  }

  // Qt makes an item another interface where it comes to know more of it; only the last one tells.
  bool tells() const { return QAccessible::isActive() && accessOf(marks_) == this; }
  void tell(int id, QAccessible::Event what) const {
    if (!tells()) return;
    QAccessibleEvent event{of(id), what};
    QAccessible::updateAccessibility(&event);
  }
  void tellState(int id, QAccessible::State changed) const {
    if (!tells()) return;
    QAccessibleStateChangeEvent event{of(id), changed};
    QAccessible::updateAccessibility(&event);
  }

  void keepUp() {
    std::unordered_set<int> here;
    for (const BoxMarks::Mark& mark : marks_->marks()) here.insert(mark.id);
    std::erase_if(made_, [&](const auto& known) {
      if (here.contains(known.first)) return false;
      if (tells()) {
        QAccessibleEvent event{QAccessible::accessibleInterface(known.second),
                               QAccessible::ObjectDestroyed};
        QAccessible::updateAccessibility(&event);
      }
      QAccessible::deleteAccessibleInterface(known.second);
      return true;
    });
    if (!tells()) return;
    for (const int id : here) {
      if (!made_.contains(id)) tell(id, QAccessible::ObjectCreated);
    }
  }

  void tellChange(int id, const BoxMarkView& before) const {
    const BoxMarks::Mark* mark = marks_->markOf(id);
    if (!mark) return;
    if (mark->view.name != before.name) tell(id, QAccessible::NameChanged);
    if (mark->view.help != before.help) tell(id, QAccessible::DescriptionChanged);
    if (mark->view.selected == before.selected) return;
    QAccessible::State changed;
    changed.checked = true;
    tellState(id, changed);
  }

  QPointer<BoxMarks> marks_;
  mutable std::unordered_map<int, QAccessible::Id> made_;  // by the marks' ids
};

QAccessibleInterface* accessTo(const QString& type, QObject* object) {
  static bool asking = false;
  const bool isOurs = type == QLatin1String{BoxMarks::staticMetaObject.className()};
  auto* marks = isOurs && !asking ? qobject_cast<BoxMarks*>(object) : nullptr;
  if (!marks) return nullptr;
  asking = true;
  QAccessibleInterface* plain = QAccessible::queryAccessibleInterface(marks);
  asking = false;
  return plain ? new MarksAccess{marks, plain} : nullptr;
}

}  // namespace

void tellMarks() {
  [[maybe_unused]] static const bool once = (QAccessible::installFactory(accessTo), true);
}

}  // namespace vellix
