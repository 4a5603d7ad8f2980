#include "dialogs/frm_start_date.h"

#include "control/page_layout.h"
#include "locale/mod_locale.h"
#include "platform/platform.h"
#include "trace/error_paths.h"
#include "widgets/controls.h"

namespace pelkedit {
namespace {

constexpr int kDialogWidth = 260;
constexpr int kDialogHeight = 110;

std::string Proc(std::string_view procedure) {
  return Qualified(FrmStartDate::kName, procedure);
}

}  // namespace

FrmStartDate::FrmStartDate(IPlatform& platform) : platform_(platform) {
  PageLayout dialog(Widgets(), nullptr);
  dialog.Place<Label>("lblStartDate", 16, 22, 80, 17).SetCaption("&Start date:");
  dialog.Place<DateField>(kDateField, 100, 18, 140, 22);
  auto& save = dialog.Place<Button>(kSaveButton, 64, 68, 84, 26);
  save.SetCaption("Save");
  save.onClick = [this] { CmdSaveClick(); };
  auto& cancel = dialog.Place<Button>(kCancelButton, 156, 68, 84, 26);
  cancel.SetCaption("Cancel");
  cancel.onClick = [this] { CmdCancelClick(); };
}

int FrmStartDate::WidthPixels() const {
  return kDialogWidth;
}
int FrmStartDate::HeightPixels() const {
  return kDialogHeight;
}

void FrmStartDate::DialogInit(const Date& start, const Date& wwihDate) {
  RunMethod(Proc("DialogInit"), [&] {
    Widgets().Get<DateField>(kDateField).SetDay(DayNumberOf(start));
    wwihDate_ = wwihDate;
  });
}

void FrmStartDate::CmdSaveClick() {
  ResumeNext statement(Proc("cmdSave_Click"));
  statement.OnError([this] { dialogCancel_ = true; });
  statement([&] { Widgets().Get<Button>(kSaveButton).SetFocus(); });
  statement([&] {
    const Date chosen = GetDateFromLong(Widgets().Get<DateField>(kDateField).Day());
    if (chosen <= wwihDate_) {
      startDate_ = chosen;
      dialogCancel_ = false;
      Close();
      return;
    }
    platform_.MsgBox("IBO start date must be less or equal to WWIH date.", MsgIcon::kExclamation,
                     MsgButtons::kOk, "Invalid date entered");
    dialogCancel_ = true;
  });
  statement.Leave();
}

void FrmStartDate::CmdCancelClick() {
  dialogCancel_ = true;
  Close();
}

}  // namespace pelkedit
