#include "contracts/names.h"
#include "control/editor_context.h"
#include "control/page_layout.h"
#include "tabs/advisor/advisor_tab.h"
#include "trace/error_paths.h"

namespace pelkedit {

void AdvisorTab::Build(WidgetRegistry& widgets, Frame& frame) {
  PageLayout page(widgets, frame);
  page.Place<RichTextBox>(widget::rtfAdvisorMsg, 10, 10, 300, 316);
  page.Caption("lblAdvisorSCGraph", 328, 10, 250, "Sales Cycle Graph");
  page.Place<PictureBox>(widget::picSalesCycle, 328, 30, 250, 117);
  page.Place<PictureBox>(widget::picLine, 328, 43, 8, 101);
  auto& caption = page.Place<TextBox>(widget::txtSalesCycle, 328, 155, 250, 40);
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
