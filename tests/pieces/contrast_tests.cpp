// Everything that is written or drawn can be told from its ground, in both looks.
#include <gtest/gtest.h>

#include <QColor>
#include <QFile>
#include <QMetaProperty>
#include <QRegularExpression>
#include <QStringList>
#include <cmath>
#include <map>
#include <set>

#include "pieces/Theme.hpp"

namespace vellix {
namespace {

const QRegularExpression kBlanks("\\s+");

double light(const QColor& colour) {
  const auto part = [](double channel) {
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * part(colour.redF()) + 0.7152 * part(colour.greenF()) +
         0.0722 * part(colour.blueF());
}

QColor over(const QColor& above, const QColor& below) {
  const double part = above.alphaF();
  const auto mixed = [&](double a, double b) { return a * part + b * (1 - part); };
  return QColor::fromRgbF(mixed(above.redF(), below.redF()), mixed(above.greenF(), below.greenF()),
                          mixed(above.blueF(), below.blueF()));
}

double contrast(const QColor& above, const QColor& ground) {
  const double a = light(over(above, ground)) + 0.05;
  const double b = light(ground) + 0.05;
  return std::max(a, b) / std::min(a, b);
}

struct Row {
  QString kind;
  QStringList colours;
  QStringList grounds;
};

class Contrast : public testing::Test {
 protected:
  Contrast() {
    QFile file(CONTRAST_TABLE);
    if (!file.open(QIODevice::ReadOnly)) return;
    const QString text = QString::fromUtf8(file.readAll());
    for (const QString& line : text.split('\n', Qt::SkipEmptyParts)) {
      if (!line.startsWith('#')) take(line);
    }
  }

  void take(const QString& line) {
    const QStringList parts = line.split(" : ");
    const QStringList head = parts[0].split(kBlanks);
    if (head[0] == "given") {
      given_.insert(line.mid(QString("given ").size()).toStdString());
    } else if (head[0] != "hover") {
      rows_.push_back({.kind = head[0],
                       .colours = head.value(1).split(','),
                       .grounds = head[0] == "under" ? QStringList{"underWhite"}
                                                     : parts.value(1).split(kBlanks)});
    }
  }

  // "accent", "fore.red", "fore.red*0.14".
  QColor colour(const QString& name) {
    const QStringList thinned = name.split('*');
    const QStringList path = thinned[0].split('.');
    QVariant value = theme_.property(path[0].toUtf8());
    if (path.size() > 1) {
      const auto* tones = value.value<QObject*>();
      value = tones ? tones->property(path[1].toUtf8()) : QVariant();
    }
    auto found = value.value<QColor>();
    if (!found.isValid()) ADD_FAILURE() << "no colour is called " << name.toStdString();
    if (thinned.size() > 1) found.setAlphaF(thinned[1].toFloat());
    return found;
  }

  QColor ground(const QString& name, const QString& own) {
    if (name == "underWhite") return Theme::underWhite(colour(own));
    QColor made;
    for (QString part : name.split('+')) {
      part.replace("tint.own", "tint." + own.section('.', 1)).replace("own*", own + "*");
      made = made.isValid() ? over(colour(part), made) : colour(part);
    }
    return made;
  }

  static QStringList anywhere() {
    QStringList all;
    for (const char* base : {"window", "column", "canvas", "card", "well", "raised", "thumb"}) {
      all << base;
      for (const char* fill :
           {"hoverFill", "quietFill", "trackFill", "selectedFill", "selectedLine", "tint.purple",
            "tint.amber", "tint.green", "tint.red", "tint.orange", "tint.blue", "tint.gray"}) {
        all << QString("%1+%2").arg(base, fill);
      }
    }
    return all;
  }

  // What is below its measure, as the table writes it.
  void measure(const Row& row, const char* look, std::set<std::string>& below) {
    for (const QString& name : row.colours) {
      for (const QString& place : row.grounds[0] == "anywhere" ? anywhere() : row.grounds) {
        const QColor written = row.kind == "under" ? theme_.onAccent() : colour(name);
        const double measured = contrast(written, ground(place, name));
        if (measured >= (row.kind == "mark" ? 3.0 : 4.5)) continue;
        below.insert(QString("%1 %2 %3 : %4 : %5")
                         .arg(look, row.kind, name, place)
                         .arg(measured, 0, 'f', 2)
                         .toStdString());
      }
    }
  }

  Theme theme_;
  std::vector<Row> rows_;
  std::set<std::string> given_;
};

TEST_F(Contrast, IsEnoughWhereverItWasNotGiven) {
  ASSERT_GT(rows_.size(), 40);
  std::set<std::string> below;
  for (const char* look : {"light", "dark"}) {
    theme_.setAppearance(look);
    for (const Row& row : rows_) measure(row, look, below);
  }
  for (const std::string& line : below) {
    EXPECT_TRUE(given_.contains(line)) << "cannot be read: " << line;
  }
  for (const std::string& line : given_) {
    EXPECT_TRUE(below.contains(line)) << "is no longer so: " << line;
  }
}

TEST_F(Contrast, IsMeasuredOfEveryColour) {
  // Edges, shadows and what lies under a sheet carry nothing.
  const QStringList carries_nothing{"line", "bevelLine", "focusLine", "shadow", "scrim"};
  QSet<QString> measured{"hoverShade"};
  for (const Row& row : rows_) {
    for (const QString& name : row.colours) measured << name;
    for (const QString& place : row.grounds[0] == "anywhere" ? anywhere() : row.grounds) {
      for (const QString& part : place.split('+')) measured << part;
    }
  }
  const QMetaObject* type = theme_.metaObject();
  for (int i = type->propertyOffset(); i < type->propertyCount(); ++i) {
    if (type->property(i).typeId() != QMetaType::QColor) continue;
    const QString name = type->property(i).name();
    EXPECT_NE(measured.contains(name), carries_nothing.contains(name)) << name.toStdString();
  }
}

TEST_F(Contrast, TellsWhatIsFaintFromWhatIsMuted) {
  for (const char* look : {"light", "dark"}) {
    theme_.setAppearance(look);
    for (const char* place : {"window", "column", "raised"}) {
      const QColor below = colour(place);
      EXPECT_GT(contrast(theme_.muted(), below), 1.4 * contrast(theme_.faint(), below)) << look;
    }
  }
}

TEST_F(Contrast, IsEnoughUnderWhiteWhateverTheColour) {
  for (int hue = 0; hue < 360; hue += 15) {
    for (const int lightness : {20, 60, 120, 180, 240, 255}) {
      const QColor asked = QColor::fromHsl(hue, 220, lightness);
      const QColor shade = Theme::underWhite(asked);
      EXPECT_GE(contrast(Qt::white, shade), 4.5);
      EXPECT_GE(contrast(Qt::white, over(theme_.hoverShade(), shade)), 4.5);
      if (contrast(Qt::white, asked) >= 4.5) {
        EXPECT_EQ(shade, asked);
      } else {
        EXPECT_LE(contrast(Qt::white, shade), 4.8) << "no darker than it has to be";
      }
    }
  }
}

}  // namespace
}  // namespace vellix
