#include "contracts/advisor.h"
#include "contracts/names.h"
#include "control/editor_context.h"
#include "control/tab_page.h"
#include "trace/error_paths.h"

namespace pelkedit {
namespace {

// Facts every engine is given at a load, from the record property of the same name (the
// names are both facts and properties).
const char* const kBasicFacts[] = {fact::Status, fact::CloseDate, fact::ExpertMode, fact::WIH,
                                   fact::WWGI,   fact::StartDate, fact::WwihDate};

struct FactSource {
  const char* fact;
  const char* property;
};

// The sales-environment facts an expert engine is given, in the order it expects them.
const FactSource kExpertFacts[] = {
    {fact::SEnvBudgetMatch, prop::SEnvBudgetMatch},
    {fact::SEnvCompetitorsKnown, prop::CompetitorsKnown},
    {fact::SEnvCompPressure, prop::SEnvCompPressure},
    {fact::SEnvCustomerNeed, prop::SEnvCustomerNeed},
    {fact::SEnvDmEconInfluence, prop::DmEconInfluence},
    {fact::SEnvDmEconNameKnown, prop::DmEconKnown},
    {fact::SEnvDmEconDOP, prop::DmEconDOP},
    {fact::SEnvDmEconRelationship, prop::DmEconRelationship},
    {fact::SEnvDmEconImportantKnown, prop::DmEconImportantKnown},
    {fact::SEnvDmTechInfluence, prop::DmTechInfluence},
    {fact::SEnvDmTechNameKnown, prop::DmTechKnown},
    {fact::SEnvDmTechDOP, prop::DmTechDOP},
    {fact::SEnvDmTechRelationship, prop::DmTechRelationship},
    {fact::SEnvDmTechImportantKnown, prop::DmTechImportantKnown},
    {fact::SEnvDmUserInfluence, prop::DmUserInfluence},
    {fact::SEnvDmUserNameKnown, prop::DmUserKnown},
    {fact::SEnvDmUserDOP, prop::DmUserDOP},
    {fact::SEnvDmUserRelationship, prop::DmUserRelationship},
    {fact::SEnvDmUserImportantKnown, prop::DmUserImportantKnown},
    {fact::SEnvFamOrg, prop::SEnvFamOrg},
    {fact::SEnvFunding, prop::SEnvFunding},
    {fact::SEnvLevelNeed, prop::SEnvLevelNeed},
    {fact::SEnvSolMatch, prop::SEnvSolMatch},
    {fact::TrialCloseFact, prop::TrialCloseFact},
};

}  // namespace

void EditorContext::InitAdvisor(bool copyResults) {
  RunMethod(Proc("InitAdvisor"), [&] {
    auto engine = CreateObjectAs<IAdvisor>(platform, kAdvisorProgId);
    advisor = engine;
    IRecord& rec = Rec();
    for (const char* name : kBasicFacts) engine->Set(name, rec.Get(name));
    if (engine->Get(fact::ExpertMode).AsBool()) {
      for (const FactSource& source : kExpertFacts) {
        engine->Set(source.fact, rec.Get(source.property));
      }
    }
    engine->Evaluate();
    if (copyResults)
      CopyAdvisorResults({fact::AdvisorWih, fact::AdvisorWwgi, fact::AdvisorPriority});
    ForPages([](TabPage& page) { page.EngineReady(); });
  });
}

}  // namespace pelkedit
