#pragma once

#include <QProxyStyle>

namespace pelkor::desktop {

// The platform's style, with the few standard icons the window asks for at start-up drawn
// instead of read from image files: reading them loads every image format plugin the machine
// has, which costs more memory at start-up than the rest of the window's widgets.
class AppStyle : public QProxyStyle {
 public:
  using QProxyStyle::QProxyStyle;
  QIcon standardIcon(StandardPixmap icon, const QStyleOption* option,
                     const QWidget* widget) const override;
};

}  // namespace pelkor::desktop
