#include "control/host_changes.h"

#include "control/caption.h"
#include "control/editor_context.h"
#include "control/navigation.h"
#include "dialogs/frm_start_date.h"
#include "tabs/advisor/advisor_tab.h"
#include "tabs/advisor/matrix_priority.h"
#include "trace/error_paths.h"

namespace pelkedit {

// What every host change copies back, after the start date's own UserPriority.
void HostChanges::CopyBack() {
  ctx_.CopyAdvisorResults({"AdvisorPriority", "AdvisorWih", "AdvisorWwgi", "AdvisorExtraResult"});
}

void HostChanges::RefreshSalesAdvisorIfShown() {
  if (ctx_.state.mainTab != Navigation::kSalesAdvisor) return;
  ctx_.advisorTab->InitSalesCycleGraph();
  ctx_.advisorTab->RefreshAdvisorMsg();
}

void HostChanges::IboChangeStartDate() {
  RunMethod(EditorContext::Proc("IboChangeStartDate"), [&] {
    FrmStartDate dialog(ctx_.platform);
    IRecord& rec = ctx_.Rec();
    dialog.DialogInit(rec.Get("StartDate").AsDate(), rec.Get("WwihDate").AsDate());
    ctx_.platform.ShowModal(dialog);
    if (dialog.DialogCancel() || dialog.StartDate() == rec.Get("StartDate").AsDate()) return;
    IAdvisor& advisor = ctx_.Adv();
    advisor.Set("StartDate", dialog.StartDate());
    advisor.Evaluate();
    rec.Set("StartDate", dialog.StartDate());
    ctx_.CopyAdvisorResults({"UserPriority"});
    CopyBack();
    ctx_.MarkIboAsDirty();
    UpdateIboStartDateChanged();
  });
}

void HostChanges::UpdateIboStartDateChanged() {
  RunMethod(EditorContext::Proc("UpdateIboStartDateChanged"), [&] {
    if (TabPage* close = ctx_.Page(TabPageId::kClose)) close->Refresh();
    if (ctx_.state.mainTab == Navigation::kEssentials) ctx_.matrix->RefreshPriorityInfo(false);
    RefreshSalesAdvisorIfShown();
  });
}

void HostChanges::IboChangeStatus(std::int32_t status) {
  RunMethod(EditorContext::Proc("IboChangeStatus"), [&] {
    IAdvisor& advisor = ctx_.Adv();
    IRecord& rec = ctx_.Rec();
    advisor.Set("Status", status);
    advisor.Set("CloseDate", ctx_.platform.Now());
    rec.Set("CloseDate", ctx_.platform.Now());
    advisor.Evaluate();
    rec.Set("Status", status);
    CopyBack();
    ctx_.MarkIboAsDirty();
    UpdateIboStatusChanged(status);
  });
}

void HostChanges::UpdateIboStatusChanged(std::int32_t status) {
  RunMethod(EditorContext::Proc("UpdateIboStatusChanged"), [&] {
    if (TabPage* close = ctx_.Page(TabPageId::kClose)) close->Refresh();
    RefreshSalesAdvisorIfShown();
    IRecord& rec = ctx_.Rec();
    ctx_.events.SetFormCaption(FormCaption(rec.Get("IboNumber").AsLong(), rec.StatusText(status)));
    ctx_.events.SetIBOStatus(status);
  });
}

void HostChanges::IboUpgradeToExpert() {
  RunMethod(EditorContext::Proc("IboUpgradeToExpert"), [&] {
    IRecord& rec = ctx_.Rec();
    if (rec.Get("ExpertMode").AsBool()) {
      ctx_.platform.MsgBox("The current IBO record is already in Expert Advisor mode.",
                           MsgIcon::kInformation, MsgButtons::kOk, "Expert Mode");
      return;
    }
    ctx_.state.expertView = true;
    IAdvisor& advisor = ctx_.Adv();
    advisor.Set("ExpertMode", true);
    advisor.Evaluate();
    rec.Set("ExpertMode", true);
    CopyBack();
    ctx_.MarkIboAsDirty();
    UpdateUpgradeToExpert();
    ctx_.events.SetExpertMode(true);
  });
}

void HostChanges::UpdateUpgradeToExpert() {
  RunMethod(EditorContext::Proc("UpdateUpgradeToExpert"), [&] {
    ctx_.navigation->LoadMainTabPictures(true);
    auto& strip = ctx_.Get<PictureBox>("picMainTab");
    strip.ClearPicture();
    strip.SetPicture(ctx_.navigation->MainTabPicture(ctx_.state.mainTab));
    ctx_.InitPage(TabPageId::kProbe);
    ctx_.InitPage(TabPageId::kProve);
    ctx_.InitPage(TabPageId::kClose);
    ctx_.Get<Button>("cmdAdvisorSays").SetVisible(true);
    RefreshSalesAdvisorIfShown();
  });
}

}  // namespace pelkedit
