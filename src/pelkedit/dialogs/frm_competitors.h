#pragma once

#include <string>

#include "platform/modal_dialog.h"

namespace pelkedit {

// The competitors dialog: the user edits the free-text list of competitors.
class FrmCompetitors : public ModalDialog {
 public:
  static constexpr const char* kName = "frmCompetitors";
  static constexpr const char* kText = "txtCompetitors";
  static constexpr const char* kSaveButton = "cmdSave";
  static constexpr const char* kCancelButton = "cmdCancel";

  FrmCompetitors();
  std::string Name() const override { return kName; }
  std::string Caption() const override { return "Competitors"; }
  int WidthPixels() const override;
  int HeightPixels() const override;
  std::string DefaultButton() const override { return kSaveButton; }
  std::string CancelButton() const override { return kCancelButton; }
  std::vector<std::string> InputFields() const override { return {kText}; }

  // Puts the text into the dialog's field.
  void SetCompetitors(const std::string& text);
  // The text the field held when "Save && Close" was pressed; empty otherwise.
  const std::string& Competitors() const { return competitors_; }
  bool DialogCancel() const { return dialogCancel_; }

 protected:
  // Any way of closing the window but the two buttons counts as a cancel.
  void OnLoad() override { dialogCancel_ = true; }

 private:
  void CmdSaveClick();
  void CmdCancelClick();

  std::string competitors_;
  bool dialogCancel_ = true;
};

}  // namespace pelkedit
