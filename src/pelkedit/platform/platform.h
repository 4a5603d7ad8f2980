#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/com_object.h"
#include "values/date.h"
#include "values/error.h"

namespace pelkedit {

class ModalDialog;

enum class MsgIcon { kNone, kCritical, kQuestion, kExclamation, kInformation };
enum class MsgButtons { kOk, kOkCancel, kAbortRetryIgnore, kYesNoCancel, kYesNo, kRetryCancel };
enum class MsgAnswer {
  kOk = 1,
  kCancel = 2,
  kAbort = 3,
  kRetry = 4,
  kIgnore = 5,
  kYes = 6,
  kNo = 7
};

// Screen mouse pointers, with the classic codes.
enum class MousePointer : std::int32_t {
  kDefault = 0,
  kArrow = 1,
  kHourglass = 11,
  // An arrow with a question mark: the sign that a click opens help.
  kArrowQuestion = 14,
};

const char* MsgIconName(MsgIcon icon);
const char* MsgButtonsName(MsgButtons buttons);
const char* MsgAnswerName(MsgAnswer answer);

// The window message that asks a window to close.
inline constexpr std::uint32_t kWmClose = 0x10;
// Locale service arguments: the user's default locale and the short-date ordering item.
inline constexpr std::int32_t kLocaleUserDefault = 0x0400;
inline constexpr std::int32_t kLocaleIDate = 0x21;
inline constexpr int kTwipsPerPixel = 15;

// Everything the editor needs from the platform that hosts it. Nothing in the core reads
// the clock, the environment or the file system except through this.
class IPlatform {
 public:
  virtual ~IPlatform() = default;

  virtual MsgAnswer MsgBox(const std::string& text, MsgIcon icon, MsgButtons buttons,
                           const std::string& title) = 0;
  // Posted, not sent: the host handles it after the current event has returned.
  virtual void PostMessage(std::int32_t hwnd, std::uint32_t message, std::int32_t wparam,
                           std::int32_t lparam) = 0;
  // Handle of the host window that contains the component.
  virtual std::int32_t HostWindowHandle() = 0;

  virtual MousePointer ScreenPointer() = 0;
  virtual void SetScreenPointer(MousePointer pointer) = 0;

  virtual Date Now() = 0;
  virtual Date Today() = 0;

  // The user's short-date format, e.g. "M/d/yyyy".
  virtual std::string ShortDateFormat() = 0;
  // Classic locale query: writes at most `size` characters (terminating zero included) into
  // `buffer` and returns how many were written, or 0 on failure.
  virtual std::int32_t GetLocaleInfoA(std::int32_t locale, std::int32_t lctype, std::string& buffer,
                                      std::int32_t size) = 0;

  virtual void StartProcess(const std::string& commandLine) = 0;
  // Shows a dialog model modally and returns when it has closed.
  virtual void ShowModal(ModalDialog& dialog) = 0;
  // Creates a collaborator; error 429 when it cannot be created.
  virtual ObjectPtr CreateObject(const std::string& progId) = 0;
};

// Creates a collaborator and takes it as the interface it is used by; error 13 when the
// identifier gives something else.
template <typename T>
std::shared_ptr<T> CreateObjectAs(IPlatform& platform, const char* progId) {
  auto object = std::dynamic_pointer_cast<T>(platform.CreateObject(progId));
  if (!object) Raise(errnum::kTypeMismatch, progId);
  return object;
}

}  // namespace pelkedit
