// The demo service as a process of its own, on a free port, for as long as this object lives.
#pragma once

#include <QProcess>
#include <string>

namespace vellix::bench {

class DemoService {
 public:
  DemoService();
  ~DemoService();
  DemoService(const DemoService&) = delete;
  DemoService& operator=(const DemoService&) = delete;

  const std::string& server() const { return server_; }  // empty when it did not start
  // Signs in; the token, or empty.
  std::string signIn();
  // Waits for the answer. No token: for what needs none.
  QByteArray post(const std::string& path, const std::string& token, const QByteArray& json);

 private:
  QProcess process_;
  std::string server_;
};

}  // namespace vellix::bench
