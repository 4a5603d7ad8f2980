#include "dialogs/frm_competitors.h"

#include "control/page_layout.h"
#include "trace/error_paths.h"

namespace pelkedit {
namespace {

constexpr int kDialogWidth = 360;
constexpr int kDialogHeight = 220;

std::string Proc(std::string_view procedure) {
  return Qualified(FrmCompetitors::kName, procedure);
}

}  // namespace

FrmCompetitors::FrmCompetitors() {
  PageLayout dialog(Widgets(), nullptr);
  auto& text = dialog.Place<TextBox>(kText, 12, 12, 336, 150);
  text.SetMultiline(true);
  auto& save = dialog.Place<Button>(kSaveButton, 160, 178, 100, 28);
  save.SetCaption("Save && Close");
  save.onClick = [this] { CmdSaveClick(); };
  auto& cancel = dialog.Place<Button>(kCancelButton, 268, 178, 80, 28);
  cancel.SetCaption("Cancel");
  cancel.onClick = [this] { CmdCancelClick(); };
}

int FrmCompetitors::WidthPixels() const {
  return kDialogWidth;
}
int FrmCompetitors::HeightPixels() const {
  return kDialogHeight;
}

void FrmCompetitors::SetCompetitors(const std::string& text) {
  Widgets().Get<TextBox>(kText).SetText(text);
}

void FrmCompetitors::CmdSaveClick() {
  ResumeNext statement(Proc("cmdSave_Click"));
  statement([&] { competitors_ = Widgets().Get<TextBox>(kText).Text(); });
  statement([&] { dialogCancel_ = false; });
  statement([&] { Close(); });
  statement.Leave();
}

void FrmCompetitors::CmdCancelClick() {
  ResumeNext statement(Proc("cmdCancel_Click"));
  statement([&] { dialogCancel_ = true; });
  statement([&] { Close(); });
  statement.Leave();
}

}  // namespace pelkedit
