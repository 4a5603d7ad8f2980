#pragma once

#include <QColor>
#include <QFont>
#include <QPixmap>
#include <QString>
#include <vector>

// Shared by the picture painters: one light palette and font fitting.
namespace pelkor::desktop::drawing {

namespace colors {
inline const QColor kPanel{243, 244, 246};
inline const QColor kPanelBorder{176, 184, 194};
inline const QColor kInk{31, 41, 55};
inline const QColor kMutedInk{84, 96, 112};
inline const QColor kTabIdleTop{228, 232, 237};
inline const QColor kTabIdleBottom{214, 219, 226};
inline const QColor kTabSelected{255, 255, 255};
inline const QColor kTabBorder{150, 160, 173};
inline const QColor kAccent{100, 135, 220};
inline const QColor kDarkPanel{74, 79, 87};
inline const QColor kDarkPanelBorder{46, 50, 56};
inline const QColor kLightInk{246, 247, 249};
}  // namespace colors

// A pixmap of the given size, filled with `fill`, ready for painting.
QPixmap Blank(int width, int height, const QColor& fill);

// The application's UI font at a pixel size.
QFont UiFont(int pixelSize, bool bold = false);

// The largest font not above `pixelSize` (condensed if need be, never below `minPixelSize`)
// in which `text` fits into `width` pixels.
QFont FitFont(const QString& text, int width, int pixelSize, int minPixelSize, bool bold);

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
