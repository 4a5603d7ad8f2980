#pragma once

#include <memory>
#include <string>

#include "contracts/advisor.h"
#include "contracts/journal.h"
#include "contracts/record.h"
#include "trace/trace.h"
#include "world_log.h"

namespace pelkscript {

// Decorators around the real collaborators: they record in the calls (or trace) log what the
// editor asks of them and raise the failures armed with `fail OBJECT.OPERATION`. Reads are not
// recorded. The runner observes through Inner(), which neither records nor fails.

// Shared by every decorator: where to record and which failures to raise.
struct Recording {
  WorldLog& log;
  FaultInjector& faults;
};

class RecordingRecord : public pelkedit::IRecord {
 public:
  RecordingRecord(Recording recording, std::shared_ptr<pelkedit::IRecord> inner);
  pelkedit::Variant Get(const std::string& name) override;
  void Set(const std::string& name, const pelkedit::Variant& value) override;
  pelkedit::Variant GetAt(const std::string& name, std::int32_t index) override;
  void SetAt(const std::string& name, std::int32_t index, const pelkedit::Variant& value) override;
  std::string StatusText(std::int32_t status) override;
  pelkedit::Blob GetIboData() override;
  void SetIboData(const pelkedit::Blob& data) override;
  pelkedit::IRecord& Inner() { return *inner_; }

 private:
  void Fault(const std::string& operation);
  Recording rec_;
  std::shared_ptr<pelkedit::IRecord> inner_;
};

// The row versions pass through unrecorded: they are the journal's bookkeeping.
class RecordingData : public pelkedit::IDataAccess, public pelkedit::ForwardedRowVersions {
 public:
  RecordingData(Recording recording, std::shared_ptr<pelkedit::IDataAccess> inner);
  pelkedit::Blob ReadIbo(std::int32_t iboId, const std::string& procName) override;
  void WriteIbo(const pelkedit::Blob& data, const std::string& procName) override;

 private:
  Recording rec_;
  std::shared_ptr<pelkedit::IDataAccess> inner_;
};

class RecordingSize : public pelkedit::ISizeHelper {
 public:
  RecordingSize(Recording recording, std::shared_ptr<pelkedit::ISizeHelper> inner);
  pelkedit::Variant GetPhysicalSize(const pelkedit::Blob& data) override;

 private:
  Recording rec_;
  std::shared_ptr<pelkedit::ISizeHelper> inner_;
};

class RecordingAdvisor : public pelkedit::IAdvisor {
 public:
  RecordingAdvisor(Recording recording, std::shared_ptr<pelkedit::IAdvisor> inner);
  pelkedit::Variant Get(const std::string& name) override;
  void Set(const std::string& name, const pelkedit::Variant& value) override;
  void Evaluate() override;
  pelkedit::IAdvisor& Inner() { return *inner_; }

 private:
  void Fault(const std::string& operation);
  Recording rec_;
  std::shared_ptr<pelkedit::IAdvisor> inner_;
};

// Feeds the trace log (`print trace`) and forwards to the real trace component.
class RecordingTrace : public pelkedit::ITrace {
 public:
  RecordingTrace(Recording recording, std::shared_ptr<pelkedit::ITrace> inner);
  std::int32_t LastErrorNumber() override;
  void ReportError(const std::string& extra) override;
  void EnterProc(const std::string& procName) override;
  void LeaveProc(const std::string& procName) override;
  std::int32_t InvalidArgumentErrorNumber() override;
  void ShowError() override;
  void ShowErrorOwned(std::int32_t hwndOwner) override;

 private:
  void Fault(const std::string& operation);
  Recording rec_;
  std::shared_ptr<pelkedit::ITrace> inner_;
};

// The real object behind a record or advisor the editor holds (itself when undecorated).
pelkedit::IRecord& Unwrapped(pelkedit::IRecord& record);
pelkedit::IAdvisor& Unwrapped(pelkedit::IAdvisor& advisor);

}  // namespace pelkscript
