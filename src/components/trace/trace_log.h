#pragma once

#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "platform/object_factory.h"
#include "platform/platform.h"
#include "trace/trace.h"

namespace pelkor {

// The trace component: appends one line per procedure entry, exit and reported error to a
// log file and shows errors through the platform's message box. A log that cannot be written
// never stops the editor; tracing goes on without the file.
class TraceLog : public pelkedit::ITrace {
 public:
  // The log is rotated once it has grown to `rotateAtBytes`: the full file becomes PATH.1
  // (replacing the one before) and a new file starts.
  static constexpr std::uintmax_t kRotateAtBytes = 1024 * 1024;
  TraceLog(pelkedit::IPlatform& platform, std::string logPath,
           std::uintmax_t rotateAtBytes = kRotateAtBytes);
  ~TraceLog() override;
  TraceLog(const TraceLog&) = delete;
  TraceLog& operator=(const TraceLog&) = delete;

  std::int32_t LastErrorNumber() override { return lastErrorNumber_; }
  void ReportError(const std::string& extra) override;
  void EnterProc(const std::string& procName) override;
  void LeaveProc(const std::string& procName) override;
  std::int32_t InvalidArgumentErrorNumber() override;
  void ShowError() override;
  void ShowErrorOwned(std::int32_t hwndOwner) override;

  // Procedures entered and not yet left or abandoned by an error.
  int Depth() const { return static_cast<int>(open_.size()); }
  // Whether lines still reach the file; false once opening or writing it failed.
  bool Writing() const { return out_ != nullptr; }
  const std::string& LogPath() const { return logPath_; }
  void Flush();

 private:
  void OpenLog();
  void WriteLine(int depth, const char* marker, const std::string& text);
  void CheckStream();
  void GiveUpFile(const std::string& reason);
  // Rotates a log that has reached its size; between outermost procedures only, so that no
  // call is split over two files.
  void RotateIfFull();

  pelkedit::IPlatform& platform_;
  std::string logPath_;
  std::uintmax_t rotateAtBytes_;
  // C streams rather than iostreams: opening the editor should not set up the C++ locale.
  struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
  };
  std::unique_ptr<std::FILE, CloseFile> out_;
  // Names of the open procedures, outermost first.
  std::vector<std::string> open_;
  std::int32_t lastErrorNumber_ = 0;
};

std::shared_ptr<pelkedit::ITrace> CreateTraceLog(pelkedit::IPlatform& platform,
                                                 std::string logPath);

// Makes the trace component creatable by its programmatic identifier. The platform must
// outlive every trace object the factory creates.
void RegisterTraceComponent(pelkedit::ObjectFactory& factory, pelkedit::IPlatform& platform,
                            std::string logPath);

// The text a user sees for the error being handled: description, then number and source.
std::string ErrorMessageText();

}  // namespace pelkor
