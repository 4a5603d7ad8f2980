#include "pictures/pictures.h"

#include <QFontMetrics>
#include <QGuiApplication>
#include <QPainter>
#include <algorithm>

#include "control/tab_strips.h"
#include "pictures/drawing.h"

namespace pelkor::desktop {
namespace drawing {

namespace {
// Font stretch tried when a caption does not fit at its natural width.
constexpr int kCondensedStretch = QFont::SemiCondensed;
}  // namespace

// Painted in the design's pixels, drawn at the zoomed form's screen density.
QPixmap Blank(int width, int height, const QColor& fill) {
  const qreal density = (qGuiApp != nullptr ? qGuiApp->devicePixelRatio() : 1.0) * FormZoom();
  QPixmap pixmap(QSize(width, height) * density);
  pixmap.setDevicePixelRatio(density);
  pixmap.fill(fill);
  return pixmap;
}

QFont UiFont(int pixelSize, bool bold) {
  QFont font = QGuiApplication::font();
  font.setPixelSize(pixelSize);
  font.setBold(bold);
  font.setStyleStrategy(QFont::PreferAntialias);
  return font;
}

QFont FitFont(const QString& text, int width, int pixelSize, int minPixelSize, bool bold) {
  QFont font = UiFont(pixelSize, bold);
  if (QFontMetrics(font).horizontalAdvance(text) <= width) return font;
  font.setStretch(kCondensedStretch);
  const int condensed = QFontMetrics(font).horizontalAdvance(text);
  if (condensed <= width) return font;
  // Text widths grow with the pixel size: the size that fits follows from one measurement,
  // so no more fonts need loading than the one used.
  font.setPixelSize(std::max(minPixelSize, pixelSize * width / condensed));
  return font;
}

}  // namespace drawing

namespace {

// The line height of the font the form was designed with (9-point DejaVu Sans at 96 dpi).
constexpr qreal kDesignLineHeight = 14;

// The strip a picture number belongs to, or nullptr.
const pelkedit::TabStrip* StripOf(int id) {
  for (const pelkedit::TabStrip* strip :
       {&pelkedit::ExpertMainStrip(), &pelkedit::BasicMainStrip(), &pelkedit::PhaseStrip()}) {
    if (strip->HasPicture(id)) return strip;
  }
  return nullptr;
}

QPixmap DrawStrip(const pelkedit::TabStrip& strip, int selected, const TabCaptions& captions) {
  std::vector<drawing::TabBand> bands;
  for (const pelkedit::TabBand& band : strip.bands) {
    bands.push_back({captions ? captions(strip, band.tab) : QString(), band.first, band.last});
  }
  return drawing::DrawTabStrip(bands, strip.widthPixels, strip.heightPixels, selected);
}

bool InRange(int id, int first, int count) {
  return id >= first && id < first + count;
}

}  // namespace

qreal FormZoom() {
  return std::max<qreal>(1.0, QFontMetricsF(QGuiApplication::font()).height() / kDesignLineHeight);
}

QPixmap DrawPicture(int id, const TabCaptions& captions) {
  using namespace picture;
  using pelkedit::picture::kAdvisorPriorityFirst;
  using pelkedit::picture::kPriorityCount;
  using pelkedit::picture::kUserPriorityFirst;
  if (const pelkedit::TabStrip* strip = StripOf(id))
    return DrawStrip(*strip, id - strip->firstPicture, captions);
  if (InRange(id, kUserPriorityFirst, kPriorityCount)) {
    return drawing::DrawPriority(id - kUserPriorityFirst + 1, false);
  }
  if (InRange(id, kAdvisorPriorityFirst, kPriorityCount)) {
    return drawing::DrawPriority(id - kAdvisorPriorityFirst + 1, true);
  }
  switch (id) {
    case kMatrix:
      return drawing::DrawMatrix();
    case kUserSquare:
    case kAdvisorSquare:
    case kCommonSquare:
      return drawing::DrawMarkerSquare(id);
    case kSalesCycle:
      return drawing::DrawSalesCycle();
    case kCycleMarker:
      return drawing::DrawCycleMarker();
    case kLookupButton:
      return drawing::DrawLookupButton();
    default:
      return {};
  }
}

}  // namespace pelkor::desktop
