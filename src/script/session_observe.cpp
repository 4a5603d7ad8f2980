// Observing: print and expect, the expressions they read, and the logs.
#include "advisor/advisor_names.h"
#include "record/ibo_properties.h"
#include "recording.h"
#include "session.h"
#include "widget_observation.h"

namespace pelkscript {
namespace {

using pelkedit::Variant;

const BareName kNone{"none"};

const std::map<std::string, WorldLog::Kind>& Logs() {
  static const std::map<std::string, WorldLog::Kind> logs{
      {"messages", WorldLog::Kind::kMessages},
      {"events", WorldLog::Kind::kEvents},
      {"trace", WorldLog::Kind::kTrace},
      {"calls", WorldLog::Kind::kCalls},
  };
  return logs;
}

const pelkor::PropertyInfo& RecordProperty(const IndexedName& target) {
  for (const auto& info : pelkor::RecordSchema()) {
    if (info.name != target.name) continue;
    if (info.indexed != (target.index >= 0)) {
      throw ScriptError("record property " + target.name +
                        (info.indexed ? " needs an index" : " takes no index"));
    }
    return info;
  }
  throw ScriptError("unknown record property " + target.name);
}

// Reads a property of a record the runner holds; a failure to read is a script error.
Variant ReadRecord(pelkedit::IRecord& record, const IndexedName& target) {
  RecordProperty(target);
  return AsScriptError("cannot read record." + target.name, [&] {
    return target.index >= 0 ? record.GetAt(target.name, target.index) : record.Get(target.name);
  });
}

std::vector<std::string> SplitDots(const std::string& text) {
  std::vector<std::string> parts;
  std::size_t start = 0;
  for (std::size_t dot = text.find('.'); dot != std::string::npos; dot = text.find('.', start)) {
    parts.push_back(text.substr(start, dot - start));
    start = dot + 1;
  }
  parts.push_back(text.substr(start));
  return parts;
}

}  // namespace

Observed Session::Evaluate(const std::string& expr) {
  if (expr == "focus") {
    const auto* focused = Component().Widgets().Focused();
    return focused != nullptr ? BareName{focused->Name()} : kNone;
  }
  if (expr == "size") return EvaluateSize();
  if (expr == "error") return lastError_ ? Observed(Variant(lastError_->Number())) : kNone;
  if (expr == "screen.pointer") {
    return Variant(static_cast<std::int32_t>(world_.platform.CurrentPointer()));
  }
  const auto dot = expr.find('.');
  if (dot == std::string::npos || dot == 0) throw ScriptError("unknown expression " + expr);
  const std::string head = expr.substr(0, dot);
  const std::string rest = expr.substr(dot + 1);
  if (head == "error") return EvaluateError(rest);
  if (head == "control") {
    const auto value = Component().StateByName(rest);
    if (!value) throw ScriptError("unknown control property " + rest);
    return *value;
  }
  if (head == "record") return EvaluateRecord(rest);
  if (head == "advisor") return EvaluateAdvisor(rest);
  if (head == "db") return EvaluateDb(rest);
  const auto* widget = Component().Widgets().Find(head);
  if (widget == nullptr) throw ScriptError("unknown widget " + head);
  const IndexedName property = ParseIndexedName(rest);
  return ReadWidgetProperty(*widget, property.name, property.index);
}

Observed Session::EvaluateError(const std::string& field) {
  if (field != "number" && field != "source" && field != "description") {
    throw ScriptError("unknown expression error." + field);
  }
  if (!lastError_) return kNone;
  if (field == "number") return Variant(lastError_->Number());
  if (field == "source") return Variant(lastError_->Source());
  return Variant(lastError_->Description());
}

Observed Session::EvaluateRecord(const std::string& property) {
  const IndexedName target = ParseIndexedName(property);
  RecordProperty(target);
  if (!Component().Record()) return kNone;
  return ReadRecord(RealRecord(), target);
}

Observed Session::EvaluateAdvisor(const std::string& name) {
  if (!pelkor::FindAdvisorName(name)) throw ScriptError("unknown advisor fact or result " + name);
  const auto advisor = Component().Advisor();
  if (!advisor) return kNone;
  return AsScriptError("cannot read advisor." + name,
                       [&]() -> Observed { return Unwrapped(*advisor).Get(name); });
}

Observed Session::EvaluateDb(const std::string& rest) {
  const auto parts = SplitDots(rest);
  if (parts.size() != 3) throw ScriptError("usage: db.ID.VIEW.NAME");
  const std::int32_t id = ParseInt(parts[0]);
  const std::int32_t view = ParseInt(parts[1]);
  const IndexedName target = ParseIndexedName(parts[2]);
  RecordProperty(target);
  const auto table = pelkor::TableForProcedure(ProcedureForView(view));
  const std::optional<pelkedit::Blob> stored =
      AsScriptError("cannot read the database", [&] { return world_.Db()->Find(table, id); });
  if (!stored) return kNone;
  const auto record = pelkor::CreateIboProperties();
  AsScriptError("the stored record " + std::to_string(id) + " cannot be decoded",
                [&] { record->SetIboData(*stored); });
  return ReadRecord(*record, target);
}

Observed Session::EvaluateSize() {
  auto& record = RealRecord();
  return AsScriptError("cannot measure the record", [&]() -> Observed {
    return pelkor::CreateIboSizeCalculator()->GetPhysicalSize(record.GetIboData());
  });
}

void Session::Print(const Words& w) {
  RequireWords(w, 2, 2, "print EXPR | messages | events | trace | calls");
  const std::string& what = Bare(w[1]);
  if (const auto log = Logs().find(what); log != Logs().end()) {
    world_.log.PrintAndClear(log->second, out_);
    return;
  }
  out_ << what << " = " << world_.log.Masked(Display(Evaluate(what))) << '\n';
}

void Session::Expect(const Words& w) {
  RequireWords(w, 4, 4, "expect EXPR = VALUE  or  expect EXPR != VALUE");
  const std::string& expr = Bare(w[1]);
  const std::string& op = w[2].raw;
  if (op != "=" && op != "!=") throw ScriptError("expect: = or != was expected, found " + op);
  const Observed actual = Evaluate(expr);
  const bool equal = Matches(actual, w[3].raw);
  if (equal == (op == "=")) {
    ++passed_;
    return;
  }
  FailExpectation("expect " + expr + " " + op + " " + w[3].raw + " (actual " + Display(actual) +
                  ")");
}

void Session::Clear(const Words& w) {
  RequireWords(w, 1, 1, "clear");
  world_.log.ClearAll();
}

}  // namespace pelkscript
