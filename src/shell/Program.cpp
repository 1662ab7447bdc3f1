#include "shell/Program.hpp"

namespace vellix {

Program::Program(QtMainLoop& loop, QtDefaults& defaults, TokenStore& tokens)
    : loop_(loop),
      api_(http_, tokens, defaults),
      signIn_(api_, defaults, machine_),
      images_(api_, loop_, decoder_, files_),
      prefs_(loop_, defaults),
      store_(api_, signIn_, prefs_, {loop_, defaults, windows_, images_}),
      board_(store_, defaults, loop_, calendar_),
      compare_(store_),
      inspector_(store_, loop_, calendar_),
      root_(store_, loop_) {}

bool Program::show() {
  engine_.addImportPath(QStringLiteral("qrc:/qt/qml"));
  engine_.setInitialProperties({
      {"root", QVariant::fromValue(&root_)},
      {"board", QVariant::fromValue(&board_)},
      {"compare", QVariant::fromValue(&compare_)},
      {"inspector", QVariant::fromValue(&inspector_)},
      {"pictures", QVariant::fromValue<PictureSource*>(&pictures_)},
  });
  engine_.load(QUrl{QStringLiteral("qrc:/qt/qml/Vellix/Shell/Main.qml")});
  return !engine_.rootObjects().isEmpty();
}

}  // namespace vellix
