// What a list model told its views since the last look, one line an operation.
#pragma once

#include <QAbstractItemModel>
#include <string>
#include <vector>

namespace vellix {

class Operations {
 public:
  // The model must outlive the record.
  explicit Operations(QAbstractItemModel* model) {
    using M = QAbstractItemModel;
    const auto span = [this](const char* what) {
      return [this, what](const QModelIndex&, int first, int last) { add(what, first, "-", last); };
    };
    QObject::connect(model, &M::rowsInserted, &context_, span("insert "));
    QObject::connect(model, &M::rowsRemoved, &context_, span("remove "));
    QObject::connect(model, &M::rowsMoved, &context_,
                     [this](const QModelIndex&, int first, int, const QModelIndex&, int to) {
                       add("move ", first, ">", to);
                     });
    QObject::connect(model, &M::modelReset, &context_, [this] { all_.push_back("reset"); });
    QObject::connect(
        model, &M::dataChanged, &context_,
        [this, model](const QModelIndex& first, const QModelIndex& last, const QList<int>& roles) {
          add("change ", first.row(), "-", last.row());
          for (const int role : roles) all_.back() += " " + model->roleNames()[role].toStdString();
        });
  }

  std::vector<std::string> take() { return std::exchange(all_, {}); }

 private:
  void add(const char* what, int first, const char* between, int last) {
    all_.push_back(what + std::to_string(first) + between + std::to_string(last));
  }

  std::vector<std::string> all_;
  QObject context_;
};

// One field of one row, as a view reads it.
inline QVariant fieldOf(const QAbstractItemModel* model, int row, const char* field) {
  return model->data(model->index(row, 0), model->roleNames().key(field));
}

}  // namespace vellix
