#pragma once

#include "control/tab_page.h"

namespace pelkedit {

class EditorContext;
class ListBox;
class TextBox;
struct DecisionMaker;

// The Probe phase: seven questions about the customer, the competitors, and the three
// decision makers' names, influence and what matters to them.
class ProbeTab : public TabPage {
 public:
  explicit ProbeTab(EditorContext& ctx) : ctx_(ctx) {}

  TabPlace Place() const override { return {tab::kSalesEnvironment, tab::kProbe}; }
  void Build(WidgetRegistry& widgets, Frame& frame) override;
  void Wire() override;
  void Load() override { InitSEnvProbe(); }
  void Collect(CollectReason /*reason*/) override { SaveSEnvProbeTab(); }
  void HostChanged(HostChange change) override;

  void InitSEnvProbe();
  void SaveSEnvProbeTab();
  void UpdateSEnvQuestion(ListBox& list, const char* fact, const char* property);
  void UpdateSEnvProbeDmInfluence(const DecisionMaker& dm);
  void UpdateSEnvProbeDmName(const DecisionMaker& dm);
  void UpdateSEnvProbeDmImportant(const DecisionMaker& dm);

 private:
  void CmdSenvCompetitorsClick();

  EditorContext& ctx_;
};

}  // namespace pelkedit
