#include "trace/trace_log.h"

#include "files/private_files.h"

#include <cstdio>
#include <filesystem>
#include <system_error>

#include "trace/err_object.h"
#include "values/error.h"

namespace pelkor {
namespace {

using pelkedit::Err;

constexpr const char* kMessageTitle = "Pelkor";
constexpr const char* kEnterMarker = "->";
constexpr const char* kLeaveMarker = "<-";
constexpr const char* kErrorMarker = "!!";
constexpr int kIndentPerLevel = 2;
constexpr int kSecondsPerHour = 3600;
constexpr int kSecondsPerMinute = 60;

std::string Timestamp(const pelkedit::Date& when) {
  const int second = when.SecondOfDay();
  char buffer[32];
  std::snprintf(buffer, sizeof buffer, "%04d-%02d-%02d %02d:%02d:%02d", when.Year(), when.Month(),
                when.Day(), second / kSecondsPerHour, second % kSecondsPerHour / kSecondsPerMinute,
                second % kSecondsPerMinute);
  return buffer;
}

// The nesting depth, right-aligned in three places.
std::string LevelOf(int depth) {
  char buffer[16];
  std::snprintf(buffer, sizeof buffer, "%3d ", depth);
  return buffer;
}

}  // namespace

TraceLog::TraceLog(pelkedit::IPlatform& platform, std::string logPath, std::uintmax_t rotateAtBytes)
    : platform_(platform), logPath_(std::move(logPath)), rotateAtBytes_(rotateAtBytes) {
  OpenLog();
  RotateIfFull();
}

TraceLog::~TraceLog() {
  Flush();
}

void TraceLog::OpenLog() {
  if (logPath_.empty()) return GiveUpFile("no log file was named");
  const std::filesystem::path path(logPath_);
  std::error_code error;
  // The log names customers and the errors of their deals: it is the user's alone.
  if (path.has_parent_path()) CreatePrivateFolders(path.parent_path(), error);
  if (error) return GiveUpFile("cannot create its folder: " + error.message());
  out_.reset(OpenPrivateForAppend(path));
  if (!out_) GiveUpFile("cannot open it for appending");
}

// Tracing must never become the editor's failure: the file is dropped and the user of the log
// is told once, on the standard error stream, why the log stops.
void TraceLog::GiveUpFile(const std::string& reason) {
  out_.reset();
  std::fprintf(stderr,
               "Pelkor trace: log file \"%s\" is not written (%s); tracing goes on without it.\n",
               logPath_.c_str(), reason.c_str());
}

void TraceLog::CheckStream() {
  if (out_ && std::ferror(out_.get()) != 0) GiveUpFile("writing to it failed");
}

void TraceLog::WriteLine(int depth, const char* marker, const std::string& text) {
  if (!out_) return;
  const std::string line = Timestamp(platform_.Now()) + ' ' + LevelOf(depth) +
                           std::string(static_cast<std::size_t>(depth * kIndentPerLevel), ' ') +
                           marker + ' ' + text + '\n';
  std::fwrite(line.data(), 1, line.size(), out_.get());
  CheckStream();
}

void TraceLog::Flush() {
  if (!out_) return;
  std::fflush(out_.get());
  CheckStream();
}

void TraceLog::RotateIfFull() {
  if (!out_) return;
  std::error_code error;
  const std::uintmax_t size = std::filesystem::file_size(logPath_, error);
  if (error || size < rotateAtBytes_) return;
  out_.reset();
  std::filesystem::rename(logPath_, logPath_ + ".1", error);
  if (error)
    return GiveUpFile("cannot keep the full log as " + logPath_ + ".1: " + error.message());
  OpenLog();
}

void TraceLog::EnterProc(const std::string& procName) {
  WriteLine(Depth(), kEnterMarker, procName);
  open_.push_back(procName);
}

void TraceLog::LeaveProc(const std::string& procName) {
  // Matching by name also closes inner procedures an error made skip their exit. A name that
  // is not open belongs to a procedure that reported an error and then went on.
  for (auto index = open_.size(); index-- > 0;) {
    if (open_[index] != procName) continue;
    open_.resize(index);
    break;
  }
  WriteLine(Depth(), kLeaveMarker, procName);
  // The end of an outermost procedure is the end of one user action: a cheap point to let the
  // lines reach the disk.
  if (!open_.empty()) return;
  Flush();
  RotateIfFull();
}

// Every procedure on the failing chain reports the error once, innermost first, and none of
// them leaves normally; so each report closes the innermost open procedure.
void TraceLog::ReportError(const std::string& extra) {
  const auto& err = Err();
  lastErrorNumber_ = err.Number();
  std::string reporter = "(no open procedure)";
  if (!open_.empty()) {
    reporter = std::move(open_.back());
    open_.pop_back();
  }
  std::string text = reporter + " reports error " + std::to_string(err.Number()) + " from " +
                     err.Source() + ": " + err.Description();
  if (!extra.empty()) text += " [" + extra + "]";
  WriteLine(Depth(), kErrorMarker, text);
  Flush();
}

std::int32_t TraceLog::InvalidArgumentErrorNumber() {
  return pelkedit::errnum::kInvalidProcedureCall;
}

void TraceLog::ShowError() {
  Flush();
  platform_.MsgBox(ErrorMessageText(), pelkedit::MsgIcon::kCritical, pelkedit::MsgButtons::kOk,
                   kMessageTitle);
}

// The platform's message box has no owner argument: the host owns every box it shows.
void TraceLog::ShowErrorOwned(std::int32_t /*hwndOwner*/) {
  ShowError();
}

std::string ErrorMessageText() {
  const auto& err = Err();
  std::string description = err.Description();
  if (description.empty()) description = pelkedit::StandardDescription(err.Number());
  if (description.empty()) description = "Unexpected error.";
  std::string text = description + "\nError " + std::to_string(err.Number());
  if (!err.Source().empty()) text += " in " + err.Source();
  return text;
}

std::shared_ptr<pelkedit::ITrace> CreateTraceLog(pelkedit::IPlatform& platform,
                                                 std::string logPath) {
  return std::make_shared<TraceLog>(platform, std::move(logPath));
}

void RegisterTraceComponent(pelkedit::ObjectFactory& factory, pelkedit::IPlatform& platform,
                            std::string logPath) {
  factory.Register(pelkedit::kTraceProgId, [&platform, path = std::move(logPath)] {
    return pelkedit::ObjectPtr(CreateTraceLog(platform, path));
  });
}

}  // namespace pelkor
