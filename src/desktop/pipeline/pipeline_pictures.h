#pragma once

#include <QWidget>
#include <functional>
#include <vector>

#include "data/ibo_query.h"

namespace pelkor::desktop {

// Every open deal (the largest first, up to a few hundred) as a dot in its WIH x WWGI cell of
// the probability matrix, sized by value and coloured by priority. A click selects its row, a
// double-click opens it; the tooltip names it.
class MatrixPicture : public QWidget {
  Q_OBJECT
 public:
  explicit MatrixPicture(QWidget* parent = nullptr);
  void SetDeals(std::vector<IboSummary> deals);
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;
  // The deal drawn at a point, or null.
  const IboSummary* DealAt(const QPoint& point) const;
  const std::vector<IboSummary>& Deals() const { return deals_; }

 signals:
  void dealClicked(std::int32_t id);
  void dealOpened(std::int32_t id);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  bool event(QEvent* event) override;

 private:
  struct Dot {
    QPointF centre;
    qreal radius;
  };
  QRectF Grid() const;
  void Place();

  std::vector<IboSummary> deals_;
  std::vector<Dot> dots_;
};

// The value of the open deals by the month they are expected, for the next twelve months, each
// bar split by matrix cell (likeliest at the bottom); the overdue deals as a bar of their own.
class ForecastPicture : public QWidget {
  Q_OBJECT
 public:
  explicit ForecastPicture(QWidget* parent = nullptr);
  // `thisMonth` is "YYYY-MM".
  void SetBuckets(std::vector<ForecastBucket> buckets, const QString& thisMonth);
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  bool event(QEvent* event) override;

 private:
  // Bar 0 is overdue, the others the months from this one on.
  static constexpr int kBars = 1 + kForecastMonths;
  int BarAt(const QPoint& point) const;
  QRectF Plot() const;

  std::vector<ForecastBucket> buckets_;
  QStringList months_;
  // Value per bar and cell (wih * 3 + wwgi).
  std::vector<std::array<std::int64_t, 9>> stacks_;
};

// How likely a matrix cell is to close for us, 0 (low, low) to 4 (high, high): its colour.
int CellHeat(int wih, int wwgi);

}  // namespace pelkor::desktop
