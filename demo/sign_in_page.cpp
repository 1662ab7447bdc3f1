// The page that a browser opens to sign in.
#include <QString>
#include <QUrl>

#include "service.hpp"

namespace vellix::demo {
namespace {

const char* const kStyle = R"(
  * { box-sizing: border-box; margin: 0 }
  body { min-height: 100vh; display: grid; place-items: center; color: #23201c;
         background: radial-gradient(circle at 30% 10%, #fdf9f0, #ece7dc);
         font: 15px/1.45 Inter, system-ui, sans-serif }
  main { width: 380px; padding: 40px 36px; background: #fffdf8; border-radius: 16px;
         box-shadow: 0 8px 40px rgba(60, 40, 10, .12) }
  h1 { font: 500 32px/1.1 "EB Garamond", Georgia, serif; margin-bottom: 6px }
  p { color: #6d665c; margin-bottom: 24px }
  a { display: flex; align-items: center; gap: 14px; padding: 12px 14px; margin-top: 10px;
      border-radius: 10px; border: 1px solid #e4ddd0; text-decoration: none; color: inherit }
  a:hover { background: #f8f3e8 } a:focus-visible { outline: 2px solid #d2502f }
  a.hint { border-color: #d2502f; background: #fdf1ea }
  b { display: block; font-weight: 600 } small { color: #857d71 }
  i { width: 36px; height: 36px; border-radius: 50%; display: grid; place-items: center;
      font-style: normal; font-weight: 600 })";

std::string itemOf(const Request& request, const char* name) {
  const auto found = request.query.find(name);
  return found == request.query.end() ? std::string() : found->second;
}

QString escaped(const std::string& item) {
  return QString::fromLatin1(QUrl::toPercentEncoding(QString::fromStdString(item)));
}

Reply pageOf(const QString& content) {
  const QString page =
      QStringLiteral(
          "<!doctype html><html lang=\"en\"><meta charset=\"utf-8\">"
          "<meta name=\"viewport\" content=\"width=device-width\"><title>Sign in to Vellix</title>"
          "<style>") +
      QLatin1String(kStyle) + QStringLiteral("</style><main><h1>Vellix</h1>") + content +
      QStringLiteral("</main></html>");
  return {200, page.toStdString(), "text/html; charset=utf-8", {}, false};
}

}  // namespace

Reply Service::signInPage(const Request& request) {
  const std::string nonce = itemOf(request, "state");
  if (nonce.empty()) return errorReply(400, "A sign-in needs its state.");
  QString content = QStringLiteral(
      "<p>Choose who you are today. This is a demo: nothing leaves this machine.</p>");
  const std::tuple<const char*, const char*, const char*> people[] = {
      {kRenny, "Renny Vale", "#7442e8"}, {kJorvas, "Jorvas Lind", "#1a84f0"}};
  const QLatin1String back(handBack ? "/signin/back" : "sorel://signed-in");
  for (const auto& [email, name, colour] : people) {
    const QString link =
        QStringLiteral("%1?code=%2&amp;state=%3")
            .arg(back, QString::fromStdString(state_.codeFor(email, nonce)), escaped(nonce));
    content +=
        QStringLiteral(
            "<a href=\"%1\"%2><i style=\"color:%3;background:%3 2e\">%4</i>"
            "<span><b>%5</b><small>%6</small></span></a>")
            .arg(link,
                 itemOf(request, "hint") == email ? QStringLiteral(" class=\"hint\"") : QString(),
                 QLatin1String(colour), QString(QLatin1Char(name[0])), QLatin1String(name),
                 QLatin1String(email))
            .replace(QStringLiteral(" 2e\""), QStringLiteral("2e\""));
  }
  return pageOf(content);
}

Reply Service::signedInPage(const Request& request) {
  const QString url = QStringLiteral("sorel://signed-in?code=%1&state=%2")
                          .arg(escaped(itemOf(request, "code")), escaped(itemOf(request, "state")));
  handBack(url.toStdString());
  return pageOf(QStringLiteral("<p>That's it. Vellix goes on; this page can be closed.</p>"));
}

}  // namespace vellix::demo
