#include "trace/mod_init.h"

#include <memory>

#include "platform/platform.h"
#include "values/error.h"

namespace pelkedit {
namespace {

std::shared_ptr<ITrace>& ThreadTraceSlot() {
  thread_local std::shared_ptr<ITrace> trace;
  return trace;
}

}  // namespace

void Main(IPlatform& platform) {
  const std::string module = "PelkEdit.modInit::";
  try {
    ThreadTraceSlot() = CreateObjectAs<ITrace>(platform, kTraceProgId);
  } catch (const PelkError&) {
    platform.MsgBox("Could not create trace object. Module:" + module + "Main",
                    MsgIcon::kExclamation, MsgButtons::kOk, "Automation error");
    throw;
  }
}

bool LibraryStarted() {
  return ThreadTraceSlot() != nullptr;
}

ITrace& ThreadTrace() {
  auto& trace = ThreadTraceSlot();
  if (!trace) {
    Raise(errnum::kObjectVariableNotSet, "PelkEdit");
  }
  return *trace;
}

void UnloadLibrary() {
  ThreadTraceSlot().reset();
}

}  // namespace pelkedit
