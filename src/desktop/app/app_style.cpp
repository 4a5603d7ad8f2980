#include "app/app_style.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <algorithm>

namespace pelkor::desktop {
namespace {

constexpr int kChevronArm = 3;

// An icon painted when shown, at the size and pixel density asked for.
class DrawnIconEngine : public QIconEngine {
 public:
  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    return scaledPixmap(size, mode, state, 1);
  }
  QPixmap scaledPixmap(const QSize& size, QIcon::Mode mode, QIcon::State state,
                       qreal scale) override {
    QPixmap pixmap(size * scale);
    pixmap.setDevicePixelRatio(scale);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    paint(&painter, QRect(QPoint(0, 0), size), mode, state);
    return pixmap;
  }
};

// "»" pointing right (or down): the menu bar's sign that more entries are hidden. Drawn when
// first shown, which is seldom: the menu bar of this window has room for all its menus.
class ChevronEngine : public DrawnIconEngine {
 public:
  explicit ChevronEngine(bool down) : down_(down) {}
  QIconEngine* clone() const override { return new ChevronEngine(down_); }
  void paint(QPainter* painter, const QRect& rect, QIcon::Mode /*mode*/,
             QIcon::State /*state*/) override {
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QPen(painter->pen().color(), kPenWidth));
    const QPoint centre = rect.center();
    for (const int offset : {-kChevronArm, kChevronArm}) {
      if (down_) {
        const int y = centre.y() + offset / 2;
        painter->drawPolyline(QPolygon({QPoint(centre.x() - kChevronArm, y - kChevronArm / 2),
                                        QPoint(centre.x(), y + kChevronArm / 2),
                                        QPoint(centre.x() + kChevronArm, y - kChevronArm / 2)}));
      } else {
        const int x = centre.x() + offset / 2;
        painter->drawPolyline(QPolygon({QPoint(x - kChevronArm / 2, centre.y() - kChevronArm),
                                        QPoint(x + kChevronArm / 2, centre.y()),
                                        QPoint(x - kChevronArm / 2, centre.y() + kChevronArm)}));
      }
    }
    painter->restore();
  }

 private:
  static constexpr double kPenWidth = 1.5;
  bool down_;
};

// The clear button of a search box: a cross in a disc of the text's colour. Drawn, because the
// style's own is a picture file whose reading loads every image plugin at start-up.
class ClearEngine : public DrawnIconEngine {
 public:
  QIconEngine* clone() const override { return new ClearEngine; }
  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode,
             QIcon::State /*state*/) override {
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    const QPalette palette = QGuiApplication::palette();
    QColor disc = palette.color(mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active,
                                QPalette::Text);
    disc.setAlphaF(kDiscOpacity);
    const qreal side = std::min(rect.width(), rect.height()) * kDiscShare;
    const QRectF circle(rect.center().x() - side / 2 + 1, rect.center().y() - side / 2 + 1, side,
                        side);
    painter->setPen(Qt::NoPen);
    painter->setBrush(disc);
    painter->drawEllipse(circle);
    painter->setPen(
        QPen(palette.color(QPalette::Base), side / kCrossPenDivisor, Qt::SolidLine, Qt::RoundCap));
    const qreal arm = side * kCrossShare / 2;
    const QPointF centre = circle.center();
    painter->drawLine(centre + QPointF(-arm, -arm), centre + QPointF(arm, arm));
    painter->drawLine(centre + QPointF(-arm, arm), centre + QPointF(arm, -arm));
    painter->restore();
  }

 private:
  static constexpr double kDiscOpacity = 0.45;
  static constexpr double kDiscShare = 0.75;
  static constexpr double kCrossShare = 0.45;
  static constexpr double kCrossPenDivisor = 8;
};

}  // namespace

QIcon AppStyle::standardIcon(StandardPixmap icon, const QStyleOption* option,
                             const QWidget* widget) const {
  if (icon == SP_ToolBarHorizontalExtensionButton) return QIcon(new ChevronEngine(false));
  if (icon == SP_ToolBarVerticalExtensionButton) return QIcon(new ChevronEngine(true));
  if (icon == SP_LineEditClearButton) return QIcon(new ClearEngine);
  return QProxyStyle::standardIcon(icon, option, widget);
}

}  // namespace pelkor::desktop
