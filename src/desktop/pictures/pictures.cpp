#include "pictures/pictures.h"

#include <QFontMetrics>
#include <QGuiApplication>
#include <QPainter>
#include <algorithm>
#include <limits>

#include "control/tab_strips.h"
#include "pictures/drawing.h"

namespace pelkor::desktop {
namespace drawing {

namespace {
// The size of the two fonts every picture writes with.
constexpr int kFontPixelSize = 11;
// The width a caption is squeezed to before it is made smaller (a semi-condensed face's).
constexpr qreal kCondensedWidth = 0.87;

QFont PictureFont(bool bold) {
  QFont font = QGuiApplication::font();
  font.setPixelSize(kFontPixelSize);
  font.setBold(bold);
  font.setStyleStrategy(QFont::PreferAntialias);
  return font;
}

// How far the painter scales the picture font for a look, across and down.
struct Scale {
  qreal across;
  qreal down;
};
Scale ScaleOf(const TextLook& look) {
  const qreal down = look.pixelSize / kFontPixelSize;
  return {down * look.width, down};
}
}  // namespace

// Painted in the design's pixels, drawn at the zoomed form's screen density.
QPixmap Blank(int width, int height, const QColor& fill) {
  const qreal density = (qGuiApp != nullptr ? qGuiApp->devicePixelRatio() : 1.0) * FormZoom();
  QPixmap pixmap(QSize(width, height) * density);
  pixmap.setDevicePixelRatio(density);
  pixmap.fill(fill);
  return pixmap;
}

void DrawText(QPainter& p, const QRectF& box, int flags, const QString& text,
              const TextLook& look) {
  const auto [across, down] = ScaleOf(look);
  p.save();
  p.setFont(PictureFont(look.bold));
  p.translate(box.topLeft());
  p.scale(across, down);
  p.drawText(QRectF(0, 0, box.width() / across, box.height() / down), flags, text);
  p.restore();
}

QSizeF TextSize(const QString& text, const TextLook& look, qreal wrapWidth) {
  const auto [across, down] = ScaleOf(look);
  const QFontMetricsF metrics(PictureFont(look.bold));
  if (wrapWidth <= 0) return {metrics.horizontalAdvance(text) * across, metrics.height() * down};
  const QRectF room(0, 0, wrapWidth / across, std::numeric_limits<int>::max() / 2);
  const QSizeF needed = metrics.boundingRect(room, Qt::AlignCenter | Qt::TextWordWrap, text).size();
  return {needed.width() * across, needed.height() * down};
}

TextLook FitLook(const QString& text, qreal width, qreal pixelSize, qreal minPixelSize, bool bold) {
  TextLook look{pixelSize, bold};
  const qreal natural = TextSize(text, look).width();
  if (natural <= width) return look;
  look.width = kCondensedWidth;
  const qreal condensed = natural * kCondensedWidth;
  if (condensed <= width) return look;
  look.pixelSize = std::max(minPixelSize, pixelSize * width / condensed);
  return look;
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
