#pragma once

#include <cstdint>
#include <string>

namespace pelkedit {

class EditorContext;

// The advisor engine's set-up at a load, the Sales Advisor tab (advice text and sales-cycle
// graph) and the "Advisor says" button.
class AdvisorTab {
 public:
  explicit AdvisorTab(EditorContext& ctx) : ctx_(ctx) {}
  void Wire();

  void InitAdvisor();
  void InitSalesAdvisorTab();
  void RefreshAdvisorMsg();
  void InitSalesCycleGraph();

 private:
  void AdvisorSays(const char* procedure, bool showAdvisor);

  EditorContext& ctx_;
};

}  // namespace pelkedit
