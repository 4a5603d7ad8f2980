#pragma once

#include <QPixmap>
#include <QString>
#include <cstdint>
#include <functional>

#include <QSize>
#include "control/tab_strips.h"

namespace pelkor::desktop {

// Picture resource numbers. The editor loads the strips and priorities by the numbers the core
// gives them (control/tab_strips.h); the fixed pictures of the form (matrix, markers,
// sales-cycle graph) have numbers of their own so that every picture is drawn through one
// entry point.
namespace picture {

inline constexpr int kMatrix = 201;
inline constexpr int kUserSquare = 202;
inline constexpr int kAdvisorSquare = 203;
inline constexpr int kCommonSquare = 204;
inline constexpr int kSalesCycle = 205;
inline constexpr int kCycleMarker = 206;
// The "..." button beside a decision maker's name that opens the contact book.
inline constexpr int kLookupButton = 207;
}  // namespace picture

// How much larger than its design the form is laid out: the desktop font's line height over
// the one the form was designed with, never below 1. A larger font gets a larger form, so that
// every caption keeps its room.
qreal FormZoom();

// What a tab of a strip says: its page's caption.
using TabCaptions = std::function<QString(const pelkedit::TabStrip& strip, std::int32_t tab)>;

// Draws the picture of a resource number; a null pixmap for 0 or an unknown number. A strip's
// tabs say what `captions` gives them (nothing without it).
QPixmap DrawPicture(int resourceId, const TabCaptions& captions = {});

}  // namespace pelkor::desktop
