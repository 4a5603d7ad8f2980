#pragma once

#include <string>

#include "control/tab_page.h"

namespace pelkedit {

class EditorContext;
class IProductView;
class TextBox;

// The IBO Info page: the customer's contact and the products offered, with their total.
// One contact box of the page: its label, box, caption, property and length.
struct ContactField;

class InfoTab : public TabPage {
 public:
  explicit InfoTab(EditorContext& ctx) : ctx_(ctx) {}

  TabPlace Place() const override { return {tab::kIboInfo}; }
  PageCaption Caption() const override { return {"IBO Info"}; }
  void Build(WidgetRegistry& widgets, Frame& frame) override;
  void Wire() override;
  void Load() override { InitIBOInfo(); }
  void Collect(CollectReason /*reason*/) override { SaveIBOInfoTab(); }

  // Sets the typing limits of the contact fields and fills them (the host may call it too).
  void InitIBOInfo();
  void InitContactInfo();
  void InitProducts();
  void IBOInfoSaveProduct();
  void IBOInfoSaveProductValue();
  void IBOInfoSaveContactField(const ContactField& field);
  void SaveIBOInfoTab();
  // The contact picked in the contact book, as the dialog gives it.
  struct ContactFields {
    std::string first, last, address, company, phone, email;
  };
  void LookupContact(bool& cancelled, ContactFields& contact);

 private:
  void CmdContactLookupClick();
  IProductView& View() const;
  EditorContext& ctx_;
};

}  // namespace pelkedit
