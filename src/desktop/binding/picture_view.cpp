#include "binding/picture_view.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOptionFocusRect>

#include "pictures/pictures.h"

namespace pelkor::desktop {

void PictureView::SetPixmap(const QPixmap& pixmap) {
  draw_ = nullptr;
  pixmap_ = pixmap;
  update();
}

void PictureView::SetPixmapSource(std::function<QPixmap()> draw) {
  draw_ = std::move(draw);
  pixmap_ = QPixmap();
  update();
}

const QPixmap& PictureView::Pixmap() const {
  if (draw_) {
    pixmap_ = draw_();
    draw_ = nullptr;
  }
  return pixmap_;
}

void PictureView::paintEvent(QPaintEvent*) {
  const QPixmap& pixmap = Pixmap();
  if (pixmap.isNull()) return;
  QPainter painter(this);
  // The picture's design size, zoomed as the form is.
  painter.drawPixmap(QRect(QPoint(0, 0), pixmap.deviceIndependentSize().toSize() * FormZoom()),
                     pixmap);
  if (!hasFocus()) return;
  // A picture that is a Tab stop (a look-up button) shows where the keyboard is, as buttons do.
  QStyleOptionFocusRect focus;
  focus.initFrom(this);
  focus.rect = rect().adjusted(1, 1, -1, -1);
  style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, &painter, this);
}

}  // namespace pelkor::desktop
