#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/object_factory.h"
#include "platform/platform.h"
#include "world_log.h"

namespace pelkscript {

// What the user does in one start-date dialog.
struct DialogStep {
  enum class Kind { kSetDay, kSave, kCancel, kClose };
  Kind kind;
  std::int32_t day = 0;
};

inline constexpr const char* kStartDateDialogName = "frmStartDate";
inline constexpr const char* kPlatformSource = "ScriptedPlatform";
// The handle the scripted host window answers with.
inline constexpr std::int32_t kScriptedHostWindow = 0x00010F2A;

// The headless platform: a fixed clock, a short-date format, queued message-box answers and
// dialog steps, and a record of what was asked of it.
class ScriptedPlatform : public pelkedit::IPlatform {
 public:
  ScriptedPlatform(WorldLog& log, FaultInjector& faults, pelkedit::ObjectFactory& factory);

  void SetClock(pelkedit::Date now) { now_ = now; }
  void SetShortDateFormat(std::string format);
  void SetLocaleFails();
  void SetLocaleAnswer(std::string rawAnswer);
  void QueueAnswer(pelkedit::MsgAnswer answer) { answers_.push_back(answer); }
  void QueueStartDateSteps(std::vector<DialogStep> steps) {
    startDateDialogs_.push_back(std::move(steps));
  }
  // Told when a box needed an answer that was not queued (or did not fit); the box is then
  // answered with its cancelling button.
  std::function<void(const std::string& problem)> onUnansweredBox;

  pelkedit::MsgAnswer MsgBox(const std::string& text, pelkedit::MsgIcon icon,
                             pelkedit::MsgButtons buttons, const std::string& title) override;
  void PostMessage(std::int32_t hwnd, std::uint32_t message, std::int32_t wparam,
                   std::int32_t lparam) override;
  std::int32_t HostWindowHandle() override;
  pelkedit::MousePointer ScreenPointer() override;
  void SetScreenPointer(pelkedit::MousePointer pointer) override;
  pelkedit::Date Now() override;
  pelkedit::Date Today() override;
  std::string ShortDateFormat() override;
  std::int32_t GetLocaleInfoA(std::int32_t locale, std::int32_t lctype, std::string& buffer,
                              std::int32_t size) override;
  void StartProcess(const std::string& commandLine) override;
  void ShowModal(pelkedit::ModalDialog& dialog) override;
  pelkedit::ObjectPtr CreateObject(const std::string& progId) override;

  // The screen pointer as it is now, for observation (no fault, no record).
  pelkedit::MousePointer CurrentPointer() const { return pointer_; }

 private:
  enum class LocaleMode { kFromFormat, kFails, kRawAnswer };
  void Fault(const std::string& operation);
  pelkedit::MsgAnswer Answer(const std::string& text, pelkedit::MsgButtons buttons);
  std::string DateOrderText() const;

  WorldLog& log_;
  FaultInjector& faults_;
  pelkedit::ObjectFactory& factory_;
  pelkedit::Date now_;
  std::string shortDateFormat_ = "M/d/yyyy";
  LocaleMode localeMode_ = LocaleMode::kFromFormat;
  std::string localeAnswer_;
  pelkedit::MousePointer pointer_ = pelkedit::MousePointer::kDefault;
  std::deque<pelkedit::MsgAnswer> answers_;
  std::deque<std::vector<DialogStep>> startDateDialogs_;
};

// The default clock of a fresh world.
pelkedit::Date DefaultClock();

}  // namespace pelkscript
