#include "trace/error_paths.h"

#include "platform/platform.h"

namespace pelkedit {

std::string Qualified(std::string_view object, std::string_view procedure) {
  std::string name = "PelkEdit.";
  name += object;
  name += "::";
  name += procedure;
  return name;
}

PelkError CaptureError(std::exception_ptr error, const std::string& procName) {
  try {
    std::rethrow_exception(error);
  } catch (const PelkError& e) {
    Err().Set(e);
    return e;
  } catch (const std::exception& e) {
    PelkError converted(errnum::kInvalidProcedureCall, procName, e.what());
    Err().Set(converted);
    return converted;
  } catch (...) {
    PelkError converted(errnum::kInvalidProcedureCall, procName, "Unknown error");
    Err().Set(converted);
    return converted;
  }
}

namespace detail {

void ReportAndReraise(ITrace& trace, const PelkError& error) {
  trace.ReportError("");
  throw PelkError(trace.LastErrorNumber(), error.Source(), error.Description());
}

void ReportAndShowOwned(ITrace& trace, IPlatform& platform) {
  trace.ReportError("");
  trace.ShowErrorOwned(platform.HostWindowHandle());
}

void ReportAndShow(ITrace& trace) {
  trace.ReportError("");
  trace.ShowError();
}

}  // namespace detail

ResumeNext::ResumeNext(std::string procName) : procName_(std::move(procName)) {
  (*this)([&] { ThreadTrace().EnterProc(procName_); });
}

void ResumeNext::Leave() {
  (*this)([&] { ThreadTrace().LeaveProc(procName_); });
}

void ResumeNext::Report(std::exception_ptr error) {
  CaptureError(error, procName_);
  ThreadTrace().ReportError("");
  if (onError_) onError_();
}

}  // namespace pelkedit
