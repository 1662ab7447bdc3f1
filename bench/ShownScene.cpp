#include "ShownScene.hpp"

#include <QFont>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QQuickItem>
#include <algorithm>

#include "Desk.hpp"
#include "Scene.hpp"
#include "pieces/Symbol.hpp"

namespace vellix::bench {
namespace {

class Walk {
 public:
  void visit(QQuickItem* item, QRectF within, double opacity) {
    opacity *= item->opacity();
    if (!item->isVisible() || opacity == 0) return;
    const QRectF place = item->mapRectToScene(item->boundingRect());
    if (item->clip()) within &= place;
    QList<QQuickItem*> children = item->childItems();
    std::ranges::stable_sort(children, {}, &QQuickItem::z);
    const auto above = std::ranges::find_if(children, [](auto* child) { return child->z() >= 0; });
    for (auto at = children.begin(); at != above; ++at) visit(*at, within, opacity);
    if (item->flags() & QQuickItem::ItemHasContents && place.intersects(within)) {
      note(*item, place, opacity);
    }
    for (auto at = above; at != children.end(); ++at) visit(*at, within, opacity);
  }

  QByteArray told() const {
    return QJsonDocument(QJsonObject{{"boxes", boxes_},
                                     {"pictures", pictures_},
                                     {"drawings", drawings_},
                                     {"words", words_}})
        .toJson(QJsonDocument::Compact);
  }

 private:
  void note(const QQuickItem& item, const QRectF& place, double opacity) {
    QJsonObject one{{"z", turn_++},
                    {"x", place.x()},
                    {"y", place.y()},
                    {"w", place.width()},
                    {"h", place.height()},
                    {"opacity", opacity},
                    {"color", colour(item.property("color"))}};
    if (const auto* picture = qobject_cast<const RemoteImage*>(&item)) {
      if (picture->key().isEmpty()) return;
      one["key"] = picture->key();
      one["fill"] = picture->fill();
      one["page"] = isPage(*picture);
      pictures_.append(one);
    } else if (qobject_cast<const Symbol*>(&item)) {
      const QRectF at(item.mapRectToScene(item.boundingRect()));
      const double size = item.property("size").toDouble();
      one["name"] = (size < 14 ? "small/" : "") + item.property("name").toString();
      one["w"] = one["h"] = size * 256 / 208;
      one["x"] = at.center().x() - size * 128 / 208;
      one["y"] = at.center().y() - size * 128 / 208;
      drawings_.append(one);
    } else if (item.inherits("QQuickText")) {
      if (noteWords(item, one)) words_.append(one);
    } else {
      one["radius"] = item.property("radius").toDouble();
      noteLine(item, one);
      if (isSeen(one)) boxes_.append(one);
    }
  }

  static void noteLine(const QQuickItem& item, QJsonObject& one) {
    if (item.property("line").isValid()) {  // the frame of a mark is nothing else
      one["line"] = item.property("line").toDouble();
      one["lineColor"] = one["color"];
      one["color"] = "transparent";
    } else if (const QObject* line = item.property("border").value<QObject*>()) {
      // Nobody has set the one that is black: it is not painted.
      const auto color = line->property("color").value<QColor>();
      one["line"] = color == QColor(Qt::black) ? 0 : line->property("width").toDouble();
      one["lineColor"] = colour(color);
    }
  }

  static bool noteWords(const QQuickItem& item, QJsonObject& one) {
    const auto font = item.property("font").value<QFont>();
    for (const char* name :
         {"text", "wrapMode", "elide", "lineHeight", "horizontalAlignment", "verticalAlignment"}) {
      one[QLatin1String(name)] = QJsonValue::fromVariant(item.property(name));
    }
    one["family"] = font.family();
    one["points"] = font.pointSizeF();
    one["capitalization"] = static_cast<int>(font.capitalization());
    one["weight"] = static_cast<int>(font.weight());
    return !item.property("text").toString().isEmpty();
  }

  static bool isSeen(const QJsonObject& box) {
    const auto isColour = [](const QJsonValue& name) {
      return QColor(name.toString()).alpha() > 0;
    };
    return isColour(box["color"]) || (box["line"].toDouble() > 0 && isColour(box["lineColor"]));
  }

  static QString colour(const QVariant& of) {
    const auto colour = of.value<QColor>();
    return colour.isValid() ? colour.name(QColor::HexArgb) : "#00000000";
  }

  int turn_ = 0;
  QJsonArray boxes_;
  QJsonArray pictures_;
  QJsonArray drawings_;
  QJsonArray words_;
};

}  // namespace

QByteArray shownScene(QQuickWindow& window) {
  Walk walk;
  walk.visit(window.contentItem(), QRectF(QPointF(), window.size()), 1);
  return walk.told();
}

}  // namespace vellix::bench
