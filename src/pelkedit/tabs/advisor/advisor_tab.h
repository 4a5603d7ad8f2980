#pragma once

#include "control/tab_page.h"

namespace pelkedit {

class EditorContext;

// The Sales Advisor page: the advice text and the sales-cycle graph.
class AdvisorTab : public TabPage {
 public:
  explicit AdvisorTab(EditorContext& ctx) : ctx_(ctx) {}

  TabPlace Place() const override { return {tab::kSalesAdvisor}; }
  PageCaption Caption() const override { return {"Sales Advisor"}; }
  std::span<const HelpLink> HelpTopics() const override;
  void Build(WidgetRegistry& widgets, Frame& frame) override;
  void EngineReady() override { InitSalesCycleGraph(); }
  // The advice is built last in a load, from what every other page filled.
  void Load() override { RefreshAdvisorMsg(); }
  void Show() override { InitSalesAdvisorTab(); }
  void RedrawShown(HostChange change) override;

  void InitSalesAdvisorTab();
  void RefreshAdvisorMsg();
  void InitSalesCycleGraph();

 private:
  EditorContext& ctx_;
};

}  // namespace pelkedit
