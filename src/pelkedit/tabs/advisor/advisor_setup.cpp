#include "contracts/advisor.h"
#include "control/editor_context.h"
#include "tabs/advisor/advisor_tab.h"
#include "tabs/advisor/matrix_priority.h"
#include "trace/error_paths.h"

namespace pelkedit {
namespace {

// Facts every engine is given at a load, from the record property of the same name.
const char* const kBasicFacts[] = {"Status", "CloseDate", "ExpertMode", "WIH",
                                   "WWGI",   "StartDate", "WwihDate"};

struct FactSource {
  const char* fact;
  const char* property;
};

// The sales-environment facts an expert engine is given, in the order it expects them.
const FactSource kExpertFacts[] = {
    {"SEnvBudgetMatch", "SEnvBudgetMatch"},
    {"SEnvCompetitorsKnown", "CompetitorsKnown"},
    {"SEnvCompPressure", "SEnvCompPressure"},
    {"SEnvCustomerNeed", "SEnvCustomerNeed"},
    {"SEnvDmEconInfluence", "DmEconInfluence"},
    {"SEnvDmEconNameKnown", "DmEconKnown"},
    {"SEnvDmEconDOP", "DmEconDOP"},
    {"SEnvDmEconRelationship", "DmEconRelationship"},
    {"SEnvDmEconImportantKnown", "DmEconImportantKnown"},
    {"SEnvDmTechInfluence", "DmTechInfluence"},
    {"SEnvDmTechNameKnown", "DmTechKnown"},
    {"SEnvDmTechDOP", "DmTechDOP"},
    {"SEnvDmTechRelationship", "DmTechRelationship"},
    {"SEnvDmTechImportantKnown", "DmTechImportantKnown"},
    {"SEnvDmUserInfluence", "DmUserInfluence"},
    {"SEnvDmUserNameKnown", "DmUserKnown"},
    {"SEnvDmUserDOP", "DmUserDOP"},
    {"SEnvDmUserRelationship", "DmUserRelationship"},
    {"SEnvDmUserImportantKnown", "DmUserImportantKnown"},
    {"SEnvFamOrg", "SEnvFamOrg"},
    {"SEnvFunding", "SEnvFunding"},
    {"SEnvLevelNeed", "SEnvLevelNeed"},
    {"SEnvSolMatch", "SEnvSolMatch"},
    {"TrialCloseFact", "TrialCloseFact"},
};

}  // namespace

void AdvisorTab::Wire() {
  auto& button = ctx_.Get<Button>("cmdAdvisorSays");
  button.onMouseDown = [this](int, int, float, float) {
    AdvisorSays("cmdAdvisorSays_MouseDown", true);
  };
  button.onMouseUp = [this](int, int, float, float) {
    AdvisorSays("cmdAdvisorSays_MouseUp", false);
  };
}

void AdvisorTab::AdvisorSays(const char* procedure, bool showAdvisor) {
  RunHandler(EditorContext::Proc(procedure), ctx_.platform, [&] {
    ctx_.matrix->RefreshMatrixInfo(showAdvisor);
    ctx_.matrix->RefreshPriorityInfo(showAdvisor);
  });
}

void AdvisorTab::InitAdvisor() {
  RunMethod(EditorContext::Proc("InitAdvisor"), [&] {
    auto engine = std::dynamic_pointer_cast<IAdvisor>(ctx_.platform.CreateObject(kAdvisorProgId));
    if (!engine) Raise(errnum::kTypeMismatch, kAdvisorProgId);
    ctx_.advisor = engine;
    IRecord& rec = ctx_.Rec();
    for (const char* fact : kBasicFacts) engine->Set(fact, rec.Get(fact));
    if (engine->Get("ExpertMode").AsBool()) {
      for (const FactSource& source : kExpertFacts) {
        engine->Set(source.fact, rec.Get(source.property));
      }
    }
    engine->Evaluate();
    ctx_.CopyAdvisorResults({"AdvisorWih", "AdvisorWwgi", "AdvisorPriority"});
    InitSalesCycleGraph();
  });
}

void AdvisorTab::InitSalesAdvisorTab() {
  RunMethod(EditorContext::Proc("InitSalesAdvisorTab"), [&] {
    ctx_.Adv().Evaluate();
    InitSalesCycleGraph();
    RefreshAdvisorMsg();
  });
}

}  // namespace pelkedit
