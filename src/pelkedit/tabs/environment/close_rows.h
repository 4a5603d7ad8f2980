#pragma once
// What the Close phase's two files share: its rows, widget names and geometry.
#include <cstdint>

#include "contracts/names.h"
#include "values/date.h"

namespace pelkedit::close_page {

inline constexpr std::int32_t kTextLimit = 150;
inline constexpr std::int32_t kFirstCloseDay = 1460;  // 1904-01-01
inline constexpr std::int32_t kLastCloseDay = 48211;  // 2031-12-31
inline constexpr double kTooEarlyPosition = 0.7625;
inline constexpr std::int32_t kResultWon = 1;
inline constexpr std::int32_t kResultLost = 2;
inline constexpr std::int32_t kRingSlots = 10;
inline const Date kNoCloseDate = Date::FromDayNumber(kFirstCloseDay);

// Stacking in twips: labels and inputs in two columns, rows from the top.
inline constexpr float kLabelLeft = 240;
inline constexpr float kInputLeft = 1440;
inline constexpr float kTrialCloseTop = 240;
inline constexpr float kDecidedTop = 585;
inline constexpr float kRowStep = 345;
inline constexpr float kAfterTextBox = 60;

// One row of the page: its label, the widget that takes the answer, and whether that widget
// is a text box (the next row then follows its height; its label stands level with its top).
struct Row {
  const char* label;
  const char* input;
  bool textBox;
};
inline const Row kTrialClose{"lblCloseTC", "fraCloseTC", false};
inline const Row kDecided{"lblCloseDecided", "fraCloseDecided", false};
inline const Row kResult{"lblCloseResult", "cboResult", false};
inline const Row kDate{"lblCloseDate", widget::deCloseDateEdit, false};
inline const Row kReason{"lblCloseReason", "txtCloseReason", true};
inline const Row kWinBidder{"lblCloseWinBidder", "txtCloseWinBidder", true};
inline const Row kBarriers{"lblCloseBarriers", "txtCloseBarriers", true};
inline const Row kStrategy{"lblCloseStrategy", "txtCloseStrategy", true};
inline const Row kEnacted{"lblCloseEnacted", "fraCloseEnacted", false};
inline const Row* const kHideable[] = {&kTrialClose, &kDecided,  &kResult,   &kDate,   &kReason,
                                       &kWinBidder,  &kBarriers, &kStrategy, &kEnacted};

inline constexpr const char* kTooEarly = "lblSEnvCloseTooEarly";
inline constexpr const char* kCalendar = "dtCloseDate";
inline constexpr const char* kHistory = "txtTrialCloseHistory";
inline constexpr const char* kResultList = "cboResult";
inline constexpr const char* kTcYes = "optCloseTCYes";
inline constexpr const char* kTcNo = "optCloseTCNo";
inline constexpr const char* kDecidedYes = "optCloseDecidedYes";
inline constexpr const char* kDecidedNo = "optCloseDecidedNo";
inline constexpr const char* kEnactedYes = "optCloseEnactedYes";
inline constexpr const char* kEnactedNo = "optCloseEnactedNo";

// The labels that open help when clicked.
inline const char* const kHelpLabels[] = {
    "lblCloseTC",        "lblCloseDecided",  "lblCloseBarriers", "lblCloseStrategy",
    "lblCloseDate",      "lblCloseEnacted",  "lblCloseReason",   "lblCloseResult",
    "lblCloseWinBidder", "lblCloseTcHistory"};

// Sizes in pixels of what the page places.
inline constexpr float kLabelWidth = 76;
inline constexpr float kPairWidth = 120;
inline constexpr float kOptionWidth = 56;
inline constexpr float kInputWidth = 120;
inline constexpr float kTextWidth = 460;
inline constexpr float kTextHeight = 41;
inline constexpr float kCalendarWidth = 230;
inline constexpr float kCalendarHeight = 180;
inline constexpr float kHistoryLabelTop = 200;
inline constexpr float kHistoryTop = 218;
inline constexpr float kHistoryWidth = 568;
inline constexpr float kHistoryHeight = 84;

}  // namespace pelkedit::close_page
