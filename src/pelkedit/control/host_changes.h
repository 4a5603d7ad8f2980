#pragma once

#include <cstdint>

#include "control/tab_page.h"

namespace pelkedit {

class EditorContext;

// Changes the host starts: a new start date, a new status, the upgrade to expert mode.
class HostChanges {
 public:
  explicit HostChanges(EditorContext& ctx) : ctx_(ctx) {}
  void IboChangeStartDate();
  void IboChangeStatus(std::int32_t status);
  void IboUpgradeToExpert();

 private:
  void UpdateIboStartDateChanged();
  void UpdateIboStatusChanged(std::int32_t status);
  void UpdateUpgradeToExpert();
  void TellPages(HostChange change);

  EditorContext& ctx_;
};

}  // namespace pelkedit
