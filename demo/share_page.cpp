// The page that a share link opens, and what it shows: pages to compare, what was found, how far
// the round has come, and where an approver answers.
#include <QString>
#include <QUrl>
#include <QUrlQuery>

#include "clock.hpp"
#include "service.hpp"

namespace vellix::demo {
namespace {

const char* const kStyle = R"(
  * { box-sizing: border-box; margin: 0 }
  body { color: #23201c; background: #f3efe6; font: 15px/1.45 Inter, system-ui, sans-serif }
  main { max-width: 1000px; margin: 0 auto; padding: 32px 24px 64px }
  h1 { font: 500 34px/1.1 "EB Garamond", Georgia, serif } h2 { font-size: 15px; margin: 28px 0 8px }
  p, li { margin: 4px 0 } ul { padding-left: 20px } small { color: #857d71 } a { color: #a8401f }
  b.state { display: inline-block; padding: 2px 10px; border-radius: 12px; background: #fdf1ea }
  section.pages { display: grid; grid-template-columns: repeat(auto-fill, 190px); gap: 16px }
  section.pages a { display: block; text-decoration: none; color: inherit }
  img { max-width: 180px; background: #fffdf8; box-shadow: 0 2px 10px rgba(60, 40, 10, .18) }
  form { margin: 8px 0; padding: 12px; background: #fffdf8; border-radius: 10px }
  input, button { font: inherit; padding: 4px 10px })";

QString escaped(const std::string& text) { return QString::fromStdString(text).toHtmlEscaped(); }
QString escaped(const std::optional<std::string>& text) { return escaped(text.value_or("")); }

Reply pageOf(int status, const QString& title, const QString& content) {
  const QString page =
      QStringLiteral(
          "<!doctype html><html lang=\"en\"><meta charset=\"utf-8\">"
          "<meta name=\"viewport\" content=\"width=device-width\"><title>%1</title><style>%2"
          "</style><main>%3</main></html>")
          .arg(title, QLatin1String(kStyle), content);
  Reply reply{status, page.toStdString(), "text/html; charset=utf-8"};
  return reply;
}

Reply sorry(int status, const QString& title, const QString& text) {
  return pageOf(status, title, QStringLiteral("<h1>%1</h1><p>%2</p>").arg(title, text));
}

// What a link that leads nowhere says; none for one that works.
std::optional<Reply> closed(const std::optional<State::Linked>& linked) {
  if (!linked) {
    return sorry(404, QStringLiteral("There is no such link"),
                 QStringLiteral("Look whether all of it was copied."));
  }
  if (linked->renewed) {
    return sorry(410, QStringLiteral("This link was replaced"),
                 QStringLiteral("A new one was made, and this one stopped working. Ask the "
                                "reviewer who sent it for the new one."));
  }
  if (!linked->enabled) {
    return sorry(403, QStringLiteral("This link is off"),
                 QStringLiteral("The reviewers have switched it off. Ask one of them to switch it "
                                "on again."));
  }
  return std::nullopt;
}

QString stateWords(const FileDetail& detail) {
  const std::string state = detail.file.approval.value_or("");
  const QString version = QString::number(detail.file.version.value_or(1));
  if (state == "pending") return QStringLiteral("Out for approval");
  if (state == "changes") return QStringLiteral("Changes asked");
  if (state == "revised") return QStringLiteral("v%1 is up and not sent out yet").arg(version);
  if (state == "approved") return QStringLiteral("Approved");
  if (state == "sent") return QStringLiteral("Approved and sent to the supplier");
  return QStringLiteral("In review");
}

QString roundOf(const FileDetail& detail, const std::string& key, bool embedded) {
  if (!detail.approval) return {};
  const Approval& round = *detail.approval;
  QString list;
  for (const std::string& email : round.asked) {
    const auto answer = round.answers.find(email);
    if (answer != round.answers.end()) {
      const Answer& said = answer->second;
      list += QStringLiteral("<li>%1 %2%3</li>")
                  .arg(escaped(email),
                       said.kind == "approved" ? QStringLiteral("approved it")
                                               : QStringLiteral("asked for changes"),
                       said.note ? QStringLiteral(": “%1”").arg(escaped(said.note)) : QString());
    } else if (round.state != "pending" || embedded) {
      list += QStringLiteral("<li>%1 has not answered</li>").arg(escaped(email));
    } else {
      list += QStringLiteral(
                  "<li>%1<form method=\"post\" action=\"/s/%2/answer\">"
                  "<input type=\"hidden\" name=\"by\" value=\"%1\">"
                  "<input name=\"note\" aria-label=\"Note\" placeholder=\"A word about it\"> "
                  "<button name=\"kind\" value=\"approved\">Approve</button> "
                  "<button name=\"kind\" value=\"changes\">Ask for changes</button></form></li>")
                  .arg(escaped(email), escaped(key));
    }
  }
  QString note;
  if (round.note) note = QStringLiteral("<p>“%1”</p>").arg(escaped(round.note));
  return QStringLiteral("<h2>Approval</h2>%1<ul>%2</ul>").arg(note, list);
}

QString findingsOf(const FileDetail& detail) {
  QString list;
  for (const Finding& finding : detail.findings) {
    const auto page = static_cast<std::size_t>(finding.page);
    const auto& pages = detail.file.pages;
    const std::string name =
        pages && page < pages->size() ? (*pages)[page].name() : std::to_string(page + 1);
    list += QStringLiteral("<li>p%1: %2 <small>%3</small></li>")
                .arg(escaped(name), escaped(finding.title), escaped(finding.detail));
  }
  if (list.isEmpty()) return QStringLiteral("<h2>Found</h2><p>Nothing.</p>");
  return QStringLiteral("<h2>Found</h2><ul>%1</ul>").arg(list);
}

QString pagesOf(const FileDetail& detail, const std::string& key) {
  QString list;
  for (const Page& page : detail.file.pages.value_or(std::vector<Page>{})) {
    const QString pictures = QStringLiteral("/s/%1/pictures/").arg(escaped(key));
    list += QStringLiteral(
                "<a href=\"%1\"><img loading=\"lazy\" alt=\"Page %3\" src=\"%2\"><br>p%3</a>")
                .arg(pictures + escaped(page.img), pictures + escaped(page.thumb),
                     escaped(page.name()));
  }
  if (list.isEmpty()) return QStringLiteral("<h2>Pages</h2><p>There are none to show.</p>");
  return QStringLiteral("<h2>Pages</h2><section class=\"pages\">%1</section>").arg(list);
}

// "KEY/what" behind "/s/", taken apart.
std::pair<std::string, std::string> apart(const std::string& rest) {
  const auto slash = rest.find('/');
  if (slash == std::string::npos) return {rest, {}};
  return {rest.substr(0, slash), rest.substr(slash + 1)};
}

}  // namespace

Reply Service::sharePage(const std::string& key, bool embedded) {
  const auto linked = state_.linkedBy(key);
  if (auto reply = closed(linked)) return *std::move(reply);
  const auto detail = state_.detailOf(linked->ticket, std::nullopt);
  if (!detail) return errorReply(detail.error().status, detail.error().text);
  const QString heading = escaped(detail->file.heading());
  QString content =
      QStringLiteral("<h1>%1</h1><p>v%2 · <b class=\"state\">%3</b></p><p>%4</p>")
          .arg(heading, QString::number(detail->version.value_or(1)), stateWords(*detail),
               detail->versions->back().status == "checking"
                   ? QStringLiteral("It is being checked.")
                   : escaped(detail->versions->back().summary));
  content += QStringLiteral("<p><small>The link is on: anyone with it can %1.</small></p>")
                 .arg(escaped(detail->file.share->access.value_or("view")));
  content += roundOf(*detail, key, embedded) + pagesOf(*detail, key) + findingsOf(*detail);
  if (!embedded) {
    content += QStringLiteral(
                   "<h2>As PDF</h2><p><a href=\"/s/%1/proof.pdf\">This version</a>, or "
                   "<a href=\"/s/%1/repaired.pdf\">as it was sent to be printed</a>, to try a "
                   "revision with.</p>")
                   .arg(escaped(key));
  }
  return pageOf(200, heading, content);
}

Reply Service::shareAnswer(const Request& request, const std::string& rest) {
  const auto [key, what] = apart(rest);
  const auto linked = state_.linkedBy(key);
  if (auto reply = closed(linked)) return *std::move(reply);
  if (what != "answer") return errorReply(404, "There is nothing here.");
  QByteArray form = QByteArray::fromStdString(request.body);
  const QUrlQuery query(QString::fromUtf8(form.replace('+', ' ')));
  const auto item = [&](const char* name) {
    return query.queryItemValue(QLatin1String(name), QUrl::FullyDecoded).toStdString();
  };
  const auto done = state_.answerNow(linked->ticket, item("by"), item("kind"), item("note"));
  if (done) return sharePage(key, false);
  return sorry(done.error().status, QStringLiteral("That did not go through"),
               escaped(done.error().text));
}

std::optional<Reply> Service::shareFile(const Request& request) {
  const auto rest = behind(request.path, "/s/");
  if (!rest || (request.method != "GET" && request.method != "HEAD")) return std::nullopt;
  const auto [key, what] = apart(*rest);
  const auto picture = behind(what, "pictures/");
  const bool repaired = what == "repaired.pdf";
  if (!picture && !repaired && what != "proof.pdf") return std::nullopt;
  std::string ticket;
  {
    const std::lock_guard lock(mutex_);
    const auto linked = state_.linkedBy(key);
    if (auto reply = closed(linked)) return reply;
    ticket = linked->ticket;
  }
  if (!picture) return proof(ticket, std::nullopt, repaired);
  // A link opens its own ticket and no other.
  const bool own = behind(*picture, "files/" + ticket + "/") ||
                   behind(*picture, "thumbs/" + ticket + "/") ||
                   behind(*picture, "refs/" + ticket + "/");
  return pictureReply(own ? pictures_.find(*picture) : std::nullopt);
}

// Made outside the lock: a long proof takes a while.
Reply Service::proof(const std::string& ticket, std::optional<Int> version, bool repaired) {
  std::unique_lock lock(mutex_);
  state_.advance(nowMs());
  const auto found = state_.proofOf(ticket, version, repaired);
  lock.unlock();
  if (!found) return errorReply(found.error().status, found.error().text);
  Reply reply{200, {}, "application/pdf"};
  if (found->file) {
    reply.file = found->file;
  } else {
    reply.body = found->print();
  }
  return reply;
}

}  // namespace vellix::demo
