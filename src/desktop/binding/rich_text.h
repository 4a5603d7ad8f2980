#pragma once

#include <QTextDocument>
#include <string>

#include "widgets/controls.h"

namespace pelkor::desktop {

// The family to draw a model's font name with: the named one when installed, otherwise the
// application's default sans-serif family.
QString AvailableFamily(const std::string& fontName);

// Fills `document` with the rich text of `box`: every character with its own bold, emphasis
// (shown italic) and colour; paragraphs with a bullet become list items; indents are in twips.
void RenderRichText(const pelkedit::RichTextBox& box, QTextDocument& document);

}  // namespace pelkor::desktop
