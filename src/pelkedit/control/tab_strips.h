#pragma once

#include <cstdint>
#include <span>

#include "contracts/pictures.h"

namespace pelkedit {

// One numbering of the tabs, shared by navigation, the desktop and the scenario runner.
namespace tab {
inline constexpr std::int32_t kEssentials = 0;
inline constexpr std::int32_t kSalesAdvisor = 1;
inline constexpr std::int32_t kSalesEnvironment = 2;
inline constexpr std::int32_t kIboInfo = 3;
inline constexpr std::int32_t kIboNote = 4;
inline constexpr std::int32_t kMainCount = 5;
inline constexpr std::int32_t kProbe = 0;
inline constexpr std::int32_t kProve = 1;
inline constexpr std::int32_t kClose = 2;
inline constexpr std::int32_t kPhaseCount = 3;
// The sub-tab of a page that is not on the Sales Environment.
inline constexpr std::int32_t kNoPhase = -1;
}  // namespace tab

// Where a page is shown.
struct TabPlace {
  std::int32_t mainTab = tab::kEssentials;
  std::int32_t phase = tab::kNoPhase;
};

// The part of a strip picture that selects one tab, in pixels from the strip's left edge. The
// tab's caption is its page's (TabPage::Caption).
struct TabBand {
  std::int32_t tab;
  std::int32_t first;
  std::int32_t last;
};

// A tab-strip picture set: one bitmap per selected band, numbered from firstPicture in band
// order.
struct TabStrip {
  std::int32_t firstPicture;
  std::int32_t widthPixels;
  std::int32_t heightPixels;
  std::span<const TabBand> bands;

  // The band a press at pixel x falls in: the first whose last pixel is at or past x, or the
  // last band for a press beyond them all.
  const TabBand& BandAt(std::int32_t x) const;
  // The band of a tab, or nullptr when this strip does not show it.
  const TabBand* BandOf(std::int32_t tabIndex) const;
  // The bitmap showing a tab selected; 0 when this strip does not show it.
  std::int32_t PictureOf(std::int32_t tabIndex) const;
  bool HasPicture(std::int32_t pictureId) const;
};

// The main strip in expert mode (Sales Environment included) and in basic mode, and the
// Sales Environment's phase strip.
const TabStrip& ExpertMainStrip();
const TabStrip& BasicMainStrip();
const TabStrip& PhaseStrip();
const TabStrip& MainStrip(bool expert);

}  // namespace pelkedit
