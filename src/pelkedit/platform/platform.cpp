#include "platform/platform.h"

namespace pelkedit {

const char* MsgIconName(MsgIcon icon) {
  switch (icon) {
    case MsgIcon::kNone:
      return "none";
    case MsgIcon::kCritical:
      return "critical";
    case MsgIcon::kQuestion:
      return "question";
    case MsgIcon::kExclamation:
      return "exclamation";
    case MsgIcon::kInformation:
      return "information";
  }
  return "none";
}

const char* MsgButtonsName(MsgButtons buttons) {
  switch (buttons) {
    case MsgButtons::kOk:
      return "ok";
    case MsgButtons::kOkCancel:
      return "okcancel";
    case MsgButtons::kAbortRetryIgnore:
      return "abortretryignore";
    case MsgButtons::kYesNoCancel:
      return "yesnocancel";
    case MsgButtons::kYesNo:
      return "yesno";
    case MsgButtons::kRetryCancel:
      return "retrycancel";
  }
  return "ok";
}

const char* MsgAnswerName(MsgAnswer answer) {
  switch (answer) {
    case MsgAnswer::kOk:
      return "OK";
    case MsgAnswer::kCancel:
      return "Cancel";
    case MsgAnswer::kAbort:
      return "Abort";
    case MsgAnswer::kRetry:
      return "Retry";
    case MsgAnswer::kIgnore:
      return "Ignore";
    case MsgAnswer::kYes:
      return "Yes";
    case MsgAnswer::kNo:
      return "No";
  }
  return "OK";
}

}  // namespace pelkedit
