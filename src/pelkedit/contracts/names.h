#pragma once

#include <array>

// The names the editor reaches its collaborators and widgets by, each spelled once here. The
// components' tests check every record property and engine fact name against the record's
// schema and the engine's names, and the runner's tests every widget name against the widgets
// the editor builds, so a misspelt name fails a test instead of a user's edit.

// Record properties the editor reads or writes by name.
#define PELK_RECORD_PROPERTIES(X) \
  X(AdvisorExtraResult)           \
  X(AdvisorPriority)              \
  X(AdvisorWih)                   \
  X(AdvisorWwgi)                  \
  X(CleanFlag)                    \
  X(CloseBarriers)                \
  X(CloseDate)                    \
  X(CloseDecided)                 \
  X(CloseReason)                  \
  X(CloseResult)                  \
  X(CloseStrategy)                \
  X(CloseTC)                      \
  X(CloseWinBidder)               \
  X(Competitors)                  \
  X(CompetitorsKnown)             \
  X(ContactAddress)               \
  X(ContactCompany)               \
  X(ContactEmail)                 \
  X(ContactFirstName)             \
  X(ContactLastName)              \
  X(ContactPhone)                 \
  X(DirtyExempt)                  \
  X(DirtyFlag)                    \
  X(DmEconDOP)                    \
  X(DmEconImportant)              \
  X(DmEconImportantKnown)         \
  X(DmEconInfluence)              \
  X(DmEconKnown)                  \
  X(DmEconName)                   \
  X(DmEconRelationship)           \
  X(DmTechDOP)                    \
  X(DmTechImportant)              \
  X(DmTechImportantKnown)         \
  X(DmTechInfluence)              \
  X(DmTechKnown)                  \
  X(DmTechName)                   \
  X(DmTechRelationship)           \
  X(DmUserDOP)                    \
  X(DmUserImportant)              \
  X(DmUserImportantKnown)         \
  X(DmUserInfluence)              \
  X(DmUserKnown)                  \
  X(DmUserName)                   \
  X(DmUserRelationship)           \
  X(ExpertMode)                   \
  X(IboId)                        \
  X(IboNote)                      \
  X(IboNumber)                    \
  X(ModifiedDate)                 \
  X(Products)                     \
  X(SEnvBudgetMatch)              \
  X(SEnvCompPressure)             \
  X(SEnvCustomerNeed)             \
  X(SEnvFamOrg)                   \
  X(SEnvFunding)                  \
  X(SEnvLevelNeed)                \
  X(SEnvSolMatch)                 \
  X(StartDate)                    \
  X(Status)                       \
  X(TotalValueHundredths)         \
  X(TotalValueUnits)              \
  X(TrialCloseCurrent)            \
  X(TrialCloseDate)               \
  X(TrialCloseFact)               \
  X(TrialCloseFirst)              \
  X(UserPriority)                 \
  X(WIH)                          \
  X(WWGI)                         \
  X(WwihDate)

// Engine facts the editor sets and results it reads by name.
#define PELK_ENGINE_FACTS(X)  \
  X(AdvisorExtraResult)       \
  X(AdvisorPriority)          \
  X(AdvisorWih)               \
  X(AdvisorWwgi)              \
  X(BasicAdviceBody)          \
  X(BasicAdviceTitle)         \
  X(CloseDate)                \
  X(ExpertAdviceAlert)        \
  X(ExpertAdviceBody)         \
  X(ExpertAdviceHeading)      \
  X(ExpertAdviceTitle)        \
  X(ExpertMode)               \
  X(SalesCycleLine1)          \
  X(SalesCycleLine2)          \
  X(SalesCyclePosition)       \
  X(SEnvBudgetMatch)          \
  X(SEnvCompetitorsKnown)     \
  X(SEnvCompPressure)         \
  X(SEnvCustomerNeed)         \
  X(SEnvDmEconDOP)            \
  X(SEnvDmEconImportantKnown) \
  X(SEnvDmEconInfluence)      \
  X(SEnvDmEconNameKnown)      \
  X(SEnvDmEconRelationship)   \
  X(SEnvDmTechDOP)            \
  X(SEnvDmTechImportantKnown) \
  X(SEnvDmTechInfluence)      \
  X(SEnvDmTechNameKnown)      \
  X(SEnvDmTechRelationship)   \
  X(SEnvDmUserDOP)            \
  X(SEnvDmUserImportantKnown) \
  X(SEnvDmUserInfluence)      \
  X(SEnvDmUserNameKnown)      \
  X(SEnvDmUserRelationship)   \
  X(SEnvFamOrg)               \
  X(SEnvFunding)              \
  X(SEnvLevelNeed)            \
  X(SEnvSolMatch)             \
  X(StartDate)                \
  X(Status)                   \
  X(TrialCloseFact)           \
  X(UserPriority)             \
  X(WIH)                      \
  X(WWGI)                     \
  X(WwihDate)

// Widgets named by more than one part of the editor or by its hosts.
#define PELK_SHARED_WIDGETS(X) \
  X(cmdAdvisorSays)            \
  X(cmdCancel)                 \
  X(cmdSave)                   \
  X(deCloseDateEdit)           \
  X(deWwih)                    \
  X(dtWwih)                    \
  X(picAdvPriority)            \
  X(picLine)                   \
  X(picMainTab)                \
  X(picPmAdvSqr)               \
  X(picPmCmnSqr)               \
  X(picPmUserSqr)              \
  X(picProbabilitMatrix)       \
  X(picSalesCycle)             \
  X(picSEnvTab)                \
  X(picUserPriority)           \
  X(ProductView1)              \
  X(rtfAdvisorMsg)             \
  X(txtSalesCycle)

#define PELK_NAME_CONSTANT(name) inline constexpr const char* name = #name;
#define PELK_NAME_STRING(name) #name,

namespace pelkedit {
namespace prop {
PELK_RECORD_PROPERTIES(PELK_NAME_CONSTANT)
inline constexpr std::array kAll = {PELK_RECORD_PROPERTIES(PELK_NAME_STRING)};
}  // namespace prop
namespace fact {
PELK_ENGINE_FACTS(PELK_NAME_CONSTANT)
inline constexpr std::array kAll = {PELK_ENGINE_FACTS(PELK_NAME_STRING)};
}  // namespace fact
namespace widget {
PELK_SHARED_WIDGETS(PELK_NAME_CONSTANT)
inline constexpr std::array kAll = {PELK_SHARED_WIDGETS(PELK_NAME_STRING)};
}  // namespace widget
}  // namespace pelkedit

#undef PELK_NAME_CONSTANT
#undef PELK_NAME_STRING
