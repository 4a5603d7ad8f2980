#include "control/navigation.h"

#include <cmath>

#include "contracts/names.h"
#include "control/editor_context.h"
#include "control/layout.h"
#include "trace/error_paths.h"

namespace pelkedit {
namespace {

constexpr std::int32_t kNoPicture = 0;

// Mouse positions round to the nearest pixel, halves to the even neighbour.
std::int32_t RoundHalfEven(float x) {
  return static_cast<std::int32_t>(std::nearbyint(x));
}

template <std::size_t N>
std::int32_t Entry(const std::array<std::int32_t, N>& table, std::int32_t index,
                   const std::string& proc) {
  if (index < 0 || index >= static_cast<std::int32_t>(N)) {
    Raise(errnum::kSubscriptOutOfRange, proc);
  }
  return table[static_cast<std::size_t>(index)];
}

}  // namespace

Navigation::Navigation(EditorContext& ctx) : ctx_(ctx) {}

void Navigation::Wire() {
  ctx_.Get<PictureBox>(widget::picMainTab).onMouseDown = [this](int, int, float x, float) {
    PicMainTabMouseDown(x);
  };
  ctx_.Get<PictureBox>(widget::picSEnvTab).onMouseDown = [this](int, int, float x, float) {
    PicSEnvTabMouseDown(x);
  };
}

void Navigation::LoadMainTabPictures(bool expert) {
  RunMethod(EditorContext::Proc("LoadMainTabPictures"), [&] {
    const TabStrip& strip = MainStrip(expert);
    ctx_.Get<PictureBox>(widget::picMainTab)
        .SetWidth(static_cast<float>(strip.widthPixels) * kTwipsPerPixel);
    for (std::int32_t i = 0; i < tab::kMainCount; ++i) {
      mainTabPictures_[static_cast<std::size_t>(i)] = strip.PictureOf(i);
    }
  });
}

void Navigation::CleanupMainTabPictures() {
  RunMethod(EditorContext::Proc("CleanupMainTabPictures"),
            [&] { mainTabPictures_.fill(kNoPicture); });
}

void Navigation::LoadSEnvTabPictures() {
  RunMethod(EditorContext::Proc("LoadSEnvTabPictures"), [&] {
    for (std::int32_t i = 0; i < tab::kPhaseCount; ++i) {
      sEnvTabPictures_[static_cast<std::size_t>(i)] = PhaseStrip().PictureOf(i);
    }
  });
}

void Navigation::CleanupSEnvTabPictures() {
  RunMethod(EditorContext::Proc("CleanupSEnvTabPictures"),
            [&] { sEnvTabPictures_.fill(kNoPicture); });
}

std::int32_t Navigation::MainTabPicture(std::int32_t index) const {
  return Entry(mainTabPictures_, index, EditorContext::Proc("MainTabPictures"));
}

std::int32_t Navigation::SEnvTabPicture(std::int32_t index) const {
  return Entry(sEnvTabPictures_, index, EditorContext::Proc("SEnvTabPictures"));
}

void Navigation::RefreshMainTab(std::int32_t index) {
  RunMethod(EditorContext::Proc("RefreshMainTab"), [&] {
    auto& strip = ctx_.Get<PictureBox>(widget::picMainTab);
    strip.ClearPicture();
    strip.SetPicture(MainTabPicture(index));
    strip.BringToFront();
  });
}

std::int32_t Navigation::GetExpertMainTabIndex(std::int32_t x) {
  return RunMethod(EditorContext::Proc("GetExpertMainTabIndex"),
                   [&] { return MainStrip(ctx_.state.expertView).BandAt(x).tab; });
}

std::int32_t Navigation::GetSEnvTabIndex(std::int32_t x) {
  return RunMethod(EditorContext::Proc("GetSEnvTabIndex"),
                   [&] { return PhaseStrip().BandAt(x).tab; });
}

void Navigation::PicMainTabMouseDown(float x) {
  RunHandler(EditorContext::Proc("picMainTab_MouseDown"), ctx_.platform, [&] {
    auto& strip = ctx_.Get<PictureBox>(widget::picMainTab);
    strip.BringToFront();
    strip.ClearPicture();
    const std::int32_t index = GetExpertMainTabIndex(RoundHalfEven(x));
    strip.SetPicture(MainTabPicture(index));
    SwitchMainTab(index);
  });
}

void Navigation::PicSEnvTabMouseDown(float x) {
  RunHandler(EditorContext::Proc("picSEnvTab_MouseDown"), ctx_.platform, [&] {
    auto& strip = ctx_.Get<PictureBox>(widget::picSEnvTab);
    strip.BringToFront();
    strip.ClearPicture();
    const std::int32_t index = GetSEnvTabIndex(RoundHalfEven(x));
    strip.SetPicture(SEnvTabPicture(index));
    SwitchSEnvTab(index);
  });
}

void Navigation::CollectCurrentTab(CollectReason reason) {
  const TabPlace place = ctx_.CurrentPlace();
  ctx_.ForPagesOn(place.mainTab, place.phase, [&](TabPage& page) { page.Collect(reason); });
}

void Navigation::ShowPlace(const TabPlace& place) {
  RefreshMainTab(place.mainTab);
  SwitchMainTab(place.mainTab);
  if (place.phase == tab::kNoPhase) return;
  auto& strip = ctx_.Get<PictureBox>(widget::picSEnvTab);
  strip.ClearPicture();
  strip.SetPicture(SEnvTabPicture(place.phase));
  SwitchSEnvTab(place.phase);
}

void Navigation::ShowMainFrame(std::int32_t index) {
  for (std::int32_t other = 0; other < tab::kMainCount; ++other) {
    if (other != index) ctx_.Get<Frame>(MainFrameName(other)).SetVisible(false);
  }
  ctx_.Get<Frame>(MainFrameName(index)).SetVisible(true);
}

void Navigation::SwitchMainTab(std::int32_t index) {
  RunMethod(EditorContext::Proc("SwitchMainTab"), [&] {
    CollectCurrentTab(CollectReason::kLeaving);
    ctx_.state.mainTab = index;
    if (index < 0 || index >= tab::kMainCount) return;
    ctx_.ForPagesOn(index, tab::kNoPhase, [](TabPage& page) { page.Show(); });
    ShowMainFrame(index);
  });
}

void Navigation::SwitchSEnvTab(std::int32_t index) {
  RunMethod(EditorContext::Proc("SwitchSEnvTab"), [&] {
    ctx_.state.sEnvTab = index;
    ctx_.Get<PictureBox>(widget::picSEnvTab).BringToFront();
    if (index < 0 || index >= tab::kPhaseCount) return;
    for (std::int32_t other = 0; other < tab::kPhaseCount; ++other) {
      if (other != index) ctx_.Get<Frame>(PhaseFrameName(other)).SetVisible(false);
    }
    ctx_.Get<Frame>(PhaseFrameName(index)).SetVisible(true);
  });
}

}  // namespace pelkedit
