#include "recording.h"

#include "trace/trace.h"
#include "values/variant.h"

namespace pelkscript {
namespace {

constexpr const char* kAdvisorSource = "PelkInrt.Advisor";

using pelkedit::Blob;
using pelkedit::Variant;
using Kind = WorldLog::Kind;

std::string Indexed(const std::string& name, std::int32_t index) {
  return name + "(" + std::to_string(index) + ")";
}

}  // namespace

// --- record -------------------------------------------------------------------------------

RecordingRecord::RecordingRecord(Recording recording, std::shared_ptr<pelkedit::IRecord> inner)
    : rec_(recording), inner_(std::move(inner)) {}

void RecordingRecord::Fault(const std::string& operation) {
  rec_.faults.Check("record", operation, pelkedit::kRecordProgId);
}

Variant RecordingRecord::Get(const std::string& name) {
  Fault(name);
  return inner_->Get(name);
}

void RecordingRecord::Set(const std::string& name, const Variant& value) {
  rec_.log.Add(Kind::kCalls, "record." + name + " = " + value.ToDisplay());
  Fault(name);
  inner_->Set(name, value);
}

Variant RecordingRecord::GetAt(const std::string& name, std::int32_t index) {
  Fault(name);
  return inner_->GetAt(name, index);
}

void RecordingRecord::SetAt(const std::string& name, std::int32_t index, const Variant& value) {
  rec_.log.Add(Kind::kCalls, "record." + Indexed(name, index) + " = " + value.ToDisplay());
  Fault(name);
  inner_->SetAt(name, index, value);
}

std::string RecordingRecord::StatusText(std::int32_t status) {
  Fault("StatusText");
  return inner_->StatusText(status);
}

Blob RecordingRecord::GetIboData() {
  Fault("IboData");
  return inner_->GetIboData();
}

void RecordingRecord::SetIboData(const Blob& data) {
  rec_.log.Add(Kind::kCalls, "record.IboData = <" + std::to_string(data.size()) + " bytes>");
  Fault("IboData");
  inner_->SetIboData(data);
}

// --- data access and size helper ----------------------------------------------------------

RecordingData::RecordingData(Recording recording, std::shared_ptr<pelkedit::IDataAccess> inner)
    : ForwardedRowVersions(inner), rec_(recording), inner_(std::move(inner)) {}

Blob RecordingData::ReadIbo(std::int32_t iboId, const std::string& procName) {
  rec_.log.Add(Kind::kCalls,
               "data.ReadIbo " + std::to_string(iboId) + " " + pelkedit::QuoteString(procName));
  rec_.faults.Check("data", "ReadIbo", pelkedit::kDataProgId);
  return inner_->ReadIbo(iboId, procName);
}

void RecordingData::WriteIbo(const Blob& data, const std::string& procName) {
  rec_.log.Add(Kind::kCalls, "data.WriteIbo " + pelkedit::QuoteString(procName));
  rec_.faults.Check("data", "WriteIbo", pelkedit::kDataProgId);
  inner_->WriteIbo(data, procName);
}

RecordingSize::RecordingSize(Recording recording, std::shared_ptr<pelkedit::ISizeHelper> inner)
    : rec_(recording), inner_(std::move(inner)) {}

Variant RecordingSize::GetPhysicalSize(const Blob& data) {
  rec_.log.Add(Kind::kCalls, "size.GetPhysicalSize");
  rec_.faults.Check("size", "GetPhysicalSize", pelkedit::kSizeHelperProgId);
  return inner_->GetPhysicalSize(data);
}

// --- advisor ------------------------------------------------------------------------------

RecordingAdvisor::RecordingAdvisor(Recording recording, std::shared_ptr<pelkedit::IAdvisor> inner)
    : rec_(recording), inner_(std::move(inner)) {}

void RecordingAdvisor::Fault(const std::string& operation) {
  rec_.faults.Check("advisor", operation, kAdvisorSource);
}

Variant RecordingAdvisor::Get(const std::string& name) {
  Fault(name);
  return inner_->Get(name);
}

void RecordingAdvisor::Set(const std::string& name, const Variant& value) {
  rec_.log.Add(Kind::kCalls, "advisor." + name + " = " + value.ToDisplay());
  Fault(name);
  inner_->Set(name, value);
}

void RecordingAdvisor::Evaluate() {
  rec_.log.Add(Kind::kCalls, "advisor.Evaluate");
  Fault("Evaluate");
  inner_->Evaluate();
}

// --- trace --------------------------------------------------------------------------------

RecordingTrace::RecordingTrace(Recording recording, std::shared_ptr<pelkedit::ITrace> inner)
    : rec_(recording), inner_(std::move(inner)) {}

void RecordingTrace::Fault(const std::string& operation) {
  rec_.faults.Check("trace", operation, pelkedit::kTraceProgId);
}

std::int32_t RecordingTrace::LastErrorNumber() {
  Fault("LastErrorNumber");
  return inner_->LastErrorNumber();
}

void RecordingTrace::ReportError(const std::string& extra) {
  rec_.log.Add(Kind::kTrace, "ReportError " + pelkedit::QuoteString(extra));
  Fault("ReportError");
  inner_->ReportError(extra);
}

void RecordingTrace::EnterProc(const std::string& procName) {
  rec_.log.Add(Kind::kTrace, "EnterProc " + pelkedit::QuoteString(procName));
  Fault("EnterProc");
  inner_->EnterProc(procName);
}

void RecordingTrace::LeaveProc(const std::string& procName) {
  rec_.log.Add(Kind::kTrace, "LeaveProc " + pelkedit::QuoteString(procName));
  Fault("LeaveProc");
  inner_->LeaveProc(procName);
}

std::int32_t RecordingTrace::InvalidArgumentErrorNumber() {
  Fault("InvalidArgumentErrorNumber");
  return inner_->InvalidArgumentErrorNumber();
}

void RecordingTrace::ShowError() {
  rec_.log.Add(Kind::kTrace, "ShowError");
  Fault("ShowError");
  inner_->ShowError();
}

void RecordingTrace::ShowErrorOwned(std::int32_t hwndOwner) {
  rec_.log.Add(Kind::kTrace, "ShowErrorOwned");
  Fault("ShowErrorOwned");
  inner_->ShowErrorOwned(hwndOwner);
}

// --- unwrapping ---------------------------------------------------------------------------

pelkedit::IRecord& Unwrapped(pelkedit::IRecord& record) {
  auto* decorated = dynamic_cast<RecordingRecord*>(&record);
  return decorated != nullptr ? decorated->Inner() : record;
}

pelkedit::IAdvisor& Unwrapped(pelkedit::IAdvisor& advisor) {
  auto* decorated = dynamic_cast<RecordingAdvisor*>(&advisor);
  return decorated != nullptr ? decorated->Inner() : advisor;
}

}  // namespace pelkscript
