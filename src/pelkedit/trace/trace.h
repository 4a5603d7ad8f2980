#pragma once

#include <cstdint>
#include <string>

#include "platform/com_object.h"

namespace pelkedit {

inline constexpr const char* kTraceProgId = "PelkTWrp.Trace";

// The product's trace component as the editor uses it. ReportError records the error being
// handled, which it reads from Err().
class ITrace : public ComObject {
 public:
  virtual std::int32_t LastErrorNumber() = 0;
  virtual void ReportError(const std::string& extra) = 0;
  virtual void EnterProc(const std::string& procName) = 0;
  virtual void LeaveProc(const std::string& procName) = 0;
  virtual std::int32_t InvalidArgumentErrorNumber() = 0;
  virtual void ShowError() = 0;
  virtual void ShowErrorOwned(std::int32_t hwndOwner) = 0;
};

}  // namespace pelkedit
