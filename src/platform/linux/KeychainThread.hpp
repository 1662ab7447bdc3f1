// The keyring's library on a thread of its own: it may block for half a minute, or never answer.
#pragma once

#include <QObject>
#include <QString>
#include <QTimer>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>

#include "platform/linux/secret_service.hpp"

class QThread;

namespace vellix {

struct KeychainJob {
  enum class Kind { read, write, remove };
  Kind kind = Kind::read;
  QString secret = {};  // to write
};

struct KeychainAnswer {
  bool sure = false;  // carried out, and not refused, late or broken
  std::optional<QString> secret = {};
};

// One for the process, as the library's own queue is. Main thread; made with the QCoreApplication
// alive. A job that is late is disowned and runs on, or not; deleting it would crash.
class KeychainThread {
 public:
  static KeychainThread& instance();

  // `done` is called once in a later turn, at the latest after `limit` ms. For a read it has the
  // secret when there is one; none that is sure says that the keyring holds none.
  void run(const KeychainJob& job, int limit, std::function<void(const KeychainAnswer&)> done);
  void findSecretService(int limit, std::function<void(SecretService)> done);

 private:
  struct Call {
    std::function<void(void*)> answer;  // with null when it is late
    std::unique_ptr<QTimer> limit;
  };

  KeychainThread();
  void stop();
  std::int64_t expect(int limit, std::function<void(void*)> answer);
  void finish(std::int64_t id, void* value);
  template <class T>
  void tell(std::int64_t id, T value);
  void startJob(std::int64_t id, const KeychainJob& job);

  QObject home_;     // on the main thread
  QObject* worker_;  // on the thread
  QThread* thread_;
  std::int64_t lastId_ = 0;
  std::map<std::int64_t, Call> calls_;
};

}  // namespace vellix
