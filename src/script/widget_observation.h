#pragma once

#include <string>

#include "observed.h"
#include "widgets/widget.h"

namespace pelkscript {

// A widget property as `W.PROP` reads it (`PROP(I)` for list items and rich-text formats;
// index -1 when none is given). ScriptError for a property the widget does not have.
Observed ReadWidgetProperty(const pelkedit::Widget& widget, const std::string& property, int index);

}  // namespace pelkscript
