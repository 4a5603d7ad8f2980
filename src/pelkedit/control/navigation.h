#pragma once

#include <array>
#include <cstdint>

#include "control/tab_page.h"

namespace pelkedit {

class EditorContext;

// Main tabs and Sales Environment phases: strip images, hit bands, switching.
class Navigation {
 public:
  explicit Navigation(EditorContext& ctx);
  void Wire();

  void LoadMainTabPictures(bool expert);
  void CleanupMainTabPictures();
  void LoadSEnvTabPictures();
  void CleanupSEnvTabPictures();
  void RefreshMainTab(std::int32_t index);
  std::int32_t GetExpertMainTabIndex(std::int32_t x);
  std::int32_t GetSEnvTabIndex(std::int32_t x);
  void SwitchMainTab(std::int32_t index);
  void SwitchSEnvTab(std::int32_t index);
  // The strip image of a main tab (error 9 outside 0..4).
  std::int32_t MainTabPicture(std::int32_t index) const;
  // Asks the pages of the current tab (and Sales Environment phase) to write back what only
  // their widgets still hold.
  void CollectCurrentTab(CollectReason reason);
  // Brings a main tab (and its phase) to the front, strips included.
  void ShowPlace(const TabPlace& place);

 private:
  void PicMainTabMouseDown(float x);
  void PicSEnvTabMouseDown(float x);
  std::int32_t SEnvTabPicture(std::int32_t index) const;
  void ShowMainFrame(std::int32_t index);

  EditorContext& ctx_;
  std::array<std::int32_t, tab::kMainCount> mainTabPictures_{};
  std::array<std::int32_t, tab::kPhaseCount> sEnvTabPictures_{};
};

}  // namespace pelkedit
