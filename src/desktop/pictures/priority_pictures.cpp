#include <QPainter>
#include <QStringList>

#include "pictures/drawing.h"

namespace pelkor::desktop::drawing {

namespace {
constexpr int kSide = 140;
constexpr qreal kCornerRadius = 10;
constexpr int kMargin = 12;
constexpr int kDigitPixelSize = 72;
constexpr int kPhrasePixelSize = 22;
constexpr int kPhraseMinPixelSize = 14;
constexpr int kCaptionPixelSize = 11;
constexpr int kCaptionHeight = 18;

// The largest look in which the phrase, wrapped at word boundaries, fits the box.
TextLook FitWrapped(const QString& text, const QRect& box) {
  TextLook look{kPhrasePixelSize, true};
  for (; look.pixelSize > kPhraseMinPixelSize; --look.pixelSize) {
    const QSizeF needed = TextSize(text, look, box.width());
    if (needed.width() <= box.width() && needed.height() <= box.height()) return look;
  }
  return look;
}

}  // namespace

QString PriorityText(int priority) {
  static const QStringList texts{"1", "2", "3", "Break Through Needed", "Leave it alone"};
  if (priority < 1 || priority > texts.size()) return "?";
  return texts[priority - 1];
}

QPixmap DrawPriority(int priority, bool advisor) {
  QPixmap pixmap = Blank(kSide, kSide, Qt::transparent);
  QPainter p(&pixmap);
  p.setRenderHint(QPainter::Antialiasing);
  p.setRenderHint(QPainter::TextAntialiasing);

  const QColor panel = advisor ? colors::DarkPanel() : colors::Panel();
  const QColor border = advisor ? colors::DarkPanelBorder() : colors::PanelBorder();
  const QColor ink = advisor ? colors::LightInk() : colors::Ink();
  const QRectF frame(0.5, 0.5, kSide - 1, kSide - 1);
  p.setPen(QPen(border, 1));
  p.setBrush(panel);
  p.drawRoundedRect(frame, kCornerRadius, kCornerRadius);

  // A small caption names whose view it is; the priority itself fills the rest.
  p.setPen(advisor ? colors::LightInk() : colors::MutedInk());
  const QRect caption(kMargin, kMargin / 2, kSide - 2 * kMargin, kCaptionHeight);
  DrawText(p, caption, Qt::AlignCenter, advisor ? "Advisor's view" : "Your view",
           {kCaptionPixelSize});
  p.setPen(QPen(advisor ? colors::DarkPanelBorder() : colors::PanelBorder(), 1));
  p.drawLine(QPointF(kMargin, caption.bottom() + 2.5),
             QPointF(kSide - kMargin, caption.bottom() + 2.5));

  const QString text = PriorityText(priority);
  const QRect body(kMargin, caption.bottom() + 4, kSide - 2 * kMargin,
                   kSide - caption.bottom() - 4 - kMargin);
  const bool isDigit = text.size() == 1;
  p.setPen(ink);
  DrawText(p, body, Qt::AlignCenter | Qt::TextWordWrap, text,
           isDigit ? TextLook{kDigitPixelSize, true} : FitWrapped(text, body));
  return pixmap;
}

}  // namespace pelkor::desktop::drawing
