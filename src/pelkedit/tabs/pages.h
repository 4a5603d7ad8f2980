#pragma once

#include <memory>
#include <vector>

#include "control/tab_page.h"

namespace pelkedit {

class EditorContext;

// Every page of the editor, in the order a load fills them.
std::vector<std::unique_ptr<TabPage>> CreatePages(EditorContext& ctx);

}  // namespace pelkedit
