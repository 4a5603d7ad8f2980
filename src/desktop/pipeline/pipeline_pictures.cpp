#include "pipeline/pipeline_pictures.h"

#include <QDate>
#include <QHelpEvent>
#include <QLocale>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>
#include <cmath>

#include "pipeline/pipeline_model.h"

namespace pelkor::desktop {
namespace {

constexpr int kLevels = 3;  // low, medium, high
constexpr int kCells = kLevels * kLevels;
constexpr qreal kMinRadius = 3;
constexpr qreal kMaxRadiusPart = 0.22;  // of a cell's side
constexpr int kAxisRoom = 34;
// Left of the matrix: the rotated axis title, then the level names.
constexpr int kAxisTitleRoom = 18;
constexpr int kLevelNameRoom = 52;
constexpr int kTitleRoom = 22;
const char* const kLevelNames[kLevels] = {"Low", "Medium", "High"};

// Priority 1 (work on it now) is the hottest colour; 5 (leave it alone) the coolest.
QColor PriorityColour(int priority) {
  static const QColor colours[] = {{0xC6, 0x28, 0x28},
                                   {0xEF, 0x6C, 0x00},
                                   {0xF9, 0xA8, 0x25},
                                   {0x1E, 0x88, 0xE5},
                                   {0x90, 0xA4, 0xAE}};
  return colours[std::clamp(priority, 1, 5) - 1];
}

// From cool (unlikely) to warm (likely).
QColor HeatColour(int heat) {
  static const QColor colours[] = {{0xB0, 0xBE, 0xC5},
                                   {0x90, 0xCA, 0xF9},
                                   {0x4D, 0xB6, 0xAC},
                                   {0x66, 0xBB, 0x6A},
                                   {0x2E, 0x7D, 0x32}};
  return colours[std::clamp(heat, 0, 4)];
}

// A stable spot for a deal inside its cell, so that dots do not all sit on one point.
QPointF Spot(std::int32_t id) {
  const auto mix = static_cast<std::uint32_t>(id) * 2654435761u;
  return {0.18 + 0.64 * ((mix & 0xFFFF) / 65535.0), 0.18 + 0.64 * ((mix >> 16) / 65535.0)};
}

void DrawTitle(QPainter& p, const QRect& area, const QString& title) {
  QFont font = p.font();
  font.setBold(true);
  p.setFont(font);
  p.drawText(area.adjusted(4, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter, title);
  font.setBold(false);
  p.setFont(font);
}

}  // namespace

int CellHeat(int wih, int wwgi) {
  return std::clamp(wih, 0, 2) + std::clamp(wwgi, 0, 2);
}

MatrixPicture::MatrixPicture(QWidget* parent) : QWidget(parent) {
  setObjectName("picPipelineMatrix");
  setAccessibleName(tr("Probability matrix of the open deals"));
  setMouseTracking(true);
}

QSize MatrixPicture::sizeHint() const {
  return {340, 300};
}

QSize MatrixPicture::minimumSizeHint() const {
  return {220, 200};
}

void MatrixPicture::SetDeals(std::vector<IboSummary> deals) {
  deals_ = std::move(deals);
  Place();
  update();
}

QRectF MatrixPicture::Grid() const {
  const QRectF all = rect();
  return all.adjusted(kAxisTitleRoom + kLevelNameRoom, kTitleRoom, -8, -kAxisRoom);
}

void MatrixPicture::Place() {
  dots_.clear();
  const QRectF grid = Grid();
  const qreal side = std::min(grid.width(), grid.height()) / kLevels;
  std::int64_t largest = 1;
  for (const IboSummary& deal : deals_) largest = std::max(largest, deal.value);
  for (const IboSummary& deal : deals_) {
    const int column = std::clamp(deal.wwgi, 0, 2);
    const int row = kLevels - 1 - std::clamp(deal.wih, 0, 2);
    const QPointF spot = Spot(deal.id);
    const QPointF centre(grid.left() + (column + spot.x()) * grid.width() / kLevels,
                         grid.top() + (row + spot.y()) * grid.height() / kLevels);
    // The area, not the radius, follows the value.
    const qreal share = std::sqrt(static_cast<double>(std::max<std::int64_t>(deal.value, 0)) /
                                  static_cast<double>(largest));
    dots_.push_back({centre, std::max(kMinRadius, share * side * kMaxRadiusPart)});
  }
}

const IboSummary* MatrixPicture::DealAt(const QPoint& point) const {
  // The last drawn (smallest, on top) first.
  for (std::size_t i = dots_.size(); i-- > 0;) {
    const QPointF d = QPointF(point) - dots_[i].centre;
    if (d.x() * d.x() + d.y() * d.y() <= dots_[i].radius * dots_[i].radius) return &deals_[i];
  }
  return nullptr;
}

void MatrixPicture::paintEvent(QPaintEvent*) {
  Place();
  QPainter p(this);
  p.setRenderHint(QPainter::Antialiasing);
  p.fillRect(rect(), palette().base());
  p.setPen(palette().color(QPalette::Text));
  DrawTitle(p, QRect(0, 0, width(), kTitleRoom), tr("Open deals in the matrix"));
  const QRectF grid = Grid();
  const qreal cellW = grid.width() / kLevels;
  const qreal cellH = grid.height() / kLevels;
  for (int row = 0; row < kLevels; ++row) {
    for (int column = 0; column < kLevels; ++column) {
      const QRectF cell(grid.left() + column * cellW, grid.top() + row * cellH, cellW, cellH);
      QColor tint = HeatColour(CellHeat(kLevels - 1 - row, column));
      tint.setAlpha(60);
      p.fillRect(cell, tint);
      p.setPen(palette().color(QPalette::Mid));
      p.drawRect(cell);
    }
  }
  p.setPen(palette().color(QPalette::Text));
  for (int i = 0; i < kLevels; ++i) {
    p.drawText(QRectF(grid.left() + i * cellW, grid.bottom() + 2, cellW, 16), Qt::AlignCenter,
               tr(kLevelNames[i]));
    p.drawText(
        QRectF(kAxisTitleRoom, grid.top() + (kLevels - 1 - i) * cellH, kLevelNameRoom - 4, cellH),
        Qt::AlignRight | Qt::AlignVCenter, tr(kLevelNames[i]));
  }
  p.drawText(QRectF(grid.left(), grid.bottom() + 16, grid.width(), 16), Qt::AlignCenter,
             tr("Will we get it?"));
  p.save();
  p.translate(kAxisTitleRoom / 2.0, grid.center().y());
  p.rotate(-90);
  p.drawText(QRectF(-grid.height() / 2, -8, grid.height(), 16), Qt::AlignCenter,
             tr("Will it happen?"));
  p.restore();
  for (std::size_t i = 0; i < dots_.size(); ++i) {
    QColor fill = PriorityColour(deals_[i].priority);
    fill.setAlpha(190);
    p.setBrush(fill);
    p.setPen(QPen(fill.darker(140), 1));
    p.drawEllipse(dots_[i].centre, dots_[i].radius, dots_[i].radius);
  }
  if (deals_.empty()) {
    p.setPen(palette().color(QPalette::PlaceholderText));
    p.drawText(grid, Qt::AlignCenter, tr("No open deals"));
  }
}

void MatrixPicture::mousePressEvent(QMouseEvent* event) {
  if (const IboSummary* deal = DealAt(event->position().toPoint())) emit dealClicked(deal->id);
}

void MatrixPicture::mouseDoubleClickEvent(QMouseEvent* event) {
  if (const IboSummary* deal = DealAt(event->position().toPoint())) emit dealOpened(deal->id);
}

bool MatrixPicture::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QWidget::event(event);
  auto* help = static_cast<QHelpEvent*>(event);
  const IboSummary* deal = DealAt(help->pos());
  if (deal == nullptr) {
    QToolTip::hideText();
    event->ignore();
    return true;
  }
  QToolTip::showText(help->globalPos(),
                     tr("%1\nIBO#%2: %3, priority %4")
                         .arg(QString::fromStdString(deal->company))
                         .arg(deal->iboNumber)
                         .arg(MoneyDisplay(deal->value))
                         .arg(deal->priority),
                     this);
  return true;
}

ForecastPicture::ForecastPicture(QWidget* parent) : QWidget(parent) {
  setObjectName("picPipelineForecast");
  setAccessibleName(tr("Forecast of the open deals by month"));
  setMouseTracking(true);
}

QSize ForecastPicture::sizeHint() const {
  return {340, 240};
}

QSize ForecastPicture::minimumSizeHint() const {
  return {220, 160};
}

void ForecastPicture::SetBuckets(std::vector<ForecastBucket> buckets, const QString& thisMonth) {
  buckets_ = std::move(buckets);
  months_.clear();
  months_ << "overdue";
  QDate month = QDate::fromString(thisMonth + "-01", Qt::ISODate);
  for (int i = 1; i < kBars; ++i, month = month.addMonths(1)) {
    months_ << month.toString("yyyy-MM");
  }
  stacks_.assign(kBars, {});
  for (const ForecastBucket& bucket : buckets_) {
    const int bar = static_cast<int>(months_.indexOf(QString::fromStdString(bucket.month)));
    if (bar < 0) continue;  // no date, or beyond the twelve months
    stacks_[static_cast<std::size_t>(bar)][static_cast<std::size_t>(
        std::clamp(bucket.wih, 0, 2) * kLevels + std::clamp(bucket.wwgi, 0, 2))] += bucket.value;
  }
  update();
}

QRectF ForecastPicture::Plot() const {
  return QRectF(rect()).adjusted(8, kTitleRoom + 4, -8, -kAxisRoom);
}

int ForecastPicture::BarAt(const QPoint& point) const {
  const QRectF plot = Plot();
  if (!plot.contains(point) && !(point.y() > plot.bottom() && point.x() >= plot.left())) return -1;
  const int bar = static_cast<int>((point.x() - plot.left()) / (plot.width() / kBars));
  return bar >= 0 && bar < kBars ? bar : -1;
}

void ForecastPicture::paintEvent(QPaintEvent*) {
  QPainter p(this);
  p.setRenderHint(QPainter::Antialiasing);
  p.fillRect(rect(), palette().base());
  p.setPen(palette().color(QPalette::Text));
  DrawTitle(p, QRect(0, 0, width(), kTitleRoom), tr("Open value by expected month"));
  const QRectF plot = Plot();
  std::int64_t highest = 0;
  for (const auto& stack : stacks_) {
    std::int64_t sum = 0;
    for (const std::int64_t value : stack) sum += value;
    highest = std::max(highest, sum);
  }
  if (highest <= 0) {
    p.setPen(palette().color(QPalette::PlaceholderText));
    p.drawText(plot, Qt::AlignCenter | Qt::TextWordWrap,
               tr("No open deal is expected within the next twelve months"));
    return;
  }
  const qreal slot = plot.width() / kBars;
  QFont small = p.font();
  small.setPointSizeF(small.pointSizeF() * 0.85);
  p.setFont(small);
  p.setPen(palette().color(QPalette::Mid));
  p.drawLine(plot.bottomLeft(), plot.bottomRight());
  for (int bar = 0; bar < static_cast<int>(stacks_.size()); ++bar) {
    qreal top = plot.bottom();
    // The likeliest cells at the bottom of the bar.
    for (int cell = kCells - 1; cell >= 0; --cell) {
      const std::int64_t value =
          stacks_[static_cast<std::size_t>(bar)][static_cast<std::size_t>(cell)];
      if (value <= 0) continue;
      const qreal height =
          plot.height() * static_cast<double>(value) / static_cast<double>(highest);
      const QRectF segment(plot.left() + bar * slot + slot * 0.15, top - height, slot * 0.7,
                           height);
      p.fillRect(segment, HeatColour(CellHeat(cell / kLevels, cell % kLevels)));
      top -= height;
    }
    if (bar == 0) {
      p.setPen(QPen(QColor(0xB0, 0x1C, 0x1C), 1.5, Qt::DashLine));
      p.drawLine(QPointF(plot.left() + slot, plot.top()),
                 QPointF(plot.left() + slot, plot.bottom()));
    }
    p.setPen(palette().color(QPalette::Text));
    const QString label =
        bar == 0 ? tr("Late")
                 : QLocale()
                       .monthName(QDate::fromString(months_[bar] + "-01", Qt::ISODate).month(),
                                  QLocale::ShortFormat)
                       .left(1);
    // Centred under its bar, but kept inside the picture when wider than the bar ("Late").
    const qreal labelWidth = p.fontMetrics().horizontalAdvance(label);
    const qreal left = std::clamp(plot.left() + bar * slot + (slot - labelWidth) / 2, 0.0,
                                  std::max(0.0, width() - labelWidth));
    p.drawText(QRectF(left, plot.bottom() + 2, labelWidth, 16), Qt::AlignCenter, label);
  }
  p.setPen(palette().color(QPalette::PlaceholderText));
  p.drawText(QRectF(plot.left(), plot.bottom() + 16, plot.width(), 16), Qt::AlignCenter,
             tr("Highest bar: %1").arg(MoneyDisplay(highest)));
}

bool ForecastPicture::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QWidget::event(event);
  auto* help = static_cast<QHelpEvent*>(event);
  const int bar = BarAt(help->pos());
  if (bar < 0 || bar >= static_cast<int>(stacks_.size())) {
    QToolTip::hideText();
    event->ignore();
    return true;
  }
  std::int64_t sum = 0;
  std::int64_t likely = 0;
  for (int cell = 0; cell < kCells; ++cell) {
    const std::int64_t value =
        stacks_[static_cast<std::size_t>(bar)][static_cast<std::size_t>(cell)];
    sum += value;
    if (CellHeat(cell / kLevels, cell % kLevels) >= 3) likely += value;
  }
  const QString when = bar == 0 ? tr("Overdue (expected before today)") : months_[bar];
  QToolTip::showText(help->globalPos(),
                     tr("%1: %2 open, %3 of it in the likely cells")
                         .arg(when, MoneyDisplay(sum), MoneyDisplay(likely)),
                     this);
  return true;
}

}  // namespace pelkor::desktop
