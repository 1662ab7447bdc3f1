// Runs without a display of its own.
#include <QtQml/qqmlextensionplugin.h>
#include <gtest/gtest.h>

#include <QGuiApplication>

Q_IMPORT_QML_PLUGIN(Vellix_ApprovalPlugin)
Q_IMPORT_QML_PLUGIN(Vellix_BoardPlugin)
Q_IMPORT_QML_PLUGIN(Vellix_ComparePlugin)
Q_IMPORT_QML_PLUGIN(Vellix_InspectorPlugin)
Q_IMPORT_QML_PLUGIN(Vellix_PiecesPlugin)
Q_IMPORT_QML_PLUGIN(Vellix_ShellPlugin)

int main(int argc, char* argv[]) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qputenv("QT_QUICK_BACKEND", "software");
  QGuiApplication application{argc, argv};
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
