#pragma once

#include <map>
#include <memory>
#include <string>

#include "contracts/help.h"
#include "recording.h"

namespace pelkscript {

// The configuration of a scenario: the values `config KEY VALUE` set, shared by every
// configuration object the component creates. GetValue is recorded in the calls log and can be
// made to fail with `fail config.GetValue`; a key nobody set is error 5 naming it.
class ScriptedConfig : public pelkedit::IConfig {
 public:
  using Values = std::map<std::string, std::string>;
  ScriptedConfig(Recording recording, std::shared_ptr<const Values> values)
      : rec_(recording), values_(std::move(values)) {}
  std::string GetValue(const std::string& key) override;

 private:
  Recording rec_;
  std::shared_ptr<const Values> values_;
};

}  // namespace pelkscript
