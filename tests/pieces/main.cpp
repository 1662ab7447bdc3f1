#include <QtQml/qqmlextensionplugin.h>
#include <QtQuickTest/quicktest.h>
#include <QQmlContext>
#include <QQmlEngine>

#include "Probe.hpp"

Q_IMPORT_QML_PLUGIN(Vellix_PiecesPlugin)

class Setup : public QObject {
  Q_OBJECT

 public slots:
  void qmlEngineAvailable(QQmlEngine* engine) {
    probe_.watchWarnings();
    engine->addImportPath(QStringLiteral("qrc:/qt/qml"));
    engine->rootContext()->setContextProperty(QStringLiteral("probe"), &probe_);
  }

 private:
  Probe probe_;
};

QUICK_TEST_MAIN_WITH_SETUP(pieces, Setup)

#include "main.moc"
