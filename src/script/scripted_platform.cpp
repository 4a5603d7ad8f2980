#include "scripted_platform.h"

#include <algorithm>

#include "locale/mod_locale.h"
#include "platform/modal_dialog.h"
#include "values/variant.h"
#include "widgets/controls.h"

namespace pelkscript {
namespace {

using pelkedit::MsgAnswer;
using pelkedit::MsgButtons;

constexpr int kDefaultYear = 2026;
constexpr int kDefaultMonth = 1;
constexpr int kDefaultDay = 15;
constexpr int kDefaultHour = 10;

std::vector<MsgAnswer> AnswersOf(MsgButtons buttons) {
  switch (buttons) {
    case MsgButtons::kOk:
      return {MsgAnswer::kOk};
    case MsgButtons::kOkCancel:
      return {MsgAnswer::kOk, MsgAnswer::kCancel};
    case MsgButtons::kAbortRetryIgnore:
      return {MsgAnswer::kAbort, MsgAnswer::kRetry, MsgAnswer::kIgnore};
    case MsgButtons::kYesNoCancel:
      return {MsgAnswer::kYes, MsgAnswer::kNo, MsgAnswer::kCancel};
    case MsgButtons::kYesNo:
      return {MsgAnswer::kYes, MsgAnswer::kNo};
    case MsgButtons::kRetryCancel:
      return {MsgAnswer::kRetry, MsgAnswer::kCancel};
  }
  return {MsgAnswer::kOk};
}

// The answer a box gives when the user dismisses it without choosing (Escape).
MsgAnswer CancellingAnswer(MsgButtons buttons) {
  switch (buttons) {
    case MsgButtons::kOk:
      return MsgAnswer::kOk;
    case MsgButtons::kYesNo:
      return MsgAnswer::kNo;
    case MsgButtons::kAbortRetryIgnore:
      return MsgAnswer::kAbort;
    default:
      return MsgAnswer::kCancel;
  }
}

// Fills a field as the user would: a day number into a date field, text into a text box.
void FillField(pelkedit::Widget& field, const pelkedit::Variant& value) {
  if (auto* date = dynamic_cast<pelkedit::DayValued*>(&field)) {
    date->UserSetDay(value.AsLong());
    return;
  }
  if (auto* text = dynamic_cast<pelkedit::TextBox*>(&field)) {
    text->SetFocus();
    text->UserType(value.AsString());
    return;
  }
  throw pelkedit::PelkError(pelkedit::errnum::kTypeMismatch, kPlatformSource,
                            field.Name() + " takes no typed value");
}

void Press(pelkedit::ModalDialog& dialog, const std::string& button) {
  if (button.empty()) {
    dialog.CloseBox();
    return;
  }
  dialog.Widgets().Get<pelkedit::Button>(button).UserClick();
}

// Runs the steps in order while the dialog stays open.
void RunSteps(const std::vector<DialogStep>& steps, pelkedit::ModalDialog& dialog) {
  const std::vector<std::string> fields = dialog.InputFields();
  for (const DialogStep& step : steps) {
    if (!dialog.IsOpen()) return;
    switch (step.kind) {
      case DialogStep::Kind::kField:
        if (step.field >= fields.size()) {
          throw pelkedit::PelkError(pelkedit::errnum::kSubscriptOutOfRange, kPlatformSource,
                                    dialog.Name() + " has no field " + std::to_string(step.field));
        }
        FillField(dialog.Widgets().Get<pelkedit::Widget>(fields[step.field]), step.value);
        break;
      case DialogStep::Kind::kAccept:
        Press(dialog, dialog.DefaultButton());
        break;
      case DialogStep::Kind::kCancel:
        Press(dialog, dialog.CancelButton());
        break;
      case DialogStep::Kind::kClose:
        dialog.CloseBox();
        break;
    }
  }
}

}  // namespace

pelkedit::Date DefaultClock() {
  return pelkedit::Date::FromCivil(kDefaultYear, kDefaultMonth, kDefaultDay, kDefaultHour);
}

ScriptedPlatform::ScriptedPlatform(WorldLog& log, FaultInjector& faults,
                                   pelkedit::ObjectFactory& factory)
    : log_(log), faults_(faults), factory_(factory), now_(DefaultClock()) {}

void ScriptedPlatform::SetShortDateFormat(std::string format) {
  shortDateFormat_ = std::move(format);
  localeMode_ = LocaleMode::kFromFormat;
}

void ScriptedPlatform::SetLocaleFails() {
  localeMode_ = LocaleMode::kFails;
}

void ScriptedPlatform::SetLocaleAnswer(std::string rawAnswer) {
  localeAnswer_ = std::move(rawAnswer);
  localeMode_ = LocaleMode::kRawAnswer;
}

void ScriptedPlatform::Fault(const std::string& operation) {
  faults_.Check("platform", operation, kPlatformSource);
}

MsgAnswer ScriptedPlatform::Answer(const std::string& text, MsgButtons buttons) {
  // A box with only OK takes a queued OK but leaves other answers for the boxes they were
  // meant for.
  if (buttons == MsgButtons::kOk) {
    if (!answers_.empty() && answers_.front() == MsgAnswer::kOk) answers_.pop_front();
    return MsgAnswer::kOk;
  }
  const MsgAnswer fallback = CancellingAnswer(buttons);
  const std::string box =
      "message box " + pelkedit::QuoteString(text) + " (" + pelkedit::MsgButtonsName(buttons) + ")";
  if (answers_.empty()) {
    if (onUnansweredBox) {
      onUnansweredBox("unanswered " + box + " answered " + pelkedit::MsgAnswerName(fallback));
    }
    return fallback;
  }
  const MsgAnswer queued = answers_.front();
  answers_.pop_front();
  const auto fits = AnswersOf(buttons);
  if (std::find(fits.begin(), fits.end(), queued) != fits.end()) return queued;
  if (onUnansweredBox) {
    onUnansweredBox(std::string("answer ") + pelkedit::MsgAnswerName(queued) + " does not fit " +
                    box + ", answered " + pelkedit::MsgAnswerName(fallback));
  }
  return fallback;
}

MsgAnswer ScriptedPlatform::MsgBox(const std::string& text, pelkedit::MsgIcon icon,
                                   MsgButtons buttons, const std::string& title) {
  Fault("MsgBox");
  const MsgAnswer answer = Answer(text, buttons);
  log_.Add(WorldLog::Kind::kMessages,
           "msgbox " + pelkedit::QuoteString(text) + " title " + pelkedit::QuoteString(title) +
               " icon " + pelkedit::MsgIconName(icon) + " buttons " +
               pelkedit::MsgButtonsName(buttons) + " -> " + pelkedit::MsgAnswerName(answer));
  return answer;
}

void ScriptedPlatform::PostMessage(std::int32_t /*hwnd*/, std::uint32_t message,
                                   std::int32_t wparam, std::int32_t lparam) {
  Fault("PostMessage");
  log_.Add(WorldLog::Kind::kCalls, "platform.PostMessage " + std::to_string(message) + " " +
                                       std::to_string(wparam) + " " + std::to_string(lparam));
}

std::int32_t ScriptedPlatform::HostWindowHandle() {
  Fault("HostWindowHandle");
  return kScriptedHostWindow;
}

pelkedit::MousePointer ScriptedPlatform::ScreenPointer() {
  Fault("ScreenPointer");
  return pointer_;
}

void ScriptedPlatform::SetScreenPointer(pelkedit::MousePointer pointer) {
  Fault("SetScreenPointer");
  pointer_ = pointer;
}

pelkedit::Date ScriptedPlatform::Now() {
  Fault("Now");
  return now_;
}

pelkedit::Date ScriptedPlatform::Today() {
  Fault("Today");
  return pelkedit::Date::FromDayNumber(now_.DayNumber());
}

std::string ScriptedPlatform::ShortDateFormat() {
  Fault("ShortDateFormat");
  return shortDateFormat_;
}

std::string ScriptedPlatform::DateOrderText() const {
  if (localeMode_ == LocaleMode::kRawAnswer) return localeAnswer_;
  const auto order = pelkedit::DateOrderFromFormat(shortDateFormat_);
  return order ? std::to_string(*order) : std::string();
}

std::int32_t ScriptedPlatform::GetLocaleInfoA(std::int32_t locale, std::int32_t lctype,
                                              std::string& buffer, std::int32_t size) {
  Fault("GetLocaleInfoA");
  if (localeMode_ == LocaleMode::kFails || locale != pelkedit::kLocaleUserDefault ||
      lctype != pelkedit::kLocaleIDate) {
    return 0;
  }
  const std::string text = DateOrderText();
  if (text.empty() && localeMode_ == LocaleMode::kFromFormat) return 0;
  // The count includes the terminating zero; size 0 asks for the count without writing.
  const auto needed = static_cast<std::int32_t>(text.size() + 1);
  if (size == 0) return needed;
  if (size < needed) return 0;
  if (buffer.size() < text.size() + 1) buffer.resize(text.size() + 1);
  buffer.replace(0, text.size(), text);
  buffer[text.size()] = '\0';
  return needed;
}

void ScriptedPlatform::StartProcess(const std::string& commandLine) {
  // Listed before its injected failure, as every failing call is.
  log_.Add(WorldLog::Kind::kCalls, "platform.StartProcess " + pelkedit::QuoteString(commandLine));
  Fault("StartProcess");
}

void ScriptedPlatform::ShowModal(pelkedit::ModalDialog& dialog) {
  log_.Add(WorldLog::Kind::kCalls, "dialog " + dialog.Name() + " shown");
  Fault("ShowModal");
  std::vector<DialogStep> steps;
  auto& queued = dialogs_[dialog.Name()];
  if (!queued.empty()) {
    steps = std::move(queued.front());
    queued.pop_front();
  } else if (answerRequired_.count(dialog.Name()) != 0 && onUnansweredDialog) {
    onUnansweredDialog("unanswered dialog " + dialog.Name() + " closed with its close box");
  }
  dialog.Open();
  RunSteps(steps, dialog);
  if (dialog.IsOpen()) dialog.CloseBox();
}

pelkedit::ObjectPtr ScriptedPlatform::CreateObject(const std::string& progId) {
  Fault("CreateObject");
  return factory_.Create(progId);
}

}  // namespace pelkscript
