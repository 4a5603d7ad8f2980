#pragma once

#include <array>
#include <cstdint>

namespace pelkedit {

class EditorContext;

// Main tabs and Sales Environment sub-tabs: strip images, hit bands, switching.
class Navigation {
 public:
  static constexpr std::int32_t kEssentials = 0;
  static constexpr std::int32_t kSalesAdvisor = 1;
  static constexpr std::int32_t kSalesEnvironment = 2;
  static constexpr std::int32_t kIboInfo = 3;
  static constexpr std::int32_t kIboNote = 4;
  static constexpr std::int32_t kProbe = 0;
  static constexpr std::int32_t kProve = 1;
  static constexpr std::int32_t kClose = 2;

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
  // Collects what the current tab (and Sales Environment phase) still holds only in its
  // widgets; Essentials and Sales Advisor collect nothing here.
  void CollectMainTab();

 private:
  void PicMainTabMouseDown(float x);
  void PicSEnvTabMouseDown(float x);
  std::int32_t SEnvTabPicture(std::int32_t index) const;
  void ShowMainFrame(std::int32_t index);

  EditorContext& ctx_;
  std::array<std::int32_t, 5> mainTabPictures_{};
  std::array<std::int32_t, 3> sEnvTabPictures_{};
};

}  // namespace pelkedit
