#pragma once

#include <exception>
#include <functional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

#include "trace/err_object.h"
#include "trace/mod_init.h"
#include "values/error.h"

namespace pelkedit {

class IPlatform;

// "PelkEdit.<object>::<procedure>"
std::string Qualified(std::string_view object, std::string_view procedure);

// Makes the error being handled the thread's current error; anything that is not a
// PelkError becomes one with the classic "invalid procedure call" number.
PelkError CaptureError(std::exception_ptr error, const std::string& procName);

namespace detail {
// Report the current error and raise it again with the trace's last error number.
[[noreturn]] void ReportAndReraise(ITrace& trace, const PelkError& error);
void ReportAndShowOwned(ITrace& trace, IPlatform& platform);
void ReportAndShow(ITrace& trace);
}  // namespace detail

// Kind A, a method: report the error and raise it again to the caller.
template <typename Body>
auto RunMethod(const std::string& procName, Body&& body) -> decltype(body()) {
  ITrace& trace = ThreadTrace();
  try {
    trace.EnterProc(procName);
    if constexpr (std::is_void_v<decltype(body())>) {
      body();
      trace.LeaveProc(procName);
    } else {
      auto result = body();
      trace.LeaveProc(procName);
      return result;
    }
  } catch (...) {
    detail::ReportAndReraise(trace, CaptureError(std::current_exception(), procName));
  }
}

namespace detail {
// Handlers end where the error happened and show it; `onError` reports and shows.
template <typename Body, typename OnError>
void RunShowingErrors(const std::string& procName, Body&& body, OnError&& onError) {
  ITrace& trace = ThreadTrace();
  try {
    trace.EnterProc(procName);
    body();
    trace.LeaveProc(procName);
  } catch (...) {
    CaptureError(std::current_exception(), procName);
    onError(trace);
  }
}
}  // namespace detail

// Kind B, a widget event handler: report the error and show it owned by the host window.
// `beforeReport` runs first on an error, for handlers that must record that one happened.
template <typename Body, typename OnError = void (*)()>
void RunHandler(
    const std::string& procName, IPlatform& platform, Body&& body, OnError beforeReport = [] {}) {
  detail::RunShowingErrors(procName, std::forward<Body>(body), [&](ITrace& trace) {
    beforeReport();
    detail::ReportAndShowOwned(trace, platform);
  });
}

// Kind C, a help handler: report the error and show it without an owner.
template <typename Body>
void RunHelpHandler(const std::string& procName, Body&& body) {
  detail::RunShowingErrors(procName, std::forward<Body>(body),
                           [](ITrace& trace) { detail::ReportAndShow(trace); });
}

// Kind D, lifecycle and dialog buttons: each statement that fails is reported and the
// procedure goes on with the next one.
class ResumeNext {
 public:
  explicit ResumeNext(std::string procName);
  ResumeNext(const ResumeNext&) = delete;
  ResumeNext& operator=(const ResumeNext&) = delete;

  // Runs one statement; on an error reports it (and runs `onError`, if given) and returns.
  template <typename Statement>
  void operator()(Statement&& statement) {
    try {
      statement();
    } catch (...) {
      Report(std::current_exception());
    }
  }
  // Marks the normal end of the procedure.
  void Leave();
  // Extra statement run right after each reported error (before the next statement).
  void OnError(std::function<void()> onError) { onError_ = std::move(onError); }

 private:
  void Report(std::exception_ptr error);
  std::string procName_;
  std::function<void()> onError_;
};

}  // namespace pelkedit
