#include "tabs/essentials/essentials_tab.h"

#include "control/editor_context.h"
#include "locale/mod_locale.h"
#include "tabs/advisor/matrix_priority.h"
#include "trace/error_paths.h"

namespace pelkedit {
namespace {

constexpr std::int32_t kFirstWwihDay = 1460;  // 1904-01-01
constexpr std::int32_t kLastWwihDay = 48211;  // 2031-12-31
const char* const kLevels[] = {"Low", "Medium", "High"};
constexpr std::int32_t kLevelCount = 3;

}  // namespace

void EssentialsTab::Wire() {
  for (std::int32_t code = 0; code < kLevelCount; ++code) {
    const std::string level = kLevels[code];
    ctx_.Get<OptionButton>("optWih" + level).onClick = [this, code, level] {
      RunHandler(EditorContext::Proc("optWih" + level + "_Click"), ctx_.platform, [&] {
        if (!ctx_.state.loading) UpdateUserWIH(code);
      });
    };
    ctx_.Get<OptionButton>("optWwgi" + level).onClick = [this, code, level] {
      RunHandler(EditorContext::Proc("optWwgi" + level + "_Click"), ctx_.platform, [&] {
        if (!ctx_.state.loading) UpdateUserWWGI(code);
      });
    };
  }
  auto& dateEdit = ctx_.Get<DateEdit>("deWwih");
  dateEdit.onLostFocus = [this] { DeWwihLostFocus(); };
  dateEdit.onClickDrop = [this] { DeWwihClickDrop(); };
  auto& calendar = ctx_.Get<Calendar>("dtWwih");
  calendar.onDateClick = [this](int day, int month, int year) {
    DtWwihDateClick(day, month, year);
  };
  calendar.onLostFocus = [this] {
    RunHandler(EditorContext::Proc("dtWwih_LostFocus"), ctx_.platform,
               [&] { ctx_.Get<Calendar>("dtWwih").SetVisible(false); });
  };
}

void EssentialsTab::SelectOption(const char* procedure, const std::string& prefix,
                                 std::int32_t code) {
  RunMethod(EditorContext::Proc(procedure), [&] {
    for (std::int32_t i = 0; i < kLevelCount; ++i) {
      ctx_.Get<OptionButton>(prefix + kLevels[i]).SetValue(i == code);
    }
  });
}

void EssentialsTab::InitIboEssentials() {
  RunMethod(EditorContext::Proc("InitIboEssentials"), [&] {
    ctx_.matrix->RefreshMatrixInfo(false);
    ctx_.matrix->RefreshPriorityInfo(false);
    IRecord& rec = ctx_.Rec();
    static const char* const kWihSetters[] = {"SetOptWihLow", "SetOptWihMedium", "SetOptWihHigh"};
    static const char* const kWwgiSetters[] = {"SetOptWwgiLow", "SetOptWwgiMedium",
                                               "SetOptWwgiHigh"};
    const std::int32_t wih = rec.Get("WIH").AsLong();
    if (wih >= 0 && wih < kLevelCount) SelectOption(kWihSetters[wih], "optWih", wih);
    const std::int32_t wwgi = rec.Get("WWGI").AsLong();
    if (wwgi >= 0 && wwgi < kLevelCount) SelectOption(kWwgiSetters[wwgi], "optWwgi", wwgi);
    auto& dateEdit = ctx_.Get<DateEdit>("deWwih");
    dateEdit.SetMinDay(kFirstWwihDay);
    dateEdit.SetMaxDay(kLastWwihDay);
    dateEdit.SetDay(DayNumberOf(rec.Get("WwihDate").AsDate()));
  });
}

void EssentialsTab::InitEssentialsTab() {
  RunMethod(EditorContext::Proc("InitEssentialsTab"), [&] {
    ctx_.matrix->RefreshMatrixInfo(false);
    ctx_.matrix->RefreshPriorityInfo(false);
  });
}

void EssentialsTab::SaveEssentialsTab() {
  RunMethod(EditorContext::Proc("SaveEssentialsTab"), [&] { DeWwihLostFocus(); });
}

void EssentialsTab::UpdateUserWIH(std::int32_t value) {
  UpdateUserAnswer("UpdateUserWIH", "WIH", value);
}

void EssentialsTab::UpdateUserWWGI(std::int32_t value) {
  UpdateUserAnswer("UpdateUserWWGI", "WWGI", value);
}

void EssentialsTab::UpdateUserAnswer(const char* procedure, const char* fact, std::int32_t value) {
  RunMethod(EditorContext::Proc(procedure), [&] {
    IAdvisor& advisor = ctx_.Adv();
    advisor.Set(fact, value);
    advisor.Evaluate();
    if (!ctx_.state.loading) {
      ctx_.Rec().Set(fact, value);
      ctx_.CopyAdvisorResults({"AdvisorWih", "AdvisorWwgi", "AdvisorPriority", "UserPriority"});
      ctx_.MarkIboAsDirty();
    }
    ctx_.matrix->RefreshMatrixInfo(false);
    ctx_.matrix->RefreshPriorityInfo(false);
  });
}

// A new WWIH date goes to the advisor first, then to the record with the advisor's results.
void EssentialsTab::ApplyWwihDate(const Date& newDate) {
  IAdvisor& advisor = ctx_.Adv();
  advisor.Set("WwihDate", newDate);
  advisor.Evaluate();
  ctx_.Rec().Set("WwihDate", newDate);
  ctx_.CopyAdvisorResults(
      {"AdvisorPriority", "AdvisorWih", "AdvisorWwgi", "AdvisorExtraResult", "UserPriority"});
  ctx_.MarkIboAsDirty();
  ctx_.matrix->RefreshPriorityInfo(false);
}

// The typed date is committed when the field loses the focus and when the tab is collected.
void EssentialsTab::DeWwihLostFocus() {
  RunHandler(EditorContext::Proc("deWwih_LostFocus"), ctx_.platform, [&] { CommitTypedDate(); });
}

void EssentialsTab::CommitTypedDate() {
  auto& dateEdit = ctx_.Get<DateEdit>("deWwih");
  const Date newDate = GetDateFromLong(dateEdit.Day());
  IRecord& rec = ctx_.Rec();
  if (newDate < rec.Get("StartDate").AsDate()) {
    InvalidWwihDate();
    dateEdit.SetDate(rec.Get("WwihDate").AsDate());
    return;
  }
  if (newDate == rec.Get("WwihDate").AsDate()) return;
  ApplyWwihDate(newDate);
}

void EssentialsTab::InvalidWwihDate() {
  RunMethod(EditorContext::Proc("InvalidWwihDate"), [&] {
    ctx_.platform.MsgBox("WWIH date must be greater or equal to Start Date.", MsgIcon::kExclamation,
                         MsgButtons::kOk, "Invalid date");
  });
}

void EssentialsTab::DeWwihClickDrop() {
  RunHandler(EditorContext::Proc("deWwih_ClickDrop"), ctx_.platform, [&] {
    auto& calendar = ctx_.Get<Calendar>("dtWwih");
    calendar.SetDay(ctx_.Get<DateEdit>("deWwih").Day());
    calendar.BringToFront();
    calendar.SetVisible(true);
    calendar.SetFocus();
  });
}

void EssentialsTab::DtWwihDateClick(int day, int month, int year) {
  RunHandler(EditorContext::Proc("dtWwih_DateClick"), ctx_.platform, [&] {
    ctx_.Get<Calendar>("dtWwih").SetVisible(false);
    const Date newDate = Date::FromCivil(year, month, day);
    const std::int32_t dayNumber = DayNumberOf(newDate);
    IRecord& rec = ctx_.Rec();
    if (newDate < rec.Get("StartDate").AsDate()) {
      InvalidWwihDate();
      return;
    }
    ctx_.Get<DateEdit>("deWwih").SetDay(dayNumber);
    ApplyWwihDate(newDate);
  });
}

}  // namespace pelkedit
