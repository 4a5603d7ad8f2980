#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "platform/object_factory.h"
#include "platform/platform.h"
#include "values/variant.h"
#include "world_log.h"

namespace pelkscript {

// What the user does in one modal dialog, without naming its widgets: fill an input field
// by its position among the dialog's fields (a day number into a date field, text into a text
// box), press the default or the cancel button, or close the window with its close box.
struct DialogStep {
  enum class Kind { kField, kAccept, kCancel, kClose };
  explicit DialogStep(Kind k) : kind(k) {}
  DialogStep(std::size_t fieldPosition, pelkedit::Variant v)
      : kind(Kind::kField), field(fieldPosition), value(std::move(v)) {}
  Kind kind;
  std::size_t field = 0;
  pelkedit::Variant value;
};
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
  // What the user does in the next dialog of that name; a dialog with nothing queued is
  // closed with its close box.
  void QueueDialog(const std::string& dialogName, std::vector<DialogStep> steps) {
    dialogs_[dialogName].push_back(std::move(steps));
  }
  // Told when a box needed an answer that was not queued (or did not fit); the box is then
  // answered with its cancelling button.
  std::function<void(const std::string& problem)> onUnansweredBox;
  // Dialogs that must have their steps queued; told (then closed with the close box) when one
  // opens with nothing queued.
  void RequireAnswer(const std::string& dialogName) { answerRequired_.insert(dialogName); }
  std::function<void(const std::string& problem)> onUnansweredDialog;

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
  std::map<std::string, std::deque<std::vector<DialogStep>>> dialogs_;
  std::set<std::string> answerRequired_;
};

// The default clock of a fresh world.
pelkedit::Date DefaultClock();

}  // namespace pelkscript
