#pragma once

#include <cstdint>

namespace pelkedit {

// The component's own state; none of it is visible to the host except through the
// three read-only properties.
struct EditorState {
  bool iboChanged = false;
  bool iboSaved = false;
  bool loading = false;
  bool expertView = false;
  std::int32_t dbView = 0;
  std::int32_t loadedStatus = 0;
  std::int32_t mainTab = 0;
  std::int32_t sEnvTab = 0;
  bool promptAnswered = false;
  // True while the Close phase fills or rebuilds its rows.
  bool refreshing = false;
};

}  // namespace pelkedit
