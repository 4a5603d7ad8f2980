// The Close phase's answers: options, result, enacting, text boxes and the close date.
#include "control/editor_context.h"
#include "control/host_changes.h"
#include "tabs/environment/close_rows.h"
#include "tabs/environment/close_tab.h"
#include "tabs/environment/trial_close_history.h"
#include "trace/error_paths.h"

namespace pelkedit {

using namespace close_page;

void CloseTab::AnswerOption(const char* label, const char* property, bool value) {
  IRecord& rec = ctx_.Rec();
  ctx_.EditRecord({ctx_.CaptionOf(label), kNotWhileLoading,
                   [&] { return rec.Get(property).AsBool() == value; }},
                  [&] { rec.Set(property, value); });
  if (!ctx_.state.refreshing) RebuildFromRecord();
}

void CloseTab::CboResultClick() {
  RunHandler(EditorContext::Proc("cboResult_Click"), ctx_.platform, [&] {
    const std::int32_t position = ctx_.Get<ListBox>(kResultList).ListIndex();
    if (position < 0) return;
    IRecord& rec = ctx_.Rec();
    ctx_.EditRecord({ctx_.CaptionOf(kResult.label), kNotWhileLoading | kNotWhileRefreshing,
                     [&] { return position == rec.Get(prop::CloseResult).AsLong(); }},
                    [&] {
                      // The status changes first; the empty entry gives back the status the
                      // record was loaded with.
                      const std::int32_t status = position == kResultWon ? eEditStatusWon
                                                  : position == kResultLost
                                                      ? eEditStatusLost
                                                      : ctx_.state.loadedStatus;
                      HostChanges(ctx_).IboChangeStatus(status);
                      rec.Set(prop::CloseResult, position);
                    });
    if (!ctx_.state.refreshing) RebuildFromRecord();
  });
}

bool CloseTab::RequireText(const char* box, const char* message) {
  const std::string& text = ctx_.Get<TextBox>(box).Text();
  if (text.find_first_not_of(' ') != std::string::npos) return true;
  ctx_.platform.MsgBox(message, MsgIcon::kExclamation, MsgButtons::kOk, "Information missing");
  ctx_.Get<OptionButton>(kEnactedNo).SetValue(true);
  return false;
}

void CloseTab::OptCloseEnactedYesClick() {
  RunHandler(EditorContext::Proc("optCloseEnactedYes_Click"), ctx_.platform, [&] {
    if (ctx_.state.loading || ctx_.state.refreshing) return;
    if (!RequireText(kBarriers.input, "Please fill in barriers field.")) return;
    if (!RequireText(kStrategy.input, "Please fill in strategy field.")) return;
    Refreshing([&] {
      // The Yes option only triggers the filing; it never stays selected.
      ctx_.Get<OptionButton>(kEnactedYes).SetValue(false);
      EnactStrategy();
      EnumerateTrialCloses();
      ResetTcInterface();
      RebuildFromRecord();
      IAdvisor& advisor = ctx_.Adv();
      advisor.Set(fact::TrialCloseFact, ctx_.Rec().Get(prop::TrialCloseFact));
      advisor.Evaluate();
    });
  });
}

void CloseTab::EnactStrategy() {
  RunMethod(EditorContext::Proc("EnactStrategy"), [&] {
    ctx_.EditRecord({ctx_.CaptionOf(kEnacted.label), kAlways}, [&] { FileTrialClose(); });
  });
}

// The current trial close goes into the ring's history and a new one begins.
void CloseTab::FileTrialClose() {
  IRecord& rec = ctx_.Rec();
  const std::int32_t current = rec.Get(prop::TrialCloseCurrent).AsLong();
  std::int32_t first = rec.Get(prop::TrialCloseFirst).AsLong();
  const std::int32_t next = current + 1 >= kRingSlots ? 0 : current + 1;
  // A full ring drops its oldest trial close.
  if (next == first) first = first + 1 >= kRingSlots ? 0 : first + 1;
  rec.Set(prop::TrialCloseFirst, first);
  rec.Set(prop::TrialCloseCurrent, next);
  rec.SetAt(prop::TrialCloseDate, current, ctx_.platform.Now());
  rec.SetAt(prop::CloseBarriers, next, std::string());
  rec.SetAt(prop::CloseStrategy, next, std::string());
  rec.Set(prop::CloseTC, false);
  rec.Set(prop::CloseDecided, false);
  rec.Set(prop::CloseResult, 0);
}

void CloseTab::ResetTcInterface() {
  RunMethod(EditorContext::Proc("ResetTcInterface"), [&] {
    IRecord& rec = ctx_.Rec();
    const std::int32_t current = rec.Get(prop::TrialCloseCurrent).AsLong();
    ctx_.Get<TextBox>(kBarriers.input).SetText(rec.GetAt(prop::CloseBarriers, current).AsString());
    ctx_.Get<TextBox>(kStrategy.input).SetText(rec.GetAt(prop::CloseStrategy, current).AsString());
    ctx_.Get<OptionButton>(kTcNo).SetValue(true);
    ctx_.Get<OptionButton>(kDecidedNo).SetValue(true);
    ctx_.Get<OptionButton>(kEnactedNo).SetValue(true);
    ctx_.Get<ListBox>(kResultList).SetListIndex(0);
  });
}

void CloseTab::SaveText(const char* procedure, const Row& row, const char* property, bool indexed) {
  RunMethod(EditorContext::Proc(procedure), [&] {
    IRecord& rec = ctx_.Rec();
    const std::string& text = ctx_.Get<TextBox>(row.input).Text();
    std::int32_t current = 0;
    ctx_.EditRecord({ctx_.CaptionOf(row.label), kNotWhileLoading,
                     [&] {
                       current = indexed ? rec.Get(prop::TrialCloseCurrent).AsLong() : 0;
                       const std::string stored = indexed ? rec.GetAt(property, current).AsString()
                                                          : rec.Get(property).AsString();
                       return text == stored;
                     }},
                    [&] {
                      if (indexed) {
                        rec.SetAt(property, current, text);
                      } else {
                        rec.Set(property, text);
                      }
                    });
  });
}

void CloseTab::SaveSEnvCloseTab() {
  RunMethod(EditorContext::Proc("SaveSEnvCloseTab"), [&] {
    if (ctx_.state.loading) return;
    SaveText("SEnvCloseSaveBarriers", kBarriers, prop::CloseBarriers, true);
    SaveText("SEnvCloseSaveStrategy", kStrategy, prop::CloseStrategy, true);
    SaveText("SEnvCloseSaveReason", kReason, prop::CloseReason, false);
    SaveText("SEnvCloseSaveWinBidder", kWinBidder, prop::CloseWinBidder, false);
  });
}

void CloseTab::EnumerateTrialCloses() {
  RunMethod(EditorContext::Proc("EnumerateTrialCloses"), [&] {
    ctx_.Get<TextBox>(kHistory).SetText(
        TrialCloseHistory(ctx_.Rec(), ctx_.platform.ShortDateFormat()));
  });
}

void CloseTab::DeCloseDateEditClickDrop() {
  RunHandler(EditorContext::Proc("deCloseDateEdit_ClickDrop"), ctx_.platform, [&] {
    auto& calendar = ctx_.Get<Calendar>(kCalendar);
    const auto& dateEdit = ctx_.Get<DateEdit>(kDate.input);
    calendar.SetDay(dateEdit.Day());
    // It drops below the date, wherever the row stands now.
    calendar.SetTop(dateEdit.Top() + dateEdit.Height());
    calendar.BringToFront();
    calendar.SetVisible(true);
    calendar.SetFocus();
  });
}

void CloseTab::DtCloseDateDateClick(int day, int month, int year) {
  RunHandler(EditorContext::Proc("dtCloseDate_DateClick"), ctx_.platform, [&] {
    auto& calendar = ctx_.Get<Calendar>(kCalendar);
    calendar.SetVisible(false);
    const Date picked = Date::FromCivil(year, month, day);
    IRecord& rec = ctx_.Rec();
    ctx_.EditRecord({ctx_.CaptionOf(kDate.label), kAlways,
                     [&] { return picked == rec.Get(prop::CloseDate).AsDate(); }},
                    [&] {
                      ctx_.Get<DateEdit>(kDate.input).SetDay(calendar.Day());
                      rec.Set(prop::CloseDate, picked);
                    });
  });
}

}  // namespace pelkedit
