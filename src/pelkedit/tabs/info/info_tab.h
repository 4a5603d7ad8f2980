#pragma once

#include "control/tab_page.h"

namespace pelkedit {

class EditorContext;

// The IBO Info page: the customer's contact.
class InfoTab : public TabPage {
 public:
  explicit InfoTab(EditorContext& ctx) : ctx_(ctx) {}

  TabPlace Place() const override { return {tab::kIboInfo}; }
  void Build(WidgetRegistry& widgets, Frame& frame) override;
  void Load() override { InitIBOInfo(); }

  // Sets the typing limits of the contact fields (the host may call it too).
  void InitIBOInfo();

 private:
  EditorContext& ctx_;
};

}  // namespace pelkedit
