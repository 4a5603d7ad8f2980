#pragma once

#include <cstdint>
#include <string>

#include "control/tab_page.h"
#include "tabs/advisor/matrix_priority.h"
#include "values/date.h"

namespace pelkedit {

class EditorContext;

// Will It Happen, Will We Get It and When Will It Happen, with the probability matrix, the
// priority and the "Advisor says" button.
class EssentialsTab : public TabPage {
 public:
  explicit EssentialsTab(EditorContext& ctx) : ctx_(ctx), matrix_(ctx) {}

  TabPlace Place() const override { return {tab::kEssentials}; }
  PageCaption Caption() const override { return {"Essentials"}; }
  std::span<const HelpLink> HelpTopics() const override;
  void Build(WidgetRegistry& widgets, Frame& frame) override;
  void Wire() override;
  void Load() override { InitIboEssentials(); }
  void Show() override { InitEssentialsTab(); }
  // Leaving the tab by its strip collects nothing; a save commits the typed date.
  void Collect(CollectReason reason) override;
  void HostChanged(HostChange change) override;
  void RedrawShown(HostChange change) override;

  void InitIboEssentials();
  void InitEssentialsTab();
  void SaveEssentialsTab();

 private:
  void Redraw();
  void SelectOption(const std::string& prefix, std::int32_t code);
  void AdvisorSays(const char* procedure, bool showAdvisor);
  void DeWwihLostFocus();
  void CommitTypedDate();
  void ApplyWwihDate(const Date& newDate);
  void InvalidWwihDate();
  void DeWwihClickDrop();
  void DtWwihDateClick(int day, int month, int year);

  EditorContext& ctx_;
  MatrixPriority matrix_;
};

}  // namespace pelkedit
