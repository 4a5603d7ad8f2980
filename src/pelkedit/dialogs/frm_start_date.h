#pragma once

#include <string>

#include "platform/modal_dialog.h"
#include "values/date.h"

namespace pelkedit {

class IPlatform;

// The start-date dialog: the user picks a new start date no later than the WWIH date.
class FrmStartDate : public ModalDialog {
 public:
  explicit FrmStartDate(IPlatform& platform);

  static constexpr const char* kName = "frmStartDate";
  static constexpr const char* kDateField = "dteStartDate";
  static constexpr const char* kSaveButton = "cmdSave";
  static constexpr const char* kCancelButton = "cmdCancel";
  std::string Name() const override { return kName; }
  std::string Caption() const override { return "Change Start Date"; }
  int WidthPixels() const override;
  int HeightPixels() const override;
  std::string DefaultButton() const override { return kSaveButton; }
  std::string CancelButton() const override { return kCancelButton; }
  std::vector<std::string> InputFields() const override { return {kDateField}; }

  void DialogInit(const Date& start, const Date& wwihDate);
  Date StartDate() const { return startDate_; }
  bool DialogCancel() const { return dialogCancel_; }

 protected:
  void OnLoad() override { dialogCancel_ = true; }

 private:
  void CmdSaveClick();
  void CmdCancelClick();

  IPlatform& platform_;
  Date startDate_;
  Date wwihDate_;
  bool dialogCancel_ = true;
};

}  // namespace pelkedit
