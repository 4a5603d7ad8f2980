#pragma once

#include <string>

#include "control/tab_page.h"

namespace pelkedit {

class EditorContext;
class ListBox;

// The Prove phase: for each decision maker found in the Probe phase, what was found (read
// only), the relationship, and how far the product has been proved to that person.
class ProveTab : public TabPage {
 public:
  explicit ProveTab(EditorContext& ctx) : ctx_(ctx) {}

  TabPlace Place() const override { return {tab::kSalesEnvironment, tab::kProve}; }
  PageCaption Caption() const override { return {"Sales Environment", "Prove"}; }
  std::span<const HelpLink> HelpTopics() const override;
  void Build(WidgetRegistry& widgets, Frame& frame) override;
  void Wire() override;
  // After the Probe phase, whose widgets it echoes.
  void Load() override { InitSEnvProve(); }
  void HostChanged(HostChange change) override;

  void InitSEnvProve();

 private:
  // UpdateSEnvProveDmRel and UpdateSEnvProveDmDOP: commit only what the engine does not hold.
  void UpdateAnswer(const char* procedure, const std::string& step, ListBox& list, const char* fact,
                    const char* property);

  EditorContext& ctx_;
};

}  // namespace pelkedit
