#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "contracts/advisor.h"
#include "contracts/record.h"
#include "control/editor_events.h"
#include "platform/modal_dialog.h"
#include "platform/object_factory.h"
#include "platform/platform.h"
#include "trace/trace.h"

namespace pelkedit::testing {

// One line per call that matters for ordering, shared by the record and the engine:
// "adv.Set WIH=2", "adv.Evaluate", "rec.Set WIH=2".
using Journal = std::vector<std::string>;

// The error a fake raises when told to fail.
inline constexpr std::int32_t kInjectedError = 31337;
[[noreturn]] void RaiseInjected(const std::string& what);

class FakePlatform : public IPlatform {
 public:
  static constexpr std::int32_t kHostWindow = 4242;
  struct Box {
    std::string text;
    MsgIcon icon;
    MsgButtons buttons;
    std::string title;
  };
  struct Post {
    std::int32_t hwnd;
    std::uint32_t message;
    std::int32_t wparam;
    std::int32_t lparam;
  };
  using DialogScript = std::function<void(ModalDialog&)>;

  MsgAnswer MsgBox(const std::string& text, MsgIcon icon, MsgButtons buttons,
                   const std::string& title) override;
  void PostMessage(std::int32_t hwnd, std::uint32_t message, std::int32_t wparam,
                   std::int32_t lparam) override;
  std::int32_t HostWindowHandle() override { return kHostWindow; }
  MousePointer ScreenPointer() override { return pointer; }
  void SetScreenPointer(MousePointer p) override;
  Date Now() override { return now; }
  Date Today() override { return Date::FromDayNumber(now.DayNumber()); }
  std::string ShortDateFormat() override { return shortDateFormat; }
  // Answers from the short-date format, or `localeText` when set; 0 when `localeFails`.
  std::int32_t GetLocaleInfoA(std::int32_t locale, std::int32_t lctype, std::string& buffer,
                              std::int32_t size) override;
  void StartProcess(const std::string& commandLine) override { processes.push_back(commandLine); }
  // Opens the dialog, runs the next queued script, then closes it by its close box if the
  // script left it open.
  void ShowModal(ModalDialog& dialog) override;
  ObjectPtr CreateObject(const std::string& progId) override { return factory.Create(progId); }

  ObjectFactory factory;
  std::deque<MsgAnswer> answers;
  std::deque<DialogScript> dialogScripts;
  std::vector<Box> boxes;
  std::vector<Post> posts;
  std::vector<MousePointer> pointerChanges;
  std::vector<std::int32_t> localeSizes;
  std::vector<std::string> processes;
  MousePointer pointer = MousePointer::kDefault;
  Date now = Date::FromCivil(2024, 3, 5, 14, 7, 9);
  std::string shortDateFormat = "M/d/yyyy";
  std::optional<std::string> localeText;
  bool localeFails = false;
};

class FakeTrace : public ITrace {
 public:
  static constexpr std::int32_t kInvalidArgument = 5005;
  enum class Kind { kEnter, kLeave, kReport, kShowOwned, kShow };
  struct Call {
    Kind kind;
    std::string proc;  // procedure, or the error's source for reports
    std::int32_t number = 0;
    std::string description;
    std::int32_t hwnd = 0;
  };

  std::int32_t LastErrorNumber() override;
  void ReportError(const std::string& extra) override;
  void EnterProc(const std::string& procName) override { Add(Kind::kEnter, procName); }
  void LeaveProc(const std::string& procName) override { Add(Kind::kLeave, procName); }
  std::int32_t InvalidArgumentErrorNumber() override { return kInvalidArgument; }
  void ShowError() override { Add(Kind::kShow, ""); }
  void ShowErrorOwned(std::int32_t hwndOwner) override;

  std::vector<Call> Of(Kind kind) const;
  // Whether `proc` (qualified) was entered or left since the calls were last cleared.
  bool Entered(const std::string& proc) const;
  bool Left(const std::string& proc) const;
  std::vector<Call> calls;

 private:
  void Add(Kind kind, const std::string& proc, std::int32_t number = 0,
           const std::string& description = "", std::int32_t hwnd = 0) {
    calls.push_back(Call{kind, proc, number, description, hwnd});
  }
};

class FakeRecord : public IRecord {
 public:
  explicit FakeRecord(Journal& journal);
  Variant Get(const std::string& name) override;
  void Set(const std::string& name, const Variant& value) override;
  Variant GetAt(const std::string& name, std::int32_t index) override;
  void SetAt(const std::string& name, std::int32_t index, const Variant& value) override;
  std::string StatusText(std::int32_t status) override;
  Blob GetIboData() override;
  void SetIboData(const Blob& data) override;

  std::map<std::string, Variant> props;
  std::set<std::string> failSet;
  bool failIboData = false;
  Blob storage{'I', 'B', 'O'};
  int loads = 0;

 private:
  Journal& journal_;
};

class FakeData : public IDataAccess {
 public:
  Blob ReadIbo(std::int32_t iboId, const std::string& procName) override;
  void WriteIbo(const Blob& data, const std::string& procName) override;
  std::vector<std::pair<std::int32_t, std::string>> reads;
  std::vector<std::pair<Blob, std::string>> writes;
  bool failWrite = false;
};

class FakeSizeHelper : public ISizeHelper {
 public:
  explicit FakeSizeHelper(Variant size) : size_(std::move(size)) {}
  Variant GetPhysicalSize(const Blob&) override { return size_; }

 private:
  Variant size_;
};

class FakeAdvisor : public IAdvisor {
 public:
  FakeAdvisor(Journal& journal, const std::map<std::string, Variant>& presets);
  Variant Get(const std::string& name) override;
  void Set(const std::string& name, const Variant& value) override;
  void Evaluate() override;

  std::vector<std::pair<std::string, Variant>> facts;  // in the order they were set
  std::map<std::string, Variant> values;               // facts and results
  std::vector<std::string> gets;
  int evaluations = 0;
  bool failEvaluate = false;

 private:
  Journal& journal_;
};

class FakeEvents : public IEditorEvents {
 public:
  void SetFormCaption(const std::string& caption) override {
    raised.push_back("SetFormCaption:" + caption);
  }
  void SetIBOStatus(std::int32_t status) override {
    raised.push_back("SetIBOStatus:" + std::to_string(status));
  }
  void SetExpertMode(bool expert) override {
    raised.push_back(std::string("SetExpertMode:") + (expert ? "True" : "False"));
  }
  std::vector<std::string> raised;
};

// The collaborators of one test, created through the factory the editor uses.
struct FakeWorld {
  FakeWorld();
  void Register(ObjectFactory& factory);
  FakeAdvisor& Advisor() const { return *advisors.back(); }

  Journal journal;
  std::shared_ptr<FakeTrace> trace = std::make_shared<FakeTrace>();
  std::shared_ptr<FakeRecord> record;
  std::shared_ptr<FakeData> data = std::make_shared<FakeData>();
  std::vector<std::shared_ptr<FakeAdvisor>> advisors;
  // Results every new engine starts with.
  std::map<std::string, Variant> advisorResults;
  Variant physicalSize = std::int32_t{1000};
  int sizeChecks = 0;
};

}  // namespace pelkedit::testing
