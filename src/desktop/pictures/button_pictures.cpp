#include <QPainter>

#include "pictures/drawing.h"

namespace pelkor::desktop::drawing {
namespace {
constexpr int kLookupSize = 22;
constexpr int kDotCount = 3;
constexpr double kDotRadius = 1.6;
constexpr double kDotSpacing = 5;
}  // namespace

// A small raised button with three dots: "pick from the contact book".
QPixmap DrawLookupButton() {
  QPixmap pixmap = Blank(kLookupSize, kLookupSize, colors::TabIdleTop());
  QPainter p(&pixmap);
  p.setRenderHint(QPainter::Antialiasing);
  p.setPen(QPen(colors::TabBorder(), 1));
  p.setBrush(colors::Panel());
  p.drawRoundedRect(QRectF(0.5, 0.5, kLookupSize - 1, kLookupSize - 1), 3, 3);
  p.setPen(Qt::NoPen);
  p.setBrush(colors::Ink());
  const double centre = kLookupSize / 2.0;
  for (int i = 0; i < kDotCount; ++i) {
    p.drawEllipse(QPointF(centre + (i - 1) * kDotSpacing, centre + 2), kDotRadius, kDotRadius);
  }
  return pixmap;
}

}  // namespace pelkor::desktop::drawing
