#pragma once

#include <cstdint>
#include <istream>
#include <map>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "lexer.h"
#include "observed.h"
#include "script_error.h"
#include "values/error.h"
#include "widgets/widget.h"
#include "world.h"

namespace pelkscript {

// One scenario file run in a fresh world: reads commands line by line, prints what is
// observed, counts the expectations. Stops at the first script error.
class Session {
 public:
  Session(const WorldOptions& options, std::ostream& out, std::string fileName);

  void Run(std::istream& in);
  // Runs one line (for tests and interactive use); ScriptError when it cannot be run.
  void RunLine(const std::string& line);

  int Passed() const { return passed_; }
  int Failed() const { return failed_; }
  bool ScriptFailed() const { return scriptFailed_; }
  World& GetWorld() { return world_; }
  // What an expression reads now.
  Observed Evaluate(const std::string& expr);

 private:
  using Words = std::vector<Word>;
  using Command = void (Session::*)(const Words&);
  static const std::map<std::string, Command>& Commands();

  // World set-up.
  void Clock(const Words& w);
  void Locale(const Words& w);
  void LocaleFails(const Words& w);
  void LocaleAnswer(const Words& w);
  void FailCreate(const Words& w);
  void Fail(const Words& w);
  void Engine(const Words& w);
  void EngineResult(const Words& w);
  void Ibo(const Words& w);
  void File(const Words& w);
  void NotInThisVersion(const Words& w);
  // The component and the host.
  void Create(const Words& w);
  void Destroy(const Words& w);
  void Show(const Words& w);
  void Call(const Words& w);
  void Fill(const Words& w);
  // The user.
  void Click(const Words& w);
  void Select(const Words& w);
  void Type(const Words& w);
  void Focus(const Words& w);
  void Blur(const Words& w);
  void Undo(const Words& w);
  void Crash(const Words& w);
  void Redo(const Words& w);
  void MouseDown(const Words& w);
  void MouseUp(const Words& w);
  void Drop(const Words& w);
  void DateClick(const Words& w);
  void SetDay(const Words& w);
  void Selection(const Words& w);
  // Modal answers.
  void Answer(const Words& w);
  void StartDateDialog(const Words& w);
  void CompetitorsDialog(const Words& w);
  void Config(const Words& w);
  void Lookup(const Words& w);
  void Products(const Words& w);
  // Observing.
  void Print(const Words& w);
  void Expect(const Words& w);
  void Clear(const Words& w);

  // Observation pieces.
  Observed EvaluateRecord(const std::string& property);
  Observed EvaluateAdvisor(const std::string& name);
  Observed EvaluateDb(const std::string& rest);
  Observed EvaluateError(const std::string& field);
  Observed EvaluateSize();

  pelkedit::PelkIboEdit& Component();
  pelkedit::IRecord& RealRecord();
  pelkedit::Widget& WidgetArg(const Word& word);
  template <typename W>
  W& WidgetArg(const Word& word, const char* what);
  // The user acts on a widget: a focusable one takes the focus first.
  void UserFocus(pelkedit::Widget& widget);
  // Runs something the component does; an error it raises is printed and kept.
  template <typename Body>
  void Guard(Body&& body);
  void FailExpectation(const std::string& text);

  World world_;
  std::ostream& out_;
  std::string fileName_;
  int lineNumber_ = 0;
  int passed_ = 0;
  bool crashed_ = false;
  int failed_ = 0;
  bool scriptFailed_ = false;
  std::optional<pelkedit::PelkError> lastError_;
  // Where each widget was last pressed, so its release happens at the same place.
  std::map<std::string, std::pair<float, float>> pressedAt_;
};

template <typename W>
W& Session::WidgetArg(const Word& word, const char* what) {
  pelkedit::Widget& widget = WidgetArg(word);
  auto* typed = dynamic_cast<W*>(&widget);
  if (typed == nullptr) {
    throw ScriptError(widget.Name() + " is a " + pelkedit::WidgetKindName(widget.Kind()) +
                      ", not " + what);
  }
  return *typed;
}

template <typename Body>
void Session::Guard(Body&& body) {
  try {
    body();
  } catch (const pelkedit::PelkError& error) {
    lastError_ = error;
    out_ << world_.log.Masked("! error " + std::to_string(error.Number()) + ' ' +
                              pelkedit::QuoteString(error.Source()) + ' ' +
                              pelkedit::QuoteString(error.Description()))
         << '\n';
  }
}

// Checks a command's word count (the command word included).
void RequireWords(const std::vector<Word>& words, std::size_t min, std::size_t max,
                  const char* usage);
// The retrieval procedure of a database view (0 to 2 main, 3 archive).
std::string ProcedureForView(std::int32_t view);
// A word that is a name, not a quoted string.
const std::string& Bare(const Word& word);

}  // namespace pelkscript
