#include "feed.hpp"

#include <QString>
#include <utility>

#include "gateway/api.hpp"

namespace vellix::demo {
namespace {

const char* const kStyle = R"(
  body { color: #23201c; background: #f3efe6; font: 15px/1.45 Inter, system-ui, sans-serif }
  main { max-width: 560px; margin: 0 auto; padding: 64px 24px }
  h1 { font: 500 34px/1.1 "EB Garamond", Georgia, serif } p { margin: 12px 0 })";

QString escaped(const std::string& text) { return QString::fromStdString(text).toHtmlEscaped(); }

// Leaves what is not there as it is; false when it is something else.
template <class T, class To>
bool take(const Json& body, const std::string& key, To& to) {
  const Json* found = body.find(key);
  if (found == nullptr) return true;
  const auto* value = std::get_if<T>(&found->value);
  if (value != nullptr) to = *value;
  return value != nullptr;
}

}  // namespace

Feed::Feed(const std::string& address)
    : own_{API::shortVersion(), API::buildNumber(), address + "/download", std::nullopt,
           std::nullopt},
      newest_(own_) {}

std::optional<std::string> Feed::replace(const Json& body) {
  VersionInfo next = own_;
  const bool right =
      body.object() != nullptr && take<std::string>(body, "version", next.version) &&
      take<Int>(body, "build", next.build) && take<std::string>(body, "url", next.url) &&
      take<std::string>(body, "notes", next.notes) && take<Int>(body, "min_build", next.min_build);
  if (!right) return "An object of texts was expected, with build and min_build whole numbers.";
  newest_ = std::move(next);
  return std::nullopt;
}

std::string Feed::page() const {
  QString notes;
  if (newest_.notes) notes = QStringLiteral("<p>%1</p>").arg(escaped(*newest_.notes));
  return QStringLiteral(
             "<!doctype html><html lang=\"en\"><meta charset=\"utf-8\">"
             "<meta name=\"viewport\" content=\"width=device-width\"><title>Download Vellix</title>"
             "<style>%1</style><main><h1>Vellix %2 (%3)</h1>%4"
             "<p>The disk image of this build would be downloaded here. This is a demo: there is "
             "none, and nothing is downloaded.</p></main></html>")
      .arg(QLatin1String(kStyle), escaped(newest_.version), QString::number(newest_.build), notes)
      .toStdString();
}

}  // namespace vellix::demo
