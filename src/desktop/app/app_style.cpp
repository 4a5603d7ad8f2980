#include "app/app_style.h"

#include <QIconEngine>
#include <QPainter>
#include <QPixmap>

namespace pelkor::desktop {
namespace {

constexpr int kChevronArm = 3;

// "»" pointing right (or down): the menu bar's sign that more entries are hidden. Drawn when
// first shown, which is seldom: the menu bar of this window has room for all its menus.
class ChevronEngine : public QIconEngine {
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
  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap pixmap(size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    paint(&painter, QRect(QPoint(0, 0), size), mode, state);
    return pixmap;
  }

 private:
  static constexpr double kPenWidth = 1.5;
  bool down_;
};

}  // namespace

QIcon AppStyle::standardIcon(StandardPixmap icon, const QStyleOption* option,
                             const QWidget* widget) const {
  if (icon == SP_ToolBarHorizontalExtensionButton) return QIcon(new ChevronEngine(false));
  if (icon == SP_ToolBarVerticalExtensionButton) return QIcon(new ChevronEngine(true));
  return QProxyStyle::standardIcon(icon, option, widget);
}

}  // namespace pelkor::desktop
