#include "dialogs/frm_start_date.h"

#include "locale/mod_locale.h"
#include "platform/platform.h"
#include "trace/error_paths.h"
#include "widgets/controls.h"

namespace pelkedit {
namespace {

constexpr int kDialogWidth = 260;
constexpr int kDialogHeight = 110;
constexpr float Px(float pixels) {
  return pixels * kTwipsPerPixel;
}

std::string Proc(std::string_view procedure) {
  return Qualified(FrmStartDate::kName, procedure);
}

}  // namespace

FrmStartDate::FrmStartDate(IPlatform& platform) : platform_(platform) {
  auto& label = Widgets().Make<Label>("lblStartDate");
  label.SetCaption("&Start date:");
  label.Move(Px(16), Px(22), Px(80), Px(17));
  Widgets().Make<DateField>(kDateField).Move(Px(100), Px(18), Px(140), Px(22));
  auto& save = Widgets().Make<Button>(kSaveButton);
  save.SetCaption("Save");
  save.Move(Px(64), Px(68), Px(84), Px(26));
  save.onClick = [this] { CmdSaveClick(); };
  auto& cancel = Widgets().Make<Button>(kCancelButton);
  cancel.SetCaption("Cancel");
  cancel.Move(Px(156), Px(68), Px(84), Px(26));
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
