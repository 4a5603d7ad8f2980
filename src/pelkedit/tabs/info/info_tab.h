#pragma once

#include <string>

#include "control/tab_page.h"

namespace pelkedit {

class EditorContext;
class TextBox;

// The IBO Info page: the customer's contact.
class InfoTab : public TabPage {
 public:
  explicit InfoTab(EditorContext& ctx) : ctx_(ctx) {}

  TabPlace Place() const override { return {tab::kIboInfo}; }
  void Build(WidgetRegistry& widgets, Frame& frame) override;
  void Wire() override;
  void Load() override { InitIBOInfo(); }
  void Collect(CollectReason /*reason*/) override { SaveIBOInfoTab(); }

  // Sets the typing limits of the contact fields and fills them (the host may call it too).
  void InitIBOInfo();
  void InitContactInfo();
  void IBOInfoSaveContactField(TextBox& box, const std::string& property);
  void SaveIBOInfoTab();

 private:
  EditorContext& ctx_;
};

}  // namespace pelkedit
