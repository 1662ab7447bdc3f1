// Takes the URLs that would be opened, in the browser's place.
#pragma once

#include <QDesktopServices>
#include <QObject>
#include <QUrl>
#include <vector>

namespace vellix {

class UrlCatcher : public QObject {
  Q_OBJECT

 public:
  explicit UrlCatcher(const QString& scheme) : scheme_(scheme) {
    QDesktopServices::setUrlHandler(scheme_, this, "take");
  }
  ~UrlCatcher() override { QDesktopServices::unsetUrlHandler(scheme_); }
  UrlCatcher(const UrlCatcher&) = delete;
  UrlCatcher& operator=(const UrlCatcher&) = delete;

  Q_INVOKABLE void take(const QUrl& url) { urls.push_back(url.toEncoded().toStdString()); }

  std::vector<std::string> urls;

 private:
  const QString scheme_;
};

}  // namespace vellix
