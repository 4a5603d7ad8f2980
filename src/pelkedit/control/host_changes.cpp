#include "control/host_changes.h"

#include "contracts/names.h"
#include "control/answer.h"
#include "control/caption.h"
#include "control/editor_context.h"
#include "control/navigation.h"
#include "dialogs/frm_start_date.h"
#include "trace/error_paths.h"

namespace pelkedit {

// Every page takes the change in list order, then the pages of the current tab redraw.
void HostChanges::TellPages(HostChange change) {
  ctx_.ForPages([&](TabPage& page) { page.HostChanged(change); });
  ctx_.ForPagesOn(ctx_.state.mainTab, tab::kNoPhase,
                  [&](TabPage& page) { page.RedrawShown(change); });
}

void HostChanges::IboChangeStartDate() {
  RunMethod(EditorContext::Proc("IboChangeStartDate"), [&] {
    FrmStartDate dialog(ctx_.platform);
    IRecord& rec = ctx_.Rec();
    dialog.DialogInit(rec.Get(prop::StartDate).AsDate(), rec.Get(prop::WwihDate).AsDate());
    ctx_.platform.ShowModal(dialog);
    if (dialog.DialogCancel() || dialog.StartDate() == rec.Get(prop::StartDate).AsDate()) return;
    // The start date copies the user's priority first, then the four results.
    CommitAnswer(ctx_, {"Start Date", kAlways}, fact::StartDate, prop::StartDate,
                 dialog.StartDate(),
                 {fact::UserPriority, fact::AdvisorPriority, fact::AdvisorWih, fact::AdvisorWwgi,
                  fact::AdvisorExtraResult});
    UpdateIboStartDateChanged();
  });
}

void HostChanges::UpdateIboStartDateChanged() {
  RunMethod(EditorContext::Proc("UpdateIboStartDateChanged"),
            [&] { TellPages(HostChange::kStartDate); });
}

void HostChanges::IboChangeStatus(std::int32_t status) {
  RunMethod(EditorContext::Proc("IboChangeStatus"), [&] {
    ctx_.EditRecord({"Status", kAlways}, [&] {
      IAdvisor& advisor = ctx_.Adv();
      IRecord& rec = ctx_.Rec();
      advisor.Set(fact::Status, status);
      advisor.Set(fact::CloseDate, ctx_.platform.Now());
      rec.Set(prop::CloseDate, ctx_.platform.Now());
      advisor.Evaluate();
      rec.Set(prop::Status, status);
      ctx_.CopyAdvisorResults(kAdvisorResults);
    });
    UpdateIboStatusChanged(status);
  });
}

void HostChanges::UpdateIboStatusChanged(std::int32_t status) {
  RunMethod(EditorContext::Proc("UpdateIboStatusChanged"), [&] {
    TellPages(HostChange::kStatus);
    IRecord& rec = ctx_.Rec();
    ctx_.events.SetFormCaption(
        FormCaption(rec.Get(prop::IboNumber).AsLong(), rec.StatusText(status)));
    ctx_.events.SetIBOStatus(status);
  });
}

void HostChanges::IboUpgradeToExpert() {
  RunMethod(EditorContext::Proc("IboUpgradeToExpert"), [&] {
    IRecord& rec = ctx_.Rec();
    if (rec.Get(prop::ExpertMode).AsBool()) {
      ctx_.platform.MsgBox("The current IBO record is already in Expert Advisor mode.",
                           MsgIcon::kInformation, MsgButtons::kOk, "Expert Mode");
      return;
    }
    ctx_.state.expertView = true;
    CommitAnswer(ctx_, {"Expert Mode", kAlways}, fact::ExpertMode, prop::ExpertMode, true,
                 kAdvisorResults);
    UpdateUpgradeToExpert();
    ctx_.events.SetExpertMode(true);
  });
}

void HostChanges::UpdateUpgradeToExpert() {
  RunMethod(EditorContext::Proc("UpdateUpgradeToExpert"), [&] {
    ctx_.navigation->LoadMainTabPictures(true);
    auto& strip = ctx_.Get<PictureBox>(widget::picMainTab);
    strip.ClearPicture();
    strip.SetPicture(ctx_.navigation->MainTabPicture(ctx_.state.mainTab));
    TellPages(HostChange::kUpgrade);
  });
}

}  // namespace pelkedit
