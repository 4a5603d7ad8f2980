#include "data/demo_seed.h"

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

void SetDecisionMaker(IRecord& record, const std::string& role, const DecisionMaker& dm) {
  const std::string prefix = "Dm" + role;
  record.Set(prefix + "Name", dm.name);
  record.Set(prefix + "Known", dm.name[0] != '\0');
  record.Set(prefix + "Influence", dm.influence);
  record.Set(prefix + "Important", dm.important);
  record.Set(prefix + "Relationship", dm.relationship);
  record.Set(prefix + "DOP", dm.proof);
}

void SetAnswers(IRecord& record, const Opportunity& o) {
  record.Set("WIH", o.wih);
  record.Set("WWGI", o.wwgi);
  record.Set("AdvisorWih", o.wih);
  record.Set("AdvisorWwgi", o.wwgi);
  record.Set("UserPriority", o.userPriority);
  record.Set("AdvisorPriority", o.advisorPriority);
  record.Set("SEnvLevelNeed", o.levelNeed);
  record.Set("SEnvSolMatch", o.solutionMatch);
  record.Set("SEnvCustomerNeed", o.urgency);
  record.Set("SEnvBudgetMatch", o.budgetMatch);
  record.Set("SEnvFunding", o.funding);
  record.Set("SEnvFamOrg", o.familiarity);
  record.Set("SEnvCompPressure", o.compPressure);
  SetDecisionMaker(record, "Econ", o.econ);
  SetDecisionMaker(record, "Tech", o.tech);
  SetDecisionMaker(record, "User", o.user);
  record.Set("Competitors", o.competitors);
}

// Enacted trial closes fill the ring from `ringFirst` on, wrapping after slot 9; the one
// being worked on takes the slot after them.
void SetTrialCloses(IRecord& record, const Opportunity& o) {
  std::int32_t slot = o.ringFirst;
  for (const demo::TrialClose& close : o.history) {
    record.SetAt("TrialCloseDate", slot, DateOf(close.enacted));
    record.SetAt("CloseBarriers", slot, close.barriers);
    record.SetAt("CloseStrategy", slot, close.strategy);
    slot = (slot + 1) % kTrialCloseSlots;
  }
  record.SetAt("CloseBarriers", slot, o.current.barriers);
  record.SetAt("CloseStrategy", slot, o.current.strategy);
  record.Set("TrialCloseFirst", o.ringFirst);
  record.Set("TrialCloseCurrent", slot);
  record.Set("CloseTC", o.trialClose);
  record.Set("CloseDecided", o.decided);
  record.Set("CloseResult", o.result);
  record.Set("CloseReason", o.reason);
  record.Set("CloseWinBidder", o.winBidder);
}

void SetInfo(IRecord& record, const Opportunity& o) {
  record.Set("ContactFirstName", o.contact.first);
  record.Set("ContactLastName", o.contact.last);
  record.Set("ContactCompany", o.contact.company);
  record.Set("ContactAddress", o.contact.address);
  record.Set("ContactPhone", o.contact.phone);
  record.Set("ContactEmail", o.contact.email);
  // Stored in the product view's current form, with the total it works out.
  const ProductList products = ReadProductText(o.products);
  record.Set("Products", WriteProductText(products));
  const pelkedit::Currency total = products.Total();
  record.Set("TotalValueUnits", static_cast<double>(total.WholeUnits()));
  record.Set("TotalValueHundredths", static_cast<double>(total.Hundredths()));
  record.Set("IboNote", o.note);
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
  record->Set("IboId", o.id);
  record->Set("IboNumber", o.id);
  record->Set("Status", o.status);
  record->Set("ExpertMode", o.expert);
  record->Set("StartDate", DateOf(o.started));
  record->Set("WwihDate", DateOf(o.happens));
  record->Set("CloseDate", DateOf(o.closed));
  record->Set("ModifiedDate", LastTouched(o));
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
