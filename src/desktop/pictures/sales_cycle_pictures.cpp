#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <cmath>

#include "contracts/advisor.h"
#include "pictures/drawing.h"

namespace pelkor::desktop::drawing {

namespace {
constexpr int kWidth = 250;
constexpr int kHeight = 117;
constexpr int kCycleLeft = 2;     // the cycle runs from here ...
constexpr int kCycleRight = 246;  // ... to here
constexpr int kPlotTop = 13;      // the marker bar covers the plot from here
constexpr int kPlotBottom = 114;
constexpr int kBaseline = 104;
constexpr int kCurveTop = 24;
constexpr int kLabelPixelSize = 9;
constexpr int kMarkerWidth = 8;
constexpr int kMarkerHeight = kHeight - 16;
constexpr int kCurveSteps = 244;
// Steepness of the s-shaped progress curve.
constexpr double kSteepness = 9.0;

// The curve's fill fades from this opacity at the top to the next at the baseline.
constexpr int kCurveFillTopAlpha = 90;
constexpr int kCurveFillBottomAlpha = 15;
constexpr int kLineShade = 165;

const char* const kPhases[] = {"Probe", "Prove", "Close"};
constexpr int kPhaseCount = 3;
// Each phase's start and end as parts of the cycle: the boundaries the advisor names phases by.
constexpr double kPhaseStarts[kPhaseCount + 1] = {0, pelkedit::cycle::kProveStarts,
                                                  pelkedit::cycle::kCloseStarts, 1};

// Progress of the sale over the cycle: slow to start, fast in the middle, levelling at the close.
double Progress(double t) {
  const double low = 1.0 / (1.0 + std::exp(kSteepness * 0.5));
  const double high = 1.0 / (1.0 + std::exp(-kSteepness * 0.5));
  const double s = 1.0 / (1.0 + std::exp(-kSteepness * (t - 0.5)));
  return (s - low) / (high - low);
}

QPointF CurvePoint(double t) {
  return QPointF(kCycleLeft + t * (kCycleRight - kCycleLeft),
                 kBaseline - Progress(t) * (kBaseline - kCurveTop));
}

}  // namespace

QPixmap DrawSalesCycle() {
  QPixmap pixmap = Blank(kWidth, kHeight, colors::Panel());
  QPainter p(&pixmap);
  p.setRenderHint(QPainter::Antialiasing);
  p.setRenderHint(QPainter::TextAntialiasing);

  p.setPen(QPen(colors::PanelBorder(), 1));
  p.setBrush(colors::PlotBackground());
  p.drawRect(QRectF(0.5, kPlotTop + 0.5, kWidth - 1, kPlotBottom - kPlotTop));

  // Phase bands: a divider and a caption for each phase of the cycle.
  const double cycleWidth = double(kCycleRight - kCycleLeft);
  for (int i = 0; i < kPhaseCount; ++i) {
    const double left = kCycleLeft + cycleWidth * kPhaseStarts[i];
    const double phaseWidth = cycleWidth * (kPhaseStarts[i + 1] - kPhaseStarts[i]);
    if (i > 0) {
      p.setPen(QPen(colors::GridLine(), 1, Qt::DashLine));
      p.drawLine(QPointF(std::round(left) + 0.5, kPlotTop + 1),
                 QPointF(std::round(left) + 0.5, kBaseline));
    }
    p.setPen(colors::MutedInk());
    DrawText(p, QRectF(left, 0, phaseWidth, kPlotTop), Qt::AlignCenter, kPhases[i],
             {kLabelPixelSize, true});
  }

  QPainterPath curve;
  curve.moveTo(CurvePoint(0));
  for (int step = 1; step <= kCurveSteps; ++step)
    curve.lineTo(CurvePoint(double(step) / kCurveSteps));
  QPainterPath area;
  area.setFillRule(Qt::WindingFill);
  area.moveTo(kCycleLeft, kBaseline);
  for (int step = 0; step <= kCurveSteps; ++step)
    area.lineTo(CurvePoint(double(step) / kCurveSteps));
  area.lineTo(kCycleRight, kBaseline);
  area.closeSubpath();
  QLinearGradient gradient(0, kCurveTop, 0, kBaseline);
  QColor fillTop = colors::Accent();
  fillTop.setAlpha(kCurveFillTopAlpha);
  QColor fillBottom = colors::Accent();
  fillBottom.setAlpha(kCurveFillBottomAlpha);
  gradient.setColorAt(0, fillTop);
  gradient.setColorAt(1, fillBottom);
  p.fillPath(area, gradient);
  // The line a shade deeper than its fill on a light plot, lighter on a dark one.
  const QColor line =
      colors::DarkDesktop() ? colors::Accent() : colors::Accent().darker(kLineShade);
  p.setPen(QPen(line, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  p.setBrush(Qt::NoBrush);
  p.drawPath(curve);

  // Base line with a tick at the start, at each phase boundary and at the end.
  p.setPen(QPen(colors::MutedInk(), 1));
  p.drawLine(QPointF(kCycleLeft, kBaseline + 0.5), QPointF(kCycleRight, kBaseline + 0.5));
  for (int i = 0; i <= kPhaseCount; ++i) {
    const double x = std::round(kCycleLeft + cycleWidth * kPhaseStarts[i]) + 0.5;
    p.drawLine(QPointF(x, kBaseline), QPointF(x, kBaseline + 4));
  }
  return pixmap;
}

QPixmap DrawCycleMarker() {
  QPixmap pixmap = Blank(kMarkerWidth, kMarkerHeight, colors::Accent());
  QPainter p(&pixmap);
  // A lighter core gives the bar a little depth without changing its colour.
  p.fillRect(QRect(2, 0, kMarkerWidth - 4, kMarkerHeight), colors::Accent().lighter(112));
  return pixmap;
}

}  // namespace pelkor::desktop::drawing
