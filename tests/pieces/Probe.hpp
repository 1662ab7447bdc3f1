// What the QML tests cannot see from inside: the accessible tree, warnings, opened addresses and
// the table of symbols.
#pragma once

#include <QObject>
#include <QQuickItem>
#include <QStringList>
#include <QUrl>

class Probe : public QObject {
  Q_OBJECT

 public:
  explicit Probe(QObject* parent = nullptr);
  ~Probe() override;

  // To be called once the test run has set up its own handling of messages.
  Q_INVOKABLE void watchWarnings();
  // Every warning since the last call, from QML or the program.
  Q_INVOKABLE QStringList takeWarnings();
  Q_INVOKABLE QStringList takeOpened();

  Q_INVOKABLE QString accessibleName(QQuickItem* item) const;
  Q_INVOKABLE QString accessibleDescription(QQuickItem* item) const;
  Q_INVOKABLE QString accessibleRole(QQuickItem* item) const;
  Q_INVOKABLE bool accessibleChecked(QQuickItem* item) const;
  // Does the action as a screen reader would. False when the item does not offer it.
  Q_INVOKABLE bool act(QQuickItem* item, const QString& action) const;
  Q_INVOKABLE bool setAccessibleValue(QQuickItem* item, double value) const;

  Q_INVOKABLE QStringList tableNames() const;
  Q_INVOKABLE QStringList compiledNames() const;
  // How many of 64 by 64 pixels the drawing marks; none when it does not parse.
  Q_INVOKABLE int marked(const QString& resource) const;
  // Whether its outermost marks lie in a circle, in every direction.
  Q_INVOKABLE bool isRound(const QString& resource) const;
  // Whether the drawing parses and leaves a mark.
  Q_INVOKABLE bool draws(const QString& resource) const;

 public slots:
  void open(const QUrl& url) { opened_.append(url.toString()); }

 private:
  QStringList opened_;
};
