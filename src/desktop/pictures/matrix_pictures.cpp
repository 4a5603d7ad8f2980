#include <QPainter>

#include "pictures/drawing.h"
#include "pictures/pictures.h"

namespace pelkor::desktop::drawing {

namespace {
constexpr int kMatrixSide = 139;
constexpr int kGridLeft = 25;
constexpr int kGridTop = 2;
constexpr int kPitch = 38;
constexpr int kCell = 36;  // a marker square covers one cell exactly
constexpr int kCells = 3;
constexpr int kTickPixelSize = 9;
constexpr int kAxisPixelSize = 10;
constexpr int kTickBand = 11;  // height of the tick labels next to the grid
constexpr int kMarkerSide = 36;
constexpr int kMarkerLetterPixelSize = 24;

const QColor kUserGrey{128, 128, 128};
const QColor kAdvisorGrey{241, 241, 241};

const char* const kTicks[kCells] = {"Low", "Medium", "High"};

void DrawCells(QPainter& p) {
  for (int column = 0; column < kCells; ++column) {
    for (int row = 0; row < kCells; ++row) {
      // Shade deepens towards High/High, where the opportunity is most promising.
      const qreal strength = (column + row) / qreal(2 * (kCells - 1));
      const QRectF cell(kGridLeft + kPitch * column + 0.5,
                        kGridTop + kPitch * (kCells - 1 - row) + 0.5, kCell - 1, kCell - 1);
      p.setPen(QPen(colors::Mix(colors::CellLow(), colors::PanelBorder(), 0.5), 1));
      p.setBrush(colors::Mix(colors::CellLow(), colors::CellHigh(), strength));
      p.drawRoundedRect(cell, 3, 3);
    }
  }
}

void DrawAxes(QPainter& p) {
  const int gridBottom = kGridTop + kPitch * kCells;
  p.setPen(colors::MutedInk());
  const TextLook tick{kTickPixelSize};
  for (int i = 0; i < kCells; ++i) {
    // Across: under each column. Up: beside each row, written upwards.
    DrawText(p, QRect(kGridLeft + kPitch * i, gridBottom, kPitch, kTickBand), Qt::AlignCenter,
             kTicks[i], tick);
    p.save();
    p.translate(kGridLeft - kTickBand, kGridTop + kPitch * (kCells - i));
    p.rotate(-90);
    DrawText(p, QRect(0, 0, kPitch, kTickBand), Qt::AlignCenter, kTicks[i], tick);
    p.restore();
  }
  p.setPen(colors::Ink());
  const TextLook axis{kAxisPixelSize, true};
  DrawText(p,
           QRect(kGridLeft, gridBottom + kTickBand, kPitch * kCells,
                 kMatrixSide - gridBottom - kTickBand),
           Qt::AlignCenter, "Will It Happen?", axis);
  p.save();
  p.translate(0, kGridTop + kPitch * kCells);
  p.rotate(-90);
  DrawText(p, QRect(0, 0, kPitch * kCells, kGridLeft - kTickBand), Qt::AlignCenter,
           "Will We Get It?", axis);
  p.restore();
}

}  // namespace

QPixmap DrawMatrix() {
  QPixmap pixmap = Blank(kMatrixSide, kMatrixSide, colors::Panel());
  QPainter p(&pixmap);
  p.setRenderHint(QPainter::Antialiasing);
  p.setRenderHint(QPainter::TextAntialiasing);
  DrawCells(p);
  DrawAxes(p);
  return pixmap;
}

QPixmap DrawMarkerSquare(int resourceId) {
  const bool lettered = resourceId != picture::kUserSquare;
  const QColor fill = resourceId == picture::kAdvisorSquare ? kAdvisorGrey : kUserGrey;
  QPixmap pixmap = Blank(kMarkerSide, kMarkerSide, fill);
  QPainter p(&pixmap);
  p.setRenderHint(QPainter::Antialiasing);
  p.setRenderHint(QPainter::TextAntialiasing);
  // A thin dark edge keeps the light advisor square visible on the pale cells.
  p.setPen(QPen(QColor(64, 64, 64), 1));
  p.setBrush(Qt::NoBrush);
  p.drawRect(QRectF(0.5, 0.5, kMarkerSide - 1, kMarkerSide - 1));
  if (lettered) {
    p.setPen(Qt::black);
    DrawText(p, QRect(0, 0, kMarkerSide, kMarkerSide), Qt::AlignCenter, "A",
             {kMarkerLetterPixelSize, true});
  }
  return pixmap;
}

}  // namespace pelkor::desktop::drawing
