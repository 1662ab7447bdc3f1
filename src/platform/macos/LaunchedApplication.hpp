// The program as the launch services know it: they keep it to one running instance, bring it to the
// front themselves, and hand it the links of its scheme.
#pragma once

#include <QObject>
#include <functional>
#include <vector>

#include "platform/qt/start_request.hpp"

namespace vellix {

// The bundle's identifier.
inline constexpr const char* kDesktopName = "com.rennyvale.Sorel";

// Nothing is needed to come to the front with.
inline QByteArray givenActivationToken() { return {}; }

// Main thread; made with the QCoreApplication, whose events it looks at.
class LaunchedApplication : public QObject {
 public:
  LaunchedApplication();

  // There is never another instance to hand anything to.
  bool handOver(const StartRequest& /*request*/) { return false; }

  // Called in later turns for each link, first for those that came before. May be set once.
  void listen(std::function<void(StartRequest)> told);

  void retire() {}

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void tell(const StartRequest& request);

  std::vector<StartRequest> early_;
  std::function<void(StartRequest)> told_;
};

}  // namespace vellix
