#pragma once

#include <cstddef>

namespace pelkedit {

// The Sales Environment phases and the IBO Info and Note tabs, which fill themselves at a
// load and collect what their text fields still hold when they are left or saved.
enum class TabPageId : std::size_t { kProbe, kProve, kClose, kInfo, kNote };
inline constexpr std::size_t kTabPageCount = 5;

class TabPage {
 public:
  virtual ~TabPage() = default;
  // InitSEnvProbe, InitSEnvProve, InitSEnvClose, InitContactInfo/InitProducts, InitIBONote.
  virtual void Init() = 0;
  // SaveSEnvProbeTab, SaveSEnvCloseTab, SaveIBOInfoTab, SaveIBONoteTab (Prove has nothing).
  virtual void Save() = 0;
  // InitCloseTab with the record's close state, run when the Sales Environment tab is shown
  // and after host changes; only the Close phase has one.
  virtual void Refresh() {}
};

}  // namespace pelkedit
