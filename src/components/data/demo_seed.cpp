#include "data/demo_seed.h"

#include "contracts/names.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "data/data_error.h"
#include "data/demo_opportunities.h"
#include "products/product_text.h"
#include "record/ibo_properties.h"
#include "values/date.h"

namespace pelkor {
namespace {

using demo::DecisionMaker;
using demo::Opportunity;
using pelkedit::IRecord;
namespace prop = pelkedit::prop;

// Day 1460: the record's way of saying "no date".
constexpr std::int32_t kNoDateDay = 1460;
constexpr std::int32_t kTrialCloseSlots = 10;

pelkedit::Date DateOf(const char* text) {
  if (text[0] == '\0') {
    return pelkedit::Date::FromDayNumber(kNoDateDay);
  }
  const auto date = pelkedit::Date::Parse(text);
  if (!date) {
    data_detail::RaiseDataError("Demo data holds the malformed date \"" + std::string(text) +
                                "\".");
  }
  return *date;
}

// A decision maker's answers, one property each.
struct RoleProperties {
  const char* name;
  const char* known;
  const char* influence;
  const char* important;
  const char* relationship;
  const char* proof;
};
constexpr RoleProperties kEconomic{prop::DmEconName,         prop::DmEconKnown,
                                   prop::DmEconInfluence,    prop::DmEconImportant,
                                   prop::DmEconRelationship, prop::DmEconDOP};
constexpr RoleProperties kTechnical{prop::DmTechName,         prop::DmTechKnown,
                                    prop::DmTechInfluence,    prop::DmTechImportant,
                                    prop::DmTechRelationship, prop::DmTechDOP};
constexpr RoleProperties kUser{prop::DmUserName,         prop::DmUserKnown,
                               prop::DmUserInfluence,    prop::DmUserImportant,
                               prop::DmUserRelationship, prop::DmUserDOP};

void SetDecisionMaker(IRecord& record, const RoleProperties& role, const DecisionMaker& dm) {
  record.Set(role.name, dm.name);
  record.Set(role.known, dm.name[0] != '\0');
  record.Set(role.influence, dm.influence);
  record.Set(role.important, dm.important);
  record.Set(role.relationship, dm.relationship);
  record.Set(role.proof, dm.proof);
}

void SetAnswers(IRecord& record, const Opportunity& o) {
  record.Set(prop::WIH, o.wih);
  record.Set(prop::WWGI, o.wwgi);
  record.Set(prop::AdvisorWih, o.wih);
  record.Set(prop::AdvisorWwgi, o.wwgi);
  record.Set(prop::UserPriority, o.userPriority);
  record.Set(prop::AdvisorPriority, o.advisorPriority);
  record.Set(prop::SEnvLevelNeed, o.levelNeed);
  record.Set(prop::SEnvSolMatch, o.solutionMatch);
  record.Set(prop::SEnvCustomerNeed, o.urgency);
  record.Set(prop::SEnvBudgetMatch, o.budgetMatch);
  record.Set(prop::SEnvFunding, o.funding);
  record.Set(prop::SEnvFamOrg, o.familiarity);
  record.Set(prop::SEnvCompPressure, o.compPressure);
  SetDecisionMaker(record, kEconomic, o.econ);
  SetDecisionMaker(record, kTechnical, o.tech);
  SetDecisionMaker(record, kUser, o.user);
  record.Set(prop::Competitors, o.competitors);
}

// Enacted trial closes fill the ring from `ringFirst` on, wrapping after slot 9; the one
// being worked on takes the slot after them.
void SetTrialCloses(IRecord& record, const Opportunity& o) {
  std::int32_t slot = o.ringFirst;
  for (const demo::TrialClose& close : o.history) {
    record.SetAt(prop::TrialCloseDate, slot, DateOf(close.enacted));
    record.SetAt(prop::CloseBarriers, slot, close.barriers);
    record.SetAt(prop::CloseStrategy, slot, close.strategy);
    slot = (slot + 1) % kTrialCloseSlots;
  }
  record.SetAt(prop::CloseBarriers, slot, o.current.barriers);
  record.SetAt(prop::CloseStrategy, slot, o.current.strategy);
  record.Set(prop::TrialCloseFirst, o.ringFirst);
  record.Set(prop::TrialCloseCurrent, slot);
  record.Set(prop::CloseTC, o.trialClose);
  record.Set(prop::CloseDecided, o.decided);
  record.Set(prop::CloseResult, o.result);
  record.Set(prop::CloseReason, o.reason);
  record.Set(prop::CloseWinBidder, o.winBidder);
}

void SetInfo(IRecord& record, const Opportunity& o) {
  record.Set(prop::ContactFirstName, o.contact.first);
  record.Set(prop::ContactLastName, o.contact.last);
  record.Set(prop::ContactCompany, o.contact.company);
  record.Set(prop::ContactAddress, o.contact.address);
  record.Set(prop::ContactPhone, o.contact.phone);
  record.Set(prop::ContactEmail, o.contact.email);
  // Stored in the product view's current form, with the total it works out.
  const ProductList products = ReadProductText(o.products);
  record.Set(prop::Products, WriteProductText(products));
  const pelkedit::Currency total = products.Total();
  record.Set(prop::TotalValueUnits, static_cast<double>(total.WholeUnits()));
  record.Set(prop::TotalValueHundredths, static_cast<double>(total.Hundredths()));
  record.Set(prop::IboNote, o.note);
}

// The last day someone worked on the opportunity: its latest recorded event.
pelkedit::Date LastTouched(const Opportunity& o) {
  pelkedit::Date last = DateOf(o.started);
  for (const demo::TrialClose& close : o.history) {
    last = std::max(last, DateOf(close.enacted));
  }
  return std::max(last, DateOf(o.closed));
}

pelkedit::Blob Encode(const Opportunity& o) {
  const auto record = CreateIboProperties();
  record->Set(prop::IboId, o.id);
  record->Set(prop::IboNumber, o.id);
  record->Set(prop::Status, o.status);
  record->Set(prop::ExpertMode, o.expert);
  record->Set(prop::StartDate, DateOf(o.started));
  record->Set(prop::WwihDate, DateOf(o.happens));
  record->Set(prop::CloseDate, DateOf(o.closed));
  record->Set(prop::ModifiedDate, LastTouched(o));
  SetAnswers(*record, o);
  SetTrialCloses(*record, o);
  SetInfo(*record, o);
  return record->GetIboData();
}

}  // namespace

int SeedDemoData(IIboStore& db) {
  std::vector<IboEntry> entries;
  for (const auto& group : {demo::OpenOpportunities(), demo::ClosedOpportunities()}) {
    for (const Opportunity& o : group) {
      entries.push_back({o.table, Encode(o)});
    }
  }
  const int added = db.AddMissing(entries);
  db.AddContacts(DemoContacts());
  return added;
}

}  // namespace pelkor
