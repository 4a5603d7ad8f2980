#include "session.h"

#include "dialogs/frm_competitors.h"

#include "control/pelk_ibo_edit.h"
#include "recording.h"

namespace pelkscript {

void RequireWords(const std::vector<Word>& words, std::size_t min, std::size_t max,
                  const char* usage) {
  if (words.size() < min || words.size() > max) throw ScriptError(std::string("usage: ") + usage);
}

const std::string& Bare(const Word& word) {
  if (word.Quoted()) throw ScriptError("a name was expected, found " + word.raw);
  return word.raw;
}

const std::map<std::string, Session::Command>& Session::Commands() {
  static const std::map<std::string, Command> commands{
      {"clock", &Session::Clock},
      {"locale", &Session::Locale},
      {"locale-fails", &Session::LocaleFails},
      {"locale-answer", &Session::LocaleAnswer},
      {"fail-create", &Session::FailCreate},
      {"fail", &Session::Fail},
      {"engine", &Session::Engine},
      {"engine-result", &Session::EngineResult},
      {"ibo", &Session::Ibo},
      {"file", &Session::File},
      {"config", &Session::Config},
      {"contacts", &Session::NotInThisVersion},
      {"lookup", &Session::Lookup},
      {"products", &Session::Products},
      {"competitors-dialog", &Session::CompetitorsDialog},
      {"create", &Session::Create},
      {"destroy", &Session::Destroy},
      {"show", &Session::Show},
      {"call", &Session::Call},
      {"fill", &Session::Fill},
      {"click", &Session::Click},
      {"select", &Session::Select},
      {"type", &Session::Type},
      {"focus", &Session::Focus},
      {"blur", &Session::Blur},
      {"undo", &Session::Undo},
      {"crash", &Session::Crash},
      {"redo", &Session::Redo},
      {"mousedown", &Session::MouseDown},
      {"mouseup", &Session::MouseUp},
      {"drop", &Session::Drop},
      {"dateclick", &Session::DateClick},
      {"setday", &Session::SetDay},
      {"selection", &Session::Selection},
      {"answer", &Session::Answer},
      {"startdate-dialog", &Session::StartDateDialog},
      {"print", &Session::Print},
      {"expect", &Session::Expect},
      {"clear", &Session::Clear},
  };
  return commands;
}

Session::Session(const WorldOptions& options, std::ostream& out, std::string fileName)
    : world_(options), out_(out), fileName_(std::move(fileName)) {
  world_.platform.onUnansweredBox = [this](const std::string& problem) {
    FailExpectation(problem);
  };
  world_.platform.onUnansweredDialog = [this](const std::string& problem) {
    FailExpectation(problem);
  };
  world_.platform.RequireAnswer(pelkedit::FrmCompetitors::kName);
}

void Session::Run(std::istream& in) {
  std::string line;
  while (!scriptFailed_ && !crashed_ && std::getline(in, line)) {
    try {
      RunLine(line);
    } catch (const ScriptError& error) {
      out_ << fileName_ << ':' << lineNumber_
           << ": script error: " << world_.log.Masked(error.what()) << '\n';
      scriptFailed_ = true;
    }
  }
}

void Session::RunLine(const std::string& line) {
  ++lineNumber_;
  const Words words = SplitWords(line);
  if (words.empty()) return;
  const auto it = Commands().find(words.front().raw);
  if (it == Commands().end()) throw ScriptError("unknown command " + words.front().raw);
  // What the component raises is printed by the commands that run it; anything else raised
  // while the runner itself reads or sets up the world means the line cannot be run.
  try {
    (this->*(it->second))(words);
  } catch (const ScriptError&) {
    throw;
  } catch (const pelkedit::PelkError& error) {
    throw ScriptError(words.front().raw + ": error " + std::to_string(error.Number()) + " " +
                      pelkedit::QuoteString(error.Description()));
  } catch (const std::exception& error) {
    throw ScriptError(words.front().raw + ": " + error.what());
  }
}

void Session::FailExpectation(const std::string& text) {
  ++failed_;
  out_ << "FAILED " << fileName_ << ':' << lineNumber_ << ": " << world_.log.Masked(text) << '\n';
}

void Session::NotInThisVersion(const Words& w) {
  throw ScriptError("command " + w.front().raw + " is not available in this version");
}

pelkedit::PelkIboEdit& Session::Component() {
  if (!world_.component) throw ScriptError("there is no component (create it first)");
  return *world_.component;
}

pelkedit::IRecord& Session::RealRecord() {
  const auto record = Component().Record();
  if (!record) throw ScriptError("the component holds no record object");
  return Unwrapped(*record);
}

pelkedit::Widget& Session::WidgetArg(const Word& word) {
  pelkedit::Widget* widget = Component().Widgets().Find(Bare(word));
  if (widget == nullptr) throw ScriptError("unknown widget " + word.raw);
  return *widget;
}

void Session::UserFocus(pelkedit::Widget& widget) {
  if (widget.Focusable()) widget.SetFocus();
}

}  // namespace pelkscript
