#pragma once

#include <QColor>
#include <QPainter>
#include <QPixmap>
#include <QRectF>
#include <QSizeF>
#include <QString>
#include <vector>

// Shared by the picture painters: their colours and their writing.
namespace pelkor::desktop::drawing {

// The pictures' colours: the designed light ones on a light desktop; on a dark one, the same
// roles taken from the palette, so that a dark theme stays legible.
namespace colors {
bool DarkDesktop();
QColor Panel();
QColor PanelBorder();
QColor Ink();
QColor MutedInk();
QColor TabIdleTop();
QColor TabIdleBottom();
QColor TabSelected();
QColor TabBorder();
QColor Accent();
QColor DarkPanel();
QColor DarkPanelBorder();
QColor LightInk();
// The plots' own: their background, grid lines, and the matrix cells from weak to strong.
QColor PlotBackground();
QColor GridLine();
QColor CellLow();
QColor CellHigh();
// `a` moved towards `b` by `t` (0 to 1).
QColor Mix(const QColor& a, const QColor& b, qreal t);
}  // namespace colors

// A pixmap of the given size in logical pixels, filled with `fill`, ready for painting: drawn at
// the screen's pixel density, so that it stays sharp on a scaled screen.
QPixmap Blank(int width, int height, const QColor& fill);

// How a picture writes a text: its size in pixels, bold or not, and its width (1 is the
// font's own; below 1 condensed).
struct TextLook {
  qreal pixelSize;
  bool bold = false;
  qreal width = 1.0;
};

// Writes `text` into `box` (Qt alignment `flags`) in the look asked for. Every picture writes
// with the same two fonts (regular and bold), which the painter scales to the size and width
// asked for: each further font would cost a font match of its own, about as much time as
// drawing a picture.
void DrawText(QPainter& p, const QRectF& box, int flags, const QString& text, const TextLook& look);

// The size `text` takes in a look; with a width, wrapped at word boundaries to fit it.
QSizeF TextSize(const QString& text, const TextLook& look, qreal wrapWidth = 0);

// The largest look not above `pixelSize` (condensed if need be, never below `minPixelSize`)
// in which `text` fits into `width` pixels.
TextLook FitLook(const QString& text, qreal width, qreal pixelSize, qreal minPixelSize, bool bold);

// One tab of a strip: caption and inclusive horizontal extent in pixels.
struct TabBand {
  QString caption;
  int first;
  int last;
};

QPixmap DrawTabStrip(const std::vector<TabBand>& tabs, int width, int height, int selected);
QPixmap DrawPriority(int priority, bool advisor);
// What the priority picture says of a priority: "1" to "3", or its phrase.
QString PriorityText(int priority);
QPixmap DrawMatrix();
QPixmap DrawMarkerSquare(int resourceId);
QPixmap DrawSalesCycle();
QPixmap DrawCycleMarker();
QPixmap DrawLookupButton();

}  // namespace pelkor::desktop::drawing
