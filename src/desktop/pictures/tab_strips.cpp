#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

#include "pictures/drawing.h"

namespace pelkor::desktop::drawing {

namespace {
constexpr int kIdleTop = 3;       // unselected tabs sit lower than the raised one
constexpr int kCornerRadius = 4;  // rounded top corners
constexpr int kCaptionPadding = 10;
constexpr int kCaptionPixelSize = 11;
constexpr int kCaptionMinPixelSize = 8;

// Outline of a tab with rounded top corners, open at the bottom.
QPainterPath TabOutline(const QRectF& r) {
  QPainterPath path;
  path.moveTo(r.left(), r.bottom());
  path.lineTo(r.left(), r.top() + kCornerRadius);
  path.quadTo(r.left(), r.top(), r.left() + kCornerRadius, r.top());
  path.lineTo(r.right() - kCornerRadius, r.top());
  path.quadTo(r.right(), r.top(), r.right(), r.top() + kCornerRadius);
  path.lineTo(r.right(), r.bottom());
  return path;
}

void DrawTab(QPainter& p, const TabBand& tab, int height, bool selected) {
  // Half-pixel insets keep the one-pixel outline on whole pixels.
  const qreal top = selected ? 0.5 : kIdleTop + 0.5;
  const QRectF outline(tab.first + 0.5, top, tab.last - tab.first, height - top);
  QPainterPath path = TabOutline(outline);
  QPainterPath fill = path;
  fill.closeSubpath();
  if (selected) {
    p.fillPath(fill, colors::TabSelected());
  } else {
    QLinearGradient gradient(0, top, 0, height);
    gradient.setColorAt(0, colors::TabIdleTop());
    gradient.setColorAt(1, colors::TabIdleBottom());
    p.fillPath(fill, gradient);
  }
  p.setPen(QPen(colors::TabBorder(), 1));
  p.drawPath(path);
  if (selected) {
    // An accent line along the top marks the current tab.
    p.setPen(QPen(colors::Accent(), 2, Qt::SolidLine, Qt::FlatCap));
    p.drawLine(QPointF(tab.first + kCornerRadius, 1.0), QPointF(tab.last - kCornerRadius + 1, 1.0));
  }
  const int textWidth = tab.last - tab.first + 1 - kCaptionPadding;
  p.setPen(selected ? colors::Ink() : colors::MutedInk());
  const QRect textRect(tab.first, static_cast<int>(top) + 1, tab.last - tab.first + 1,
                       height - static_cast<int>(top) - 1);
  DrawText(p, textRect, Qt::AlignCenter, tab.caption,
           FitLook(tab.caption, textWidth, kCaptionPixelSize, kCaptionMinPixelSize, selected));
}

}  // namespace

QPixmap DrawTabStrip(const std::vector<TabBand>& tabs, int width, int height, int selected) {
  QPixmap pixmap = Blank(width, height, colors::Panel());
  QPainter p(&pixmap);
  p.setRenderHint(QPainter::Antialiasing);
  p.setRenderHint(QPainter::TextAntialiasing);
  // The base line under the idle tabs; the raised tab opens it.
  p.setPen(QPen(colors::TabBorder(), 1));
  p.drawLine(QPointF(0, height - 0.5), QPointF(width, height - 0.5));
  for (std::size_t i = 0; i < tabs.size(); ++i) {
    if (static_cast<int>(i) != selected) DrawTab(p, tabs[i], height, false);
  }
  if (selected >= 0 && selected < static_cast<int>(tabs.size())) {
    DrawTab(p, tabs[static_cast<std::size_t>(selected)], height, true);
  }
  return pixmap;
}

}  // namespace pelkor::desktop::drawing
