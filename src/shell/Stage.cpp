#include "shell/Stage.hpp"

#include <QCursor>
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <cstdio>

#include "records/json.hpp"
#include "shell/Capture.hpp"
#include "shell/staged_store.hpp"

namespace vellix {
namespace {

// Pictures are decoded and what glides has come to rest by then.
constexpr Milliseconds kSettling{3'000};
constexpr QPoint kNowhere{-100, -100};

}  // namespace

QString Stage::appearance() const {
  return QLatin1String(hasFlag(arguments_, "--dark") ? "dark" : "light");
}

void Stage::setUp() {
  store_.pollNothing();
  if (hasFlag(arguments_, "--signin")) {
    store_.stage({});
  } else if (const auto folder = argument(arguments_, "--sample")) {
    loadSample(QString::fromStdString(*folder));
  }
}

void Stage::loadSample(const QString& folder) {
  QFile file(QDir(folder).filePath(QStringLiteral("sample.json")));
  if (!file.open(QIODevice::ReadOnly)) return;
  const QByteArray json = file.readAll();
  auto sample =
      decode<Sample>(std::string_view(json.constData(), static_cast<std::size_t>(json.size())));
  if (!sample) {
    std::puts("sample.json did not decode");
    std::fflush(stdout);
    return;
  }
  loadPictures(folder);
  stageSample(store_, *std::move(sample), arguments_, loop_.now());
}

void Stage::loadPictures(const QString& folder) {
  const QDir dir(folder);
  for (const QString& name : dir.entryList(QDir::Files)) {
    auto key = sampleKey(name.toStdString());
    if (!key) continue;
    auto picture = decoder_.inspect({.key = *key, .file = dir.filePath(name).toStdString()});
    if (!picture) continue;
    images_.samples[*std::move(key)] = std::make_shared<const Picture>(*std::move(picture));
  }
}

void Stage::present() {
  if (const auto text = argument(arguments_, "--size")) {
    if (const auto size = contentSize(*text)) resizeFirstWindow({size->width, size->height});
  }
  // In memory the pointer would rest in the window's corner, on a menu.
  if (QGuiApplication::platformName() == QLatin1String("offscreen")) QCursor::setPos(kNowhere);
  tasks_.start(capture());
}

Task<> Stage::capture() {
  const auto settled = loop_.sleep(kSettling, {});
  co_await settled;
  const QString path = QString::fromStdString(*shotPath(arguments_));
  QCoreApplication::exit(captureWindow(path, hasFlag(arguments_, "--grab")));
}

}  // namespace vellix
