// Runs the tests with an application and its event loop, without a display.
#include <gtest/gtest.h>

#include <QGuiApplication>

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  // The tests talk to the loopback alone, whatever this machine's proxy is.
  for (const char* name :
       {"http_proxy", "https_proxy", "all_proxy", "HTTP_PROXY", "HTTPS_PROXY", "ALL_PROXY"}) {
    qunsetenv(name);
  }
  testing::InitGoogleTest(&argc, argv);
  const QGuiApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
