// World set-up commands: clock, locale, failures, engine, stored records, files.
#include <fstream>
#include <set>

#include "advisor/advisor_names.h"
#include "advisor/rule_engine.h"
#include "advisor/rule_file.h"
#include "contracts/names.h"
#include "data/ibo_store.h"
#include "record/ibo_properties.h"
#include "session.h"

namespace pelkscript {
namespace {

const std::set<std::string>& TraceOperations() {
  static const std::set<std::string> ops{
      "LastErrorNumber", "ReportError",   "EnterProc", "LeaveProc", "InvalidArgumentErrorNumber",
      "ShowError",       "ShowErrorOwned"};
  return ops;
}

const std::set<std::string>& PlatformOperations() {
  static const std::set<std::string> ops{"MsgBox",        "PostMessage",      "HostWindowHandle",
                                         "ScreenPointer", "SetScreenPointer", "Now",
                                         "Today",         "ShortDateFormat",  "GetLocaleInfoA",
                                         "StartProcess",  "ShowModal",        "CreateObject"};
  return ops;
}

const pelkor::PropertyInfo* FindRecordProperty(const std::string& name) {
  for (const auto& info : pelkor::RecordSchema()) {
    if (info.name == name) return &info;
  }
  return nullptr;
}

// Whether OBJECT.OPERATION names something the world can make fail.
bool KnownOperation(const std::string& object, const std::string& operation) {
  if (object == "record") {
    return operation == "IboData" || operation == "StatusText" ||
           FindRecordProperty(operation) != nullptr;
  }
  if (object == "advisor") {
    return operation == "Evaluate" || pelkor::FindAdvisorName(operation).has_value();
  }
  if (object == "data") return operation == "ReadIbo" || operation == "WriteIbo";
  if (object == "size") return operation == "GetPhysicalSize";
  if (object == "trace") return TraceOperations().count(operation) != 0;
  if (object == "platform") return PlatformOperations().count(operation) != 0;
  if (object == "products") return ProductViewOperation(operation);
  if (object == "config") return operation == "GetValue";
  if (object == "lookup") return ContactLookupOperation(operation);
  return false;
}

}  // namespace

std::string ProcedureForView(std::int32_t view) {
  const char* name = pelkedit::RetrievalProcedureOf(view);
  if (name == nullptr) {
    throw ScriptError("bad view " + std::to_string(view) + " (0 to 2 main, 3 archive)");
  }
  return name;
}

void Session::Clock(const Words& w) {
  RequireWords(w, 2, 2, "clock YYYY-MM-DD[THH:MM:SS]");
  const auto now = pelkedit::Date::Parse(w[1].raw);
  if (!now) throw ScriptError("bad value " + w[1].raw + ": a date was expected");
  world_.platform.SetClock(*now);
}

void Session::Locale(const Words& w) {
  RequireWords(w, 2, 2, "locale \"FORMAT\"");
  world_.platform.SetShortDateFormat(DecodeString(w[1].raw));
}

void Session::LocaleFails(const Words& w) {
  RequireWords(w, 1, 1, "locale-fails");
  world_.platform.SetLocaleFails();
}

void Session::LocaleAnswer(const Words& w) {
  RequireWords(w, 2, 2, "locale-answer \"TEXT\"");
  world_.platform.SetLocaleAnswer(DecodeString(w[1].raw));
}

void Session::FailCreate(const Words& w) {
  RequireWords(w, 2, 2, "fail-create PROGID");
  world_.factory.FailCreate(Bare(w[1]));
}

void Session::Fail(const Words& w) {
  RequireWords(w, 2, 2, "fail OBJECT.OPERATION");
  const std::string& target = Bare(w[1]);
  const auto dot = target.find('.');
  if (dot == std::string::npos) throw ScriptError("usage: fail OBJECT.OPERATION");
  const std::string object = target.substr(0, dot);
  const std::string operation = target.substr(dot + 1);
  if (!KnownOperation(object, operation)) throw ScriptError("unknown operation " + target);
  world_.faults.Arm(object, operation);
}

void Session::Engine(const Words& w) {
  RequireWords(w, 2, 2, "engine rules|scripted");
  const std::string& kind = Bare(w[1]);
  if (kind != "rules" && kind != "scripted") throw ScriptError("unknown engine " + kind);
  // A rule file that cannot be used is the scenario's mistake: say which file, where and why,
  // rather than let every engine the editor creates fail on it.
  if (kind == "rules") {
    try {
      pelkor::CreateRuleEngine(pelkor::DefaultRuleFile(),
                               [this] { return world_.platform.Today(); });
    } catch (const pelkor::RuleFileError& error) {
      throw ScriptError(std::string("engine rules: ") + error.what());
    }
  }
  world_.UseRuleEngine(kind == "rules");
}

void Session::EngineResult(const Words& w) {
  RequireWords(w, 2, SIZE_MAX, "engine-result NAME=VALUE ...");
  for (std::size_t i = 1; i < w.size(); ++i) {
    const Assignment a = ParseAssignment(w[i].raw);
    if (a.index >= 0) throw ScriptError("engine results are not indexed: " + w[i].raw);
    AsScriptError("engine-result " + a.name, [&] { world_.results->Set(a.name, a.value); });
  }
}

void Session::Ibo(const Words& w) {
  RequireWords(w, 3, SIZE_MAX, "ibo ID VIEW PROP=VALUE ...");
  const std::int32_t id = ParseInt(w[1].raw);
  const std::string proc = ProcedureForView(ParseInt(w[2].raw));
  std::vector<Assignment> assignments;
  bool numberGiven = false;
  for (std::size_t i = 3; i < w.size(); ++i) {
    assignments.push_back(ParseAssignment(w[i].raw));
    numberGiven = numberGiven || assignments.back().name == "IboNumber";
  }
  const auto record = pelkor::CreateIboProperties();
  const auto set = [&](const Assignment& a) {
    AsScriptError("ibo " + a.name, [&] {
      if (a.index >= 0) {
        record->SetAt(a.name, a.index, a.value);
      } else {
        record->Set(a.name, a.value);
      }
    });
  };
  set({pelkedit::prop::IboId, -1, id});
  if (!numberGiven) set({pelkedit::prop::IboNumber, -1, id});
  for (const auto& a : assignments) set(a);
  AsScriptError("ibo " + std::to_string(id) + " cannot be stored",
                [&] { world_.Db()->Write(pelkor::TableForProcedure(proc), record->GetIboData()); });
}

void Session::File(const Words& w) {
  RequireWords(w, 2, 2, "file PATH");
  const std::string name = world_.log.Unmasked(w[1].Quoted() ? DecodeString(w[1].raw) : w[1].raw);
  std::filesystem::path path(name);
  if (path.is_relative()) path = world_.TempDir() / path;
  std::error_code ec;
  if (path.has_parent_path()) std::filesystem::create_directories(path.parent_path(), ec);
  std::ofstream file(path, std::ios::trunc);
  if (!file) throw ScriptError("cannot create the file " + path.string());
}

void Session::Config(const Words& w) {
  RequireWords(w, 3, 3, "config KEY VALUE");
  const std::string value = w[2].Quoted() ? DecodeString(w[2].raw) : w[2].raw;
  (*world_.config)[Bare(w[1])] = world_.log.Unmasked(value);
}

}  // namespace pelkscript
