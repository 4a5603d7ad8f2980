#include "advisor/rule_program.h"

#include <muParser.h>

#include <algorithm>
#include <cctype>
#include <cmath>
#include <filesystem>
#include <set>

#include "advisor/advisor_names.h"
#include "values/error.h"

namespace pelkor {
namespace {

double Not(double value) {
  return value == 0 ? 1 : 0;
}

// Binds the names an expression uses as the parser meets them; an unknown name is an error.
double* BindValue(const mu::char_type* name, void* values) {
  auto& known = *static_cast<std::map<std::string, double>*>(values);
  const auto it = known.find(name);
  if (it == known.end()) throw mu::ParserError(std::string("unknown name \"") + name + "\"");
  return &it->second;
}

// The names an expression mentions (a letter or underscore, then letters, digits or
// underscores).
std::vector<std::string> NamesIn(const std::string& expression) {
  std::vector<std::string> names;
  std::string current;
  const auto isStart = [](char c) {
    return std::isalpha(static_cast<unsigned char>(c)) != 0 || c == '_';
  };
  for (const char c : expression + " ") {
    if (isStart(c) || (!current.empty() && std::isdigit(static_cast<unsigned char>(c)) != 0)) {
      current += c;
      continue;
    }
    if (!current.empty()) names.push_back(current);
    current.clear();
  }
  return names;
}

[[noreturn]] void Fail(const RuleSet& rules, const std::string& where, const std::string& why) {
  throw RuleFileError(rules.path, where, why);
}

}  // namespace

RuleProgram::RuleProgram(RuleSet rules, const std::vector<std::string>& inputs)
    : rules_(std::move(rules)) {
  for (const std::string& input : inputs) values_.emplace(input, 0.0);
  for (const Rating& rating : rules_.ratings) values_.emplace(rating.name, 0.0);
  CheckOrder();
  std::string ratings;
  for (const Rating& rating : rules_.ratings) {
    ratings += (ratings.empty() ? "" : ", ") + rating.name + " = (" + rating.expression + ")";
  }
  std::string conditions;
  for (const AdviceRule& rule : rules_.rules) {
    conditions += (conditions.empty() ? "(" : ", (") + rule.when + ")";
  }
  try {
    ratings_ = Compile(ratings, "section [ratings]");
    conditions_ = Compile(conditions.empty() ? "0" : conditions, "the rules");
  } catch (const RuleFileError&) {
    FindFault();
    throw;
  }
}

RuleProgram::~RuleProgram() = default;

std::unique_ptr<mu::Parser> RuleProgram::Compile(const std::string& expression,
                                                 const std::string& where) {
  auto parser = std::make_unique<mu::Parser>();
  try {
    parser->DefineFun("not", Not);
    parser->SetVarFactory(BindValue, &values_);
    parser->SetExpr(expression);
    parser->Eval();
  } catch (const mu::Parser::exception_type& error) {
    Fail(rules_, where, error.GetMsg());
  }
  return parser;
}

// A rating may use only the ratings before it, so that the same facts always give the same
// results.
void RuleProgram::CheckOrder() const {
  std::set<std::string> later;
  for (const Rating& rating : rules_.ratings) later.insert(rating.name);
  for (const Rating& rating : rules_.ratings) {
    later.erase(rating.name);
    for (const std::string& name : NamesIn(rating.expression)) {
      if (later.count(name) != 0 || name == rating.name) {
        Fail(rules_, AtLine("rating \"" + rating.name + "\"", rating.line),
             "it uses \"" + name + "\", which is worked out after it");
      }
    }
  }
}

// The combined programs do not say which line is at fault; each line alone does.
void RuleProgram::FindFault() {
  for (const Rating& rating : rules_.ratings) {
    Compile(rating.expression, AtLine("rating \"" + rating.name + "\"", rating.line));
  }
  for (const AdviceRule& rule : rules_.rules) {
    Compile(rule.when, AtLine("rule \"" + rule.name + "\"", rule.whenLine));
  }
}

std::vector<bool> RuleProgram::Run() {
  int count = 0;
  const double* holds = nullptr;
  try {
    ratings_->Eval(count);
    holds = conditions_->Eval(count);
  } catch (const mu::Parser::exception_type& error) {
    pelkedit::Raise(pelkedit::errnum::kInvalidProcedureCall, kAdvisorSource, error.GetMsg());
  }
  std::vector<bool> result(rules_.rules.size(), false);
  for (std::size_t i = 0; i < result.size() && i < static_cast<std::size_t>(count); ++i) {
    result[i] = holds[i] != 0 && std::isfinite(holds[i]);
  }
  return result;
}

std::shared_ptr<RuleProgram> SharedProgram(const std::string& path,
                                           const std::vector<std::string>& inputs) {
  struct Cached {
    std::filesystem::file_time_type written;
    std::uintmax_t size = 0;
    std::weak_ptr<RuleProgram> program;
  };
  thread_local std::map<std::string, Cached> cache;
  std::error_code error;
  const auto written = std::filesystem::last_write_time(path, error);
  const auto size = std::filesystem::file_size(path, error);
  Cached& entry = cache[path];
  auto program = entry.program.lock();
  if (program && !error && entry.written == written && entry.size == size) return program;
  program = std::make_shared<RuleProgram>(LoadRuleFile(path), inputs);
  entry = {written, size, program};
  return program;
}

}  // namespace pelkor
