#include "contracts/advisor.h"
#include "control/editor_context.h"
#include "control/tab_page.h"
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

void EditorContext::InitAdvisor() {
  RunMethod(Proc("InitAdvisor"), [&] {
    auto engine = std::dynamic_pointer_cast<IAdvisor>(platform.CreateObject(kAdvisorProgId));
    if (!engine) Raise(errnum::kTypeMismatch, kAdvisorProgId);
    advisor = engine;
    IRecord& rec = Rec();
    for (const char* fact : kBasicFacts) engine->Set(fact, rec.Get(fact));
    if (engine->Get("ExpertMode").AsBool()) {
      for (const FactSource& source : kExpertFacts) {
        engine->Set(source.fact, rec.Get(source.property));
      }
    }
    engine->Evaluate();
    CopyAdvisorResults({"AdvisorWih", "AdvisorWwgi", "AdvisorPriority"});
    ForPages([](TabPage& page) { page.EngineReady(); });
  });
}

}  // namespace pelkedit
