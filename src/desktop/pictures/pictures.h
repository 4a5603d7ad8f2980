#pragma once

#include <QPixmap>
#include <QString>
#include <cstdint>
#include <functional>

#include <QSize>
#include "control/tab_strips.h"

namespace pelkor::desktop {

// The numbers the editor names its pictures by, all drawn through DrawPicture.
namespace picture = pelkedit::picture;

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
