#include "fakes.h"

#include "locale/mod_locale.h"
#include "trace/err_object.h"
#include "values/error.h"

namespace pelkedit::testing {
namespace {

const Date kNoDate = Date::FromCivil(1904, 1, 1);

void RequireSameType(const Variant& stored, const Variant& value, const std::string& name) {
  if (stored.Type() != value.Type()) Raise(errnum::kTypeMismatch, name);
}

std::map<std::string, Variant> RecordDefaults() {
  std::map<std::string, Variant> p = {{"Status", std::int32_t{1}},
                                      {"ExpertMode", false},
                                      {"WIH", std::int32_t{1}},
                                      {"WWGI", std::int32_t{1}},
                                      {"AdvisorWih", std::int32_t{1}},
                                      {"AdvisorWwgi", std::int32_t{1}},
                                      {"UserPriority", std::int32_t{3}},
                                      {"AdvisorPriority", std::int32_t{3}},
                                      {"AdvisorExtraResult", std::int32_t{0}},
                                      {"StartDate", Date::FromCivil(2024, 1, 10)},
                                      {"WwihDate", Date::FromCivil(2024, 6, 30)},
                                      {"CloseDate", kNoDate},
                                      {"ModifiedDate", kNoDate},
                                      {"IboNumber", std::int32_t{7}},
                                      {"DirtyExempt", false},
                                      {"DirtyFlag", false},
                                      {"CleanFlag", true},
                                      {"CloseTC", std::int32_t{0}},
                                      {"CloseDecided", false},
                                      {"CloseResult", std::int32_t{0}},
                                      {"CompetitorsKnown", false},
                                      {"TrialCloseFact", std::int32_t{0}},
                                      {"IboNote", std::string()}};
  for (const char* role : {"Econ", "Tech", "User"}) {
    const std::string dm = std::string("Dm") + role;
    p[dm + "Known"] = false;
    p[dm + "ImportantKnown"] = false;
    p[dm + "Name"] = std::string();
    for (const char* field : {"Influence", "DOP", "Relationship"}) p[dm + field] = std::int32_t{-1};
  }
  for (const char* scale : {"SEnvBudgetMatch", "SEnvCompPressure", "SEnvCustomerNeed", "SEnvFamOrg",
                            "SEnvFunding", "SEnvLevelNeed", "SEnvSolMatch"}) {
    p[scale] = std::int32_t{-1};
  }
  return p;
}

// Every fact with its type (by a default value), and every result with the value it starts with.
std::map<std::string, Variant> AdvisorFacts() {
  std::map<std::string, Variant> f = {
      {"ExpertMode", false},          {"StartDate", kNoDate},
      {"WwihDate", kNoDate},          {"CloseDate", kNoDate},
      {"WIH", std::int32_t{0}},       {"WWGI", std::int32_t{0}},
      {"Status", std::int32_t{0}},    {"TrialCloseFact", std::int32_t{0}},
      {"SEnvCompetitorsKnown", false}};
  for (const char* scale : {"SEnvLevelNeed", "SEnvSolMatch", "SEnvCustomerNeed", "SEnvBudgetMatch",
                            "SEnvFunding", "SEnvFamOrg", "SEnvCompPressure"}) {
    f[scale] = std::int32_t{-1};
  }
  for (const char* role : {"Econ", "Tech", "User"}) {
    const std::string dm = std::string("SEnvDm") + role;
    f[dm + "NameKnown"] = false;
    f[dm + "ImportantKnown"] = false;
    for (const char* field : {"Influence", "DOP", "Relationship"}) f[dm + field] = std::int32_t{-1};
  }
  return f;
}

std::map<std::string, Variant> AdvisorResultDefaults() {
  std::map<std::string, Variant> r = {
      {"AdvisorWih", std::int32_t{1}},         {"AdvisorWwgi", std::int32_t{1}},
      {"UserPriority", std::int32_t{3}},       {"AdvisorPriority", std::int32_t{3}},
      {"AdvisorExtraResult", std::int32_t{0}}, {"SalesCyclePosition", 0.25}};
  for (const char* text :
       {"SalesCycleLine1", "SalesCycleLine2", "ExpertAdviceHeading", "ExpertAdviceTitle",
        "ExpertAdviceAlert", "ExpertAdviceBody", "BasicAdviceBody", "BasicAdviceTitle"}) {
    r[text] = std::string();
  }
  return r;
}

}  // namespace

void RaiseInjected(const std::string& what) {
  Raise(kInjectedError, what, "Injected failure: " + what);
}

MsgAnswer FakePlatform::MsgBox(const std::string& text, MsgIcon icon, MsgButtons buttons,
                               const std::string& title) {
  boxes.push_back({text, icon, buttons, title});
  if (answers.empty()) return MsgAnswer::kOk;
  const MsgAnswer answer = answers.front();
  answers.pop_front();
  return answer;
}

void FakePlatform::PostMessage(std::int32_t hwnd, std::uint32_t message, std::int32_t wparam,
                               std::int32_t lparam) {
  posts.push_back({hwnd, message, wparam, lparam});
}

void FakePlatform::SetScreenPointer(MousePointer p) {
  pointer = p;
  pointerChanges.push_back(p);
}

std::int32_t FakePlatform::GetLocaleInfoA(std::int32_t locale, std::int32_t lctype,
                                          std::string& buffer, std::int32_t size) {
  localeSizes.push_back(size);
  if (localeFails || locale != kLocaleUserDefault || lctype != kLocaleIDate) return 0;
  const std::string text = localeText.value_or(
      std::to_string(DateOrderFromFormat(shortDateFormat).value_or(kDateOrderMonthFirst)));
  buffer.replace(0, text.size() + 1, text + '\0');
  return static_cast<std::int32_t>(text.size() + 1);
}

void FakePlatform::ShowModal(ModalDialog& dialog) {
  dialog.Open();
  if (!dialogScripts.empty()) {
    const DialogScript script = dialogScripts.front();
    dialogScripts.pop_front();
    script(dialog);
  }
  if (dialog.IsOpen()) dialog.CloseBox();
}

std::int32_t FakeTrace::LastErrorNumber() {
  const auto reports = Of(Kind::kReport);
  return reports.empty() ? 0 : reports.back().number;
}

void FakeTrace::ReportError(const std::string&) {
  Add(Kind::kReport, Err().Source(), Err().Number(), Err().Description());
}

void FakeTrace::ShowErrorOwned(std::int32_t hwndOwner) {
  Add(Kind::kShowOwned, "", 0, "", hwndOwner);
}

std::vector<FakeTrace::Call> FakeTrace::Of(Kind kind) const {
  std::vector<Call> out;
  for (const Call& call : calls) {
    if (call.kind == kind) out.push_back(call);
  }
  return out;
}

bool FakeTrace::Entered(const std::string& proc) const {
  for (const Call& call : calls) {
    if (call.kind == Kind::kEnter && call.proc == proc) return true;
  }
  return false;
}

bool FakeTrace::Left(const std::string& proc) const {
  for (const Call& call : calls) {
    if (call.kind == Kind::kLeave && call.proc == proc) return true;
  }
  return false;
}

FakeRecord::FakeRecord(Journal& journal) : props(RecordDefaults()), journal_(journal) {}

Variant FakeRecord::Get(const std::string& name) {
  const auto it = props.find(name);
  if (it == props.end()) Raise(errnum::kNotSupported, "PelkComn.IboProperties");
  return it->second;
}

void FakeRecord::Set(const std::string& name, const Variant& value) {
  if (failSet.count(name) != 0) RaiseInjected("rec.Set " + name);
  RequireSameType(Get(name), value, name);
  journal_.push_back("rec.Set " + name + "=" + value.ToDisplay());
  props[name] = value;
}

Variant FakeRecord::GetAt(const std::string& name, std::int32_t index) {
  if (index < 0 || index > 9) Raise(errnum::kSubscriptOutOfRange, name);
  return Get(name + "(" + std::to_string(index) + ")");
}

void FakeRecord::SetAt(const std::string& name, std::int32_t index, const Variant& value) {
  if (index < 0 || index > 9) Raise(errnum::kSubscriptOutOfRange, name);
  Set(name + "(" + std::to_string(index) + ")", value);
}

std::string FakeRecord::StatusText(std::int32_t status) {
  static const char* const kTexts[] = {"Unknown", "Open", "Won", "Lost", "Cancelled"};
  const std::int32_t code = status == -1 ? Get("Status").AsLong() : status;
  return code >= 0 && code <= 4 ? kTexts[code] : "";
}

Blob FakeRecord::GetIboData() {
  if (failIboData) RaiseInjected("rec.IboData");
  return storage;
}

void FakeRecord::SetIboData(const Blob& data) {
  storage = data;
  ++loads;
}

Blob FakeData::ReadIbo(std::int32_t iboId, const std::string& procName) {
  reads.emplace_back(iboId, procName);
  return Blob{'r', 'e', 'c', static_cast<std::uint8_t>(iboId)};
}

void FakeData::WriteIbo(const Blob& data, const std::string& procName) {
  if (failWrite) RaiseInjected("WriteIbo");
  writes.emplace_back(data, procName);
}

FakeAdvisor::FakeAdvisor(Journal& journal, const std::map<std::string, Variant>& presets)
    : values(AdvisorFacts()), journal_(journal) {
  for (const auto& [name, value] : AdvisorResultDefaults()) values[name] = value;
  for (const auto& [name, value] : presets) values[name] = value;
}

Variant FakeAdvisor::Get(const std::string& name) {
  gets.push_back(name);
  const auto it = values.find(name);
  if (it == values.end()) Raise(errnum::kNotSupported, kAdvisorProgId);
  return it->second;
}

void FakeAdvisor::Set(const std::string& name, const Variant& value) {
  static const auto kFacts = AdvisorFacts();
  const auto fact = kFacts.find(name);
  if (fact == kFacts.end()) Raise(errnum::kNotSupported, kAdvisorProgId);
  RequireSameType(fact->second, value, name);
  journal_.push_back("adv.Set " + name + "=" + value.ToDisplay());
  facts.emplace_back(name, value);
  values[name] = value;
}

void FakeAdvisor::Evaluate() {
  if (failEvaluate) RaiseInjected("Evaluate");
  journal_.push_back("adv.Evaluate");
  ++evaluations;
}

FakeWorld::FakeWorld() : record(std::make_shared<FakeRecord>(journal)) {}

void FakeWorld::Register(ObjectFactory& factory) {
  factory.Register(kTraceProgId, [this] { return trace; });
  factory.Register(kRecordProgId, [this] { return record; });
  factory.Register(kDataProgId, [this] { return data; });
  factory.Register(kSizeHelperProgId, [this] {
    ++sizeChecks;
    return std::make_shared<FakeSizeHelper>(physicalSize);
  });
  const auto newEngine = [this] {
    advisors.push_back(std::make_shared<FakeAdvisor>(journal, advisorResults));
    return advisors.back();
  };
  factory.Register(kAdvisorProgId, newEngine);
  factory.Register(kAdvisorProgIdAtCreate, newEngine);
}

}  // namespace pelkedit::testing
