#include "control/navigation.h"

#include <cmath>

#include "control/editor_context.h"
#include "control/layout.h"
#include "tabs/advisor/advisor_tab.h"
#include "tabs/essentials/essentials_tab.h"
#include "trace/error_paths.h"

namespace pelkedit {
namespace {

// Bitmap resources of the strips.
constexpr std::int32_t kExpertStripFirst = 101;
constexpr std::int32_t kNormalEssentials = 106;
constexpr std::int32_t kNormalSalesAdvisor = 107;
constexpr std::int32_t kNormalIboInfo = 108;
constexpr std::int32_t kNormalIboNote = 109;
constexpr std::int32_t kSEnvStripFirst = 110;
constexpr std::int32_t kNoPicture = 0;

// Strip widths in pixels.
constexpr float kExpertStripWidth = 405;
constexpr float kNormalStripWidth = 305;

// Last pixel of each tab in the strips.
constexpr std::int32_t kExpertBandEnds[] = {81, 162, 263, 347};
constexpr std::int32_t kNormalEssentialsEnd = 82;
constexpr std::int32_t kNormalSalesAdvisorEnd = 163;
constexpr std::int32_t kNormalIboInfoEnd = 247;
constexpr std::int32_t kProbeEnd = 43;
constexpr std::int32_t kProveEnd = 88;

const char* const kMainFrames[] = {"fraMainEssentials", "fraMainSalesAdvisor",
                                   "fraMainSalesEnvironment", "fraMainIBOInfo", "fraMainIBONote"};
const char* const kSEnvFrames[] = {"fraMainSEnvProbe", "fraMainSEnvProve", "fraMainSEnvClose"};

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
  ctx_.Get<PictureBox>("picMainTab").onMouseDown = [this](int, int, float x, float) {
    PicMainTabMouseDown(x);
  };
  ctx_.Get<PictureBox>("picSEnvTab").onMouseDown = [this](int, int, float x, float) {
    PicSEnvTabMouseDown(x);
  };
}

void Navigation::LoadMainTabPictures(bool expert) {
  RunMethod(EditorContext::Proc("LoadMainTabPictures"), [&] {
    auto& strip = ctx_.Get<PictureBox>("picMainTab");
    mainTabPictures_.fill(kNoPicture);
    if (expert) {
      strip.SetWidth(kExpertStripWidth * kTwipsPerPixel);
      for (std::int32_t i = 0; i < 5; ++i) {
        mainTabPictures_[static_cast<std::size_t>(i)] = kExpertStripFirst + i;
      }
      return;
    }
    strip.SetWidth(kNormalStripWidth * kTwipsPerPixel);
    mainTabPictures_[kEssentials] = kNormalEssentials;
    mainTabPictures_[kSalesAdvisor] = kNormalSalesAdvisor;
    mainTabPictures_[kIboInfo] = kNormalIboInfo;
    mainTabPictures_[kIboNote] = kNormalIboNote;
  });
}

void Navigation::CleanupMainTabPictures() {
  RunMethod(EditorContext::Proc("CleanupMainTabPictures"),
            [&] { mainTabPictures_.fill(kNoPicture); });
}

void Navigation::LoadSEnvTabPictures() {
  RunMethod(EditorContext::Proc("LoadSEnvTabPictures"), [&] {
    for (std::int32_t i = 0; i < 3; ++i) {
      sEnvTabPictures_[static_cast<std::size_t>(i)] = kSEnvStripFirst + i;
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
    auto& strip = ctx_.Get<PictureBox>("picMainTab");
    strip.ClearPicture();
    strip.SetPicture(MainTabPicture(index));
    strip.BringToFront();
  });
}

std::int32_t Navigation::GetExpertMainTabIndex(std::int32_t x) {
  return RunMethod(EditorContext::Proc("GetExpertMainTabIndex"), [&]() -> std::int32_t {
    if (ctx_.state.expertView) {
      for (std::int32_t tab = 0; tab < 4; ++tab) {
        if (x <= kExpertBandEnds[tab]) return tab;
      }
      return kIboNote;
    }
    if (x <= kNormalEssentialsEnd) return kEssentials;
    if (x <= kNormalSalesAdvisorEnd) return kSalesAdvisor;
    if (x <= kNormalIboInfoEnd) return kIboInfo;
    return kIboNote;
  });
}

std::int32_t Navigation::GetSEnvTabIndex(std::int32_t x) {
  return RunMethod(EditorContext::Proc("GetSEnvTabIndex"), [&]() -> std::int32_t {
    if (x <= kProbeEnd) return kProbe;
    if (x <= kProveEnd) return kProve;
    return kClose;
  });
}

void Navigation::PicMainTabMouseDown(float x) {
  RunHandler(EditorContext::Proc("picMainTab_MouseDown"), ctx_.platform, [&] {
    auto& strip = ctx_.Get<PictureBox>("picMainTab");
    strip.BringToFront();
    strip.ClearPicture();
    const std::int32_t index = GetExpertMainTabIndex(RoundHalfEven(x));
    strip.SetPicture(MainTabPicture(index));
    SwitchMainTab(index);
  });
}

void Navigation::PicSEnvTabMouseDown(float x) {
  RunHandler(EditorContext::Proc("picSEnvTab_MouseDown"), ctx_.platform, [&] {
    auto& strip = ctx_.Get<PictureBox>("picSEnvTab");
    strip.BringToFront();
    strip.ClearPicture();
    const std::int32_t index = GetSEnvTabIndex(RoundHalfEven(x));
    strip.SetPicture(SEnvTabPicture(index));
    SwitchSEnvTab(index);
  });
}

void Navigation::CollectMainTab() {
  switch (ctx_.state.mainTab) {
    case kSalesEnvironment:
      if (ctx_.state.sEnvTab == kProbe) ctx_.SavePage(TabPageId::kProbe);
      if (ctx_.state.sEnvTab == kClose) ctx_.SavePage(TabPageId::kClose);
      return;
    case kIboInfo:
      ctx_.SavePage(TabPageId::kInfo);
      return;
    case kIboNote:
      ctx_.SavePage(TabPageId::kNote);
      return;
    default:
      return;
  }
}

void Navigation::ShowMainFrame(std::int32_t index) {
  ctx_.Get<Frame>(kMainFrames[index]).SetVisible(true);
  for (std::int32_t other = 0; other < 5; ++other) {
    if (other != index) ctx_.Get<Frame>(kMainFrames[other]).SetVisible(false);
  }
}

void Navigation::SwitchMainTab(std::int32_t index) {
  RunMethod(EditorContext::Proc("SwitchMainTab"), [&] {
    CollectMainTab();
    ctx_.state.mainTab = index;
    switch (index) {
      case kEssentials:
        ctx_.essentials->InitEssentialsTab();
        break;
      case kSalesAdvisor:
        ctx_.advisorTab->InitSalesAdvisorTab();
        break;
      case kSalesEnvironment:
        if (TabPage* close = ctx_.Page(TabPageId::kClose)) close->Refresh();
        break;
      case kIboInfo:
      case kIboNote:
        break;
      default:
        return;
    }
    ShowMainFrame(index);
  });
}

void Navigation::SwitchSEnvTab(std::int32_t index) {
  RunMethod(EditorContext::Proc("SwitchSEnvTab"), [&] {
    ctx_.state.sEnvTab = index;
    ctx_.Get<PictureBox>("picSEnvTab").BringToFront();
    if (index < kProbe || index > kClose) return;
    ctx_.Get<Frame>(kSEnvFrames[index]).SetVisible(true);
    for (std::int32_t other = kProbe; other <= kClose; ++other) {
      if (other != index) ctx_.Get<Frame>(kSEnvFrames[other]).SetVisible(false);
    }
  });
}

}  // namespace pelkedit
