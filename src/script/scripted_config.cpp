#include "scripted_config.h"

#include "values/error.h"
#include "values/variant.h"

namespace pelkscript {

std::string ScriptedConfig::GetValue(const std::string& key) {
  rec_.log.Add(WorldLog::Kind::kCalls, "config.GetValue " + pelkedit::QuoteString(key));
  rec_.faults.Check("config", "GetValue", pelkedit::kConfigProgId);
  const auto it = values_->find(key);
  if (it == values_->end()) {
    pelkedit::Raise(pelkedit::errnum::kInvalidProcedureCall, pelkedit::kConfigProgId,
                    "No setting \"" + key + "\" is configured.");
  }
  return it->second;
}

}  // namespace pelkscript
