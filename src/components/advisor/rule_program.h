#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "advisor/rule_file.h"

namespace mu {
class Parser;
}

namespace pelkor {

// A rule file compiled: every value an expression may name, one program that works out the
// ratings in order and one that tests every rule's condition. Engines of one thread share the
// program of a file (it is compiled once while the file stays the same); they load their facts
// into Values() before each run, one engine at a time.
class RuleProgram {
 public:
  // RuleFileError naming the file, the rating or rule and the problem when an expression does
  // not compile, names something unknown, or uses a rating worked out after it.
  RuleProgram(RuleSet rules, const std::vector<std::string>& inputs);
  ~RuleProgram();
  RuleProgram(const RuleProgram&) = delete;
  RuleProgram& operator=(const RuleProgram&) = delete;

  const RuleSet& Rules() const { return rules_; }
  std::map<std::string, double>& Values() { return values_; }
  // Works out the ratings into Values() and returns, per rule, whether its condition holds.
  // Error 5 when an expression cannot be evaluated.
  std::vector<bool> Run();

 private:
  std::unique_ptr<mu::Parser> Compile(const std::string& expression, const std::string& where);
  void CheckOrder() const;
  void FindFault();

  RuleSet rules_;
  // A map keeps the values' addresses fixed for the parsers that read and write them.
  std::map<std::string, double> values_;
  std::unique_ptr<mu::Parser> ratings_;
  std::unique_ptr<mu::Parser> conditions_;
};

// The program of the rule file at `path` for this thread: loaded and compiled when first asked
// for and again whenever the file has changed since.
std::shared_ptr<RuleProgram> SharedProgram(const std::string& path,
                                           const std::vector<std::string>& inputs);

}  // namespace pelkor
