#pragma once

#include <string>

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
  PageCaption Caption() const override { return {"Sales Environment", "Probe"}; }
  std::span<const HelpLink> HelpTopics() const override;
  void Build(WidgetRegistry& widgets, Frame& frame) override;
  void Wire() override;
  void Load() override { InitSEnvProbe(); }
  void Collect(CollectReason /*reason*/) override { SaveSEnvProbeTab(); }
  void HostChanged(HostChange change) override;

  void InitSEnvProbe();
  void SaveSEnvProbeTab();
  void UpdateSEnvQuestion(ListBox& list, const char* label, const char* fact, const char* property);
  void UpdateSEnvProbeDmInfluence(const DecisionMaker& dm);
  void UpdateSEnvProbeDmName(const DecisionMaker& dm);
  void UpdateSEnvProbeDmImportant(const DecisionMaker& dm);
  // The name of the contact picked in the contact book: last name alone, first name alone, or
  // both with one space, cut to 30 characters.
  void LookupDmName(bool& cancelled, std::string& name);

 private:
  void CmdSenvCompetitorsClick();
  void DmLookupClick(const DecisionMaker& dm);

  EditorContext& ctx_;
};

}  // namespace pelkedit
