#include "contracts/advisor.h"
#include "contracts/names.h"
#include "contracts/pictures.h"
#include "control/editor_context.h"
#include "control/page_layout.h"
#include "tabs/advisor/advisor_tab.h"
#include "trace/error_paths.h"

namespace pelkedit {
namespace {
// The graph's cycle runs from 2 to 246 pixels; its phase captions fill the top 14 pixels.
constexpr double kGraphCycleLeft = 2;
constexpr double kGraphCycleWidth = 244;
constexpr float kGraphCaptionHeight = 14;
// The graph, and each phase caption on it.
constexpr HelpLink kHelpTopics[] = {
    HelpLink{"lblAdvisorSCGraph", 11},
    HelpLink{"lblSCProbe", 12},
    HelpLink{"lblSCProve", 13},
    HelpLink{"lblSCClose", 14},
};

}  // namespace

std::span<const HelpLink> AdvisorTab::HelpTopics() const {
  return kHelpTopics;
}

void AdvisorTab::Build(WidgetRegistry& widgets, Frame& frame) {
  PageLayout page(widgets, frame);
  // A larger window gives its room to the advice; the graph stays at the right edge.
  auto& advice = page.Place<RichTextBox>(widget::rtfAdvisorMsg, 10, 10, 300, 316);
  advice.SetDescription("The advisor's advice");
  advice.SetAnchors(anchor::kFill);
  page.Caption("lblAdvisorSCGraph", 328, 10, 250, "Sales Cycle Graph")
      .SetAnchors(anchor::kFollowRight);
  auto& graph = page.Place<PictureBox>(widget::picSalesCycle, 328, 30, 250, 117);
  graph.SetAnchors(anchor::kFollowRight);
  graph.SetDesignPicture(picture::kSalesCycle);
  // The phase captions at the top of the graph, each a label that opens its phase's help.
  const double phaseStarts[] = {0, cycle::kProveStarts, cycle::kCloseStarts, 1};
  const char* const phaseLabels[] = {"lblSCProbe", "lblSCProve", "lblSCClose"};
  for (int i = 0; i < 3; ++i) {
    const auto left = static_cast<float>(kGraphCycleLeft + kGraphCycleWidth * phaseStarts[i]);
    const auto width = static_cast<float>(kGraphCycleWidth * (phaseStarts[i + 1] - phaseStarts[i]));
    page.PlaceInPicture<Label>(phaseLabels[i], graph, left, 0, width, kGraphCaptionHeight);
  }
  auto& marker = page.Place<PictureBox>(widget::picLine, 328, 43, 8, 101);
  marker.SetAnchors(anchor::kFollowRight);
  marker.SetDesignPicture(picture::kCycleMarker);
  auto& caption = page.Place<TextBox>(widget::txtSalesCycle, 328, 155, 250, 40);
  caption.SetAnchors(anchor::kFollowRight);
  caption.SetMultiline(true);
  caption.SetLocked(true);
}

void AdvisorTab::InitSalesAdvisorTab() {
  RunMethod(EditorContext::Proc("InitSalesAdvisorTab"), [&] {
    ctx_.Adv().Evaluate();
    InitSalesCycleGraph();
    RefreshAdvisorMsg();
  });
}

// Every host change moves the advice and the graph of a shown Sales Advisor tab.
void AdvisorTab::RedrawShown(HostChange /*change*/) {
  InitSalesCycleGraph();
  RefreshAdvisorMsg();
}

}  // namespace pelkedit
