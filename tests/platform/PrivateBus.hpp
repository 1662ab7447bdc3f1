// A bus of the test's own.
#pragma once

#include <gtest/gtest.h>

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

namespace vellix {

// A bus with no services that it could start.
class PrivateBus {
 public:
  PrivateBus() {
    QFile config(home_.filePath("bus.conf"));
    EXPECT_TRUE(config.open(QIODevice::WriteOnly));
    config.write(R"(<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig><type>session</type><listen>unix:path=)" +
                 home_.filePath("bus").toUtf8() + R"(</listen><auth>EXTERNAL</auth>
<policy context="default"><allow send_destination="*" eavesdrop="true"/>
<allow eavesdrop="true"/><allow own="*"/></policy></busconfig>)");
    config.close();
    daemon_.start("dbus-daemon",
                  {"--config-file=" + config.fileName(), "--nofork", "--print-address=1"});
    EXPECT_TRUE(daemon_.waitForReadyRead(20'000));
    address = QString::fromUtf8(daemon_.readLine()).trimmed();
  }
  ~PrivateBus() {
    daemon_.kill();
    daemon_.waitForFinished();
  }

  QString address;

 private:
  QTemporaryDir home_;
  QProcess daemon_;
};

}  // namespace vellix
