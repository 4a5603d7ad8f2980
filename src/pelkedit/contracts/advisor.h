#pragma once

#include <string>

#include "platform/com_object.h"
#include "values/variant.h"

namespace pelkedit {

// The identifier the editor creates engines by at each load, and the one used at creation.
inline constexpr const char* kAdvisorProgId = "PelkInrt.Advisor";
inline constexpr const char* kAdvisorProgIdAtCreate = "PELKInrt.Advisor";

// Where the phases of the sales cycle begin, as parts of the cycle from the start date (0) to
// the expected date (1): the sales-cycle graph draws these boundaries and the engines name the
// phases by them.
namespace cycle {
inline constexpr double kProveStarts = 0.35;
inline constexpr double kCloseStarts = 0.7;
}  // namespace cycle

// The advisor engine: facts set and results read by name, one action.
// Unknown names are error 438; setting a result, or a fact with a value of the wrong type,
// is error 13 or 438 as the engine decides.
class IAdvisor : public ComObject {
 public:
  virtual Variant Get(const std::string& name) = 0;
  virtual void Set(const std::string& name, const Variant& value) = 0;
  virtual void Evaluate() = 0;
};

}  // namespace pelkedit
