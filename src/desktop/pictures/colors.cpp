#include <QGuiApplication>
#include <QPalette>

#include "pictures/drawing.h"

namespace pelkor::desktop::drawing::colors {
namespace {

// Lightness (0 to 255) below which a window background counts as dark.
constexpr int kDarkLightness = 128;

QColor Role(QPalette::ColorRole role) {
  return QGuiApplication::palette().color(QPalette::Active, role);
}

// The designed colour on a light desktop, the palette's on a dark one.
QColor Themed(const QColor& light, const QColor& dark) {
  return DarkDesktop() ? dark : light;
}

}  // namespace

bool DarkDesktop() {
  return Role(QPalette::Window).lightness() < kDarkLightness;
}

QColor Mix(const QColor& a, const QColor& b, qreal t) {
  return QColor::fromRgbF(a.redF() + (b.redF() - a.redF()) * t,
                          a.greenF() + (b.greenF() - a.greenF()) * t,
                          a.blueF() + (b.blueF() - a.blueF()) * t);
}

QColor Panel() {
  return Themed({243, 244, 246}, Role(QPalette::Window));
}
QColor PanelBorder() {
  return Themed({176, 184, 194}, Mix(Role(QPalette::Window), Role(QPalette::WindowText), 0.35));
}
QColor Ink() {
  return Themed({31, 41, 55}, Role(QPalette::WindowText));
}
QColor MutedInk() {
  return Themed({84, 96, 112}, Mix(Role(QPalette::WindowText), Role(QPalette::Window), 0.3));
}
QColor TabIdleTop() {
  return Themed({228, 232, 237}, Role(QPalette::Button).lighter(115));
}
QColor TabIdleBottom() {
  return Themed({214, 219, 226}, Role(QPalette::Button));
}
QColor TabSelected() {
  return Themed({255, 255, 255}, Role(QPalette::Base));
}
QColor TabBorder() {
  return Themed({150, 160, 173}, Mix(Role(QPalette::Window), Role(QPalette::WindowText), 0.4));
}
QColor Accent() {
  return Themed({100, 135, 220}, Role(QPalette::Highlight).lighter(120));
}
// The advisor's panel stands out from the page: dark on a light desktop, light on a dark one.
QColor DarkPanel() {
  return Themed({74, 79, 87}, Mix(Role(QPalette::Window), Role(QPalette::WindowText), 0.8));
}
QColor DarkPanelBorder() {
  return Themed({46, 50, 56}, Role(QPalette::WindowText));
}
QColor LightInk() {
  return Themed({246, 247, 249}, Role(QPalette::Window));
}
QColor PlotBackground() {
  return Themed({255, 255, 255}, Role(QPalette::Base));
}
QColor GridLine() {
  return Themed({222, 227, 234}, Mix(Role(QPalette::Base), Role(QPalette::Text), 0.25));
}
QColor CellLow() {
  return Themed({233, 237, 242}, Mix(Role(QPalette::Base), Role(QPalette::Highlight), 0.15));
}
QColor CellHigh() {
  return Themed({190, 211, 236}, Mix(Role(QPalette::Base), Role(QPalette::Highlight), 0.55));
}

}  // namespace pelkor::desktop::drawing::colors
