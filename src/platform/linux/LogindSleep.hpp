// The login manager's word on the machine's sleep, heard on the thread that this lives on.
#pragma once

#include <QObject>
#include <QString>

namespace vellix {

class LogindSleep : public QObject {
  Q_OBJECT

 public:
  ~LogindSleep() override;

  // Connects, which may block, and listens from then on. An empty address is that of the system
  // bus.
  void start(const QString& busAddress);

 signals:
  void ended();

 private slots:
  void prepare(bool toSleep);
};

}  // namespace vellix
