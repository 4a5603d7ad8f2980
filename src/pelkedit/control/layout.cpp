#include "control/layout.h"

#include "contracts/names.h"
#include "control/page_layout.h"
#include "values/error.h"

namespace pelkedit {
namespace {

// The component's area and the frames the main tabs show, in pixels.
constexpr float kFormWidth = 600;
constexpr float kFrameTop = 24;
constexpr float kFrameHeight = 336;
constexpr float kButtonTop = 368;
constexpr float kButtonWidth = 84;
constexpr float kButtonHeight = 26;
constexpr float kButtonGap = 8;
constexpr float kPhaseStripLeft = 8;
constexpr float kPhaseStripTop = 4;
constexpr float kPhaseFrameTop = 28;

const char* const kMainFrames[] = {"fraMainEssentials", "fraMainSalesAdvisor",
                                   "fraMainSalesEnvironment", "fraMainIBOInfo", "fraMainIBONote"};
const char* const kPhaseFrames[] = {"fraMainSEnvProbe", "fraMainSEnvProve", "fraMainSEnvClose"};

template <std::size_t N>
const char* Entry(const char* const (&names)[N], std::int32_t index) {
  if (index < 0 || index >= static_cast<std::int32_t>(N)) Raise(errnum::kSubscriptOutOfRange, "");
  return names[index];
}

}  // namespace

const char* MainFrameName(std::int32_t mainTab) {
  return Entry(kMainFrames, mainTab);
}

const char* PhaseFrameName(std::int32_t phase) {
  return Entry(kPhaseFrames, phase);
}

Frame& FrameOf(WidgetRegistry& widgets, const TabPlace& place) {
  if (place.phase != tab::kNoPhase) return widgets.Get<Frame>(PhaseFrameName(place.phase));
  return widgets.Get<Frame>(MainFrameName(place.mainTab));
}

void BuildEditorShell(WidgetRegistry& widgets) {
  PageLayout form(widgets, nullptr);
  const TabStrip& mainStrip = ExpertMainStrip();
  form.Place<PictureBox>(widget::picMainTab, 0, 0, static_cast<float>(mainStrip.widthPixels),
                         static_cast<float>(mainStrip.heightPixels))
      .SetTakesFocus(true);
  for (const char* name : kMainFrames) {
    // A larger window gives its room to the pages.
    form.Place<Frame>(name, 0, kFrameTop, kFormWidth, kFrameHeight).SetAnchors(anchor::kFill);
  }

  PageLayout environment(widgets, widgets.Get<Frame>(MainFrameName(tab::kSalesEnvironment)));
  const TabStrip& phases = PhaseStrip();
  auto& phaseStrip = environment.Place<PictureBox>(
      widget::picSEnvTab, kPhaseStripLeft, kPhaseStripTop, static_cast<float>(phases.widthPixels),
      static_cast<float>(phases.heightPixels));
  phaseStrip.SetTakesFocus(true);
  // No phase is pressed yet: the strip shows the first.
  phaseStrip.SetDesignPicture(phases.firstPicture);
  for (const char* name : kPhaseFrames) {
    environment.Place<Frame>(name, 0, kPhaseFrameTop, kFormWidth, kFrameHeight - kPhaseFrameTop)
        .SetAnchors(anchor::kFill);
  }
}

void BuildEditorButtons(WidgetRegistry& widgets) {
  PageLayout form(widgets, nullptr);
  auto& save = form.Place<Button>(widget::cmdSave, kFormWidth - 2 * kButtonWidth - 2 * kButtonGap,
                                  kButtonTop, kButtonWidth, kButtonHeight);
  save.SetCaption("&Save");
  save.SetDescription("Saves the IBO and closes it.");
  // Save and Cancel stay in the bottom right corner.
  save.SetAnchors(anchor::kCorner);
  auto& cancel = form.Place<Button>(widget::cmdCancel, kFormWidth - kButtonWidth - kButtonGap,
                                    kButtonTop, kButtonWidth, kButtonHeight);
  cancel.SetCaption("&Cancel");
  cancel.SetDescription("Closes the IBO; unsaved changes are asked about first.");
  cancel.SetAnchors(anchor::kCorner);
}

}  // namespace pelkedit
