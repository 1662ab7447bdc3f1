// The look that the person has set for the whole system, and every change of it. Main thread; needs
// the application.
#pragma once

#include <QObject>
#include <memory>

#include "platform/ports/look.hpp"

namespace vellix {

class MacLook : public QObject {
  Q_OBJECT

 public:
  MacLook();
  ~MacLook() override;
  MacLook(const MacLook&) = delete;
  MacLook& operator=(const MacLook&) = delete;

  const Look& look() const { return look_; }

 signals:
  void changed();

 private:
  struct Watching;
  void take();

  Look look_;
  std::unique_ptr<Watching> watching_;
};

}  // namespace vellix
