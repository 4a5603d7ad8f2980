#include "tabs/environment/close_tab.h"

#include "contracts/names.h"
#include "control/editor_context.h"
#include "control/host_changes.h"
#include "control/page_layout.h"
#include "locale/mod_locale.h"
#include "tabs/environment/trial_close_history.h"
#include "trace/error_paths.h"
#include "values/text.h"

namespace pelkedit {
namespace {

constexpr std::int32_t kTextLimit = 150;
constexpr std::int32_t kFirstCloseDay = 1460;  // 1904-01-01
constexpr std::int32_t kLastCloseDay = 48211;  // 2031-12-31
constexpr double kTooEarlyPosition = 0.7625;
constexpr std::int32_t kResultWon = 1;
constexpr std::int32_t kResultLost = 2;
constexpr std::int32_t kRingSlots = 10;
const Date kNoCloseDate = Date::FromDayNumber(kFirstCloseDay);

// Stacking in twips: labels and inputs in two columns, rows from the top.
constexpr float kLabelLeft = 240;
constexpr float kInputLeft = 1440;
constexpr float kTrialCloseTop = 240;
constexpr float kDecidedTop = 585;
constexpr float kRowStep = 345;
constexpr float kAfterTextBox = 60;

// One row of the page: its label, the widget that takes the answer, and whether that widget
// is a text box (the next row then follows its height; its label stands level with its top).
struct Row {
  const char* label;
  const char* input;
  bool textBox;
};
const Row kTrialClose{"lblCloseTC", "fraCloseTC", false};
const Row kDecided{"lblCloseDecided", "fraCloseDecided", false};
const Row kResult{"lblCloseResult", "cboResult", false};
const Row kDate{"lblCloseDate", widget::deCloseDateEdit, false};
const Row kReason{"lblCloseReason", "txtCloseReason", true};
const Row kWinBidder{"lblCloseWinBidder", "txtCloseWinBidder", true};
const Row kBarriers{"lblCloseBarriers", "txtCloseBarriers", true};
const Row kStrategy{"lblCloseStrategy", "txtCloseStrategy", true};
const Row kEnacted{"lblCloseEnacted", "fraCloseEnacted", false};
const Row* const kHideable[] = {&kTrialClose, &kDecided,  &kResult,   &kDate,   &kReason,
                                &kWinBidder,  &kBarriers, &kStrategy, &kEnacted};

constexpr const char* kTooEarly = "lblSEnvCloseTooEarly";
constexpr const char* kCalendar = "dtCloseDate";
constexpr const char* kHistory = "txtTrialCloseHistory";
constexpr const char* kResultList = "cboResult";
constexpr const char* kTcYes = "optCloseTCYes";
constexpr const char* kTcNo = "optCloseTCNo";
constexpr const char* kDecidedYes = "optCloseDecidedYes";
constexpr const char* kDecidedNo = "optCloseDecidedNo";
constexpr const char* kEnactedYes = "optCloseEnactedYes";
constexpr const char* kEnactedNo = "optCloseEnactedNo";

// The labels that open help when clicked.
const char* const kHelpLabels[] = {"lblCloseTC",       "lblCloseDecided", "lblCloseBarriers",
                                   "lblCloseStrategy", "lblCloseDate",    "lblCloseEnacted",
                                   "lblCloseReason",   "lblCloseResult",  "lblCloseWinBidder",
                                   "lblCloseTcHistory"};

// Sizes in pixels of what the page places.
constexpr float kLabelWidth = 76;
constexpr float kPairWidth = 120;
constexpr float kOptionWidth = 56;
constexpr float kInputWidth = 120;
constexpr float kTextWidth = 460;
constexpr float kTextHeight = 41;
constexpr float kCalendarWidth = 230;
constexpr float kCalendarHeight = 180;
constexpr float kHistoryLabelTop = 200;
constexpr float kHistoryTop = 218;
constexpr float kHistoryWidth = 568;
constexpr float kHistoryHeight = 84;

}  // namespace

template <typename Body>
void CloseTab::Refreshing(Body&& body) {
  struct Restore {
    bool& flag;
    bool previous;
    ~Restore() { flag = previous; }
  } restore{ctx_.state.refreshing, ctx_.state.refreshing};
  ctx_.state.refreshing = true;
  body();
}

void CloseTab::Build(WidgetRegistry& widgets, Frame& frame) {
  PageLayout page(widgets, frame);
  constexpr float kLeft = kLabelLeft / kTwipsPerPixel;
  constexpr float kInput = kInputLeft / kTwipsPerPixel;
  const auto pair = [&](const Row& row, const char* caption, const char* yes, const char* no) {
    page.Caption(row.label, kLeft, 0, kLabelWidth, caption);
    auto& box = page.Place<Frame>(row.input, kInput, 0, kPairWidth, layout::kOptionHeight);
    PageLayout inside(widgets, box);
    inside.Options({yes, no}, {"Yes", "No"}, 0, 0, kOptionWidth);
  };
  const auto text = [&](const Row& row, const char* caption) {
    page.Caption(row.label, kLeft, 0, kLabelWidth, caption);
    auto& box = page.Place<TextBox>(row.input, kInput, 0, kTextWidth, kTextHeight);
    box.SetMultiline(true);
  };
  pair(kTrialClose, "Trial Close?", kTcYes, kTcNo);
  page.Caption(kTooEarly, kInput, kTrialCloseTop / kTwipsPerPixel, 240,
               "It is too early to close.");
  pair(kDecided, "Decided?", kDecidedYes, kDecidedNo);
  page.Caption(kResult.label, kLeft, 0, kLabelWidth, "Result?");
  page.Place<ListBox>(kResultList, kInput, 0, kInputWidth, layout::kFieldHeight);
  page.Caption(kDate.label, kLeft, 0, kLabelWidth, "Date?");
  page.Place<DateEdit>(kDate.input, kInput, 0, kInputWidth, layout::kFieldHeight);
  page.Place<Calendar>(kCalendar, kInput, 0, kCalendarWidth, kCalendarHeight).SetVisible(false);
  text(kReason, "Reason?");
  text(kWinBidder, "Win. bidder?");
  text(kBarriers, "Barriers?");
  text(kStrategy, "Strategy?");
  pair(kEnacted, "Enacted?", kEnactedYes, kEnactedNo);
  page.Caption("lblCloseTcHistory", kLeft, kHistoryLabelTop, kHistoryWidth,
               "Trial Close History (last 10 entries)");
  auto& history = page.Place<TextBox>(kHistory, kLeft, kHistoryTop, kHistoryWidth, kHistoryHeight);
  history.SetMultiline(true);
  history.SetLocked(true);
  history.SetDisplayOnly();
  // Until the first load the page shows no rows.
  for (const Row* row : kHideable) {
    widgets.Find(row->label)->SetVisible(false);
    widgets.Find(row->input)->SetVisible(false);
  }
  widgets.Find(kTooEarly)->SetVisible(false);
}

void CloseTab::Wire() {
  const auto option = [this](const char* name, const char* property, bool value) {
    ctx_.Get<OptionButton>(name).onClick = [this, name, property, value] {
      RunHandler(EditorContext::Proc(std::string(name) + "_Click"), ctx_.platform,
                 [&] { AnswerOption(property, value); });
    };
  };
  option(kTcYes, prop::CloseTC, true);
  option(kTcNo, prop::CloseTC, false);
  option(kDecidedYes, prop::CloseDecided, true);
  option(kDecidedNo, prop::CloseDecided, false);
  ctx_.Get<OptionButton>(kEnactedYes).onClick = [this] { OptCloseEnactedYesClick(); };
  ctx_.Get<ListBox>(kResultList).onClick = [this] { CboResultClick(); };
  const auto text = [this](const char* box, const char* procedure, const char* property,
                           bool indexed) {
    ctx_.Get<TextBox>(box).onLostFocus = [this, box, procedure, property, indexed] {
      RunHandler(EditorContext::Proc(std::string(box) + "_LostFocus"), ctx_.platform, [&] {
        if (!ctx_.state.loading) SaveText(procedure, box, property, indexed);
      });
    };
  };
  text(kBarriers.input, "SEnvCloseSaveBarriers", prop::CloseBarriers, true);
  text(kStrategy.input, "SEnvCloseSaveStrategy", prop::CloseStrategy, true);
  text(kReason.input, "SEnvCloseSaveReason", prop::CloseReason, false);
  text(kWinBidder.input, "SEnvCloseSaveWinBidder", prop::CloseWinBidder, false);
  ctx_.Get<DateEdit>(kDate.input).onClickDrop = [this] { DeCloseDateEditClickDrop(); };
  auto& calendar = ctx_.Get<Calendar>(kCalendar);
  calendar.onDateClick = [this](int day, int month, int year) {
    DtCloseDateDateClick(day, month, year);
  };
  calendar.onLostFocus = [this] {
    RunHandler(EditorContext::Proc("dtCloseDate_LostFocus"), ctx_.platform,
               [&] { ctx_.Get<Calendar>(kCalendar).SetVisible(false); });
  };
}

void CloseTab::HostChanged(HostChange change) {
  if (change == HostChange::kUpgrade) {
    InitSEnvClose();
    return;
  }
  RebuildFromRecord();
}

void CloseTab::RebuildFromRecord() {
  IRecord& rec = ctx_.Rec();
  InitCloseTab(rec.Get(prop::CloseTC).AsBool(), rec.Get(prop::CloseDecided).AsBool(),
               rec.Get(prop::CloseResult).AsLong());
}

void CloseTab::InitSEnvClose() {
  RunMethod(EditorContext::Proc("InitSEnvClose"), [&] {
    Refreshing([&] {
      for (const char* label : kHelpLabels) {
        ctx_.widgets.Get<Label>(label).SetPointer(
            static_cast<std::int32_t>(MousePointer::kArrowQuestion));
      }
      for (const Row* row : {&kBarriers, &kStrategy, &kReason, &kWinBidder}) {
        ctx_.Get<TextBox>(row->input).SetMaxLength(kTextLimit);
      }
      auto& dateEdit = ctx_.Get<DateEdit>(kDate.input);
      dateEdit.SetMinDay(kFirstCloseDay);
      dateEdit.SetMaxDay(kLastCloseDay);
      IRecord& rec = ctx_.Rec();
      // The record keeps "no date"; the field offers today.
      Date closeDate = rec.Get(prop::CloseDate).AsDate();
      if (closeDate == kNoCloseDate) closeDate = ctx_.platform.Today();
      const std::int32_t day = DayNumberOf(closeDate);
      dateEdit.SetDay(day > 0 ? day : DayNumberOf(ctx_.platform.Today()));
      auto& result = ctx_.Get<ListBox>(kResultList);
      result.Clear();
      for (const char* item : {"", "Won", "Lost"}) result.AddItem(item);
      result.SetListIndex(rec.Get(prop::CloseResult).AsLong());
      const std::int32_t current = rec.Get(prop::TrialCloseCurrent).AsLong();
      ctx_.Get<TextBox>(kBarriers.input)
          .SetText(rec.GetAt(prop::CloseBarriers, current).AsString());
      ctx_.Get<TextBox>(kStrategy.input)
          .SetText(rec.GetAt(prop::CloseStrategy, current).AsString());
      ctx_.Get<TextBox>(kReason.input).SetText(rec.Get(prop::CloseReason).AsString());
      ctx_.Get<TextBox>(kWinBidder.input).SetText(rec.Get(prop::CloseWinBidder).AsString());
      ctx_.Get<OptionButton>(rec.Get(prop::CloseTC).AsBool() ? kTcYes : kTcNo).SetValue(true);
      ctx_.Get<OptionButton>(rec.Get(prop::CloseDecided).AsBool() ? kDecidedYes : kDecidedNo)
          .SetValue(true);
      result.SetListIndex(rec.Get(prop::CloseResult).AsLong());
      ctx_.Get<OptionButton>(kEnactedNo).SetValue(true);
      RebuildFromRecord();
      EnumerateTrialCloses();
    });
  });
}

void CloseTab::CloseTabHideControls() {
  RunMethod(EditorContext::Proc("CloseTabHideControls"), [&] {
    for (const Row* row : kHideable) {
      ctx_.widgets.Get<Widget>(row->label).SetVisible(false);
      ctx_.widgets.Get<Widget>(row->input).SetVisible(false);
    }
  });
}

void CloseTab::InitCloseTab(bool made, bool decided, std::int32_t result) {
  RunMethod(EditorContext::Proc("InitCloseTab"), [&] {
    Refreshing([&] {
      CloseTabHideControls();
      IRecord& rec = ctx_.Rec();
      const bool tooEarly = rec.Get(prop::Status).AsLong() == eEditStatusOpen &&
                            ctx_.Adv().Get(fact::SalesCyclePosition).AsDouble() < kTooEarlyPosition;
      std::vector<const Row*> rows;
      ctx_.widgets.Get<Widget>(kTooEarly).SetVisible(tooEarly);
      if (!tooEarly) rows.push_back(&kTrialClose);
      if (made) {
        rows.push_back(&kDecided);
        if (decided) {
          rows.push_back(&kResult);
          if (result == kResultWon || result == kResultLost) {
            rows.push_back(&kDate);
            rows.push_back(&kReason);
          }
          if (result == kResultLost) rows.push_back(&kWinBidder);
        } else {
          for (const Row* row : {&kBarriers, &kStrategy, &kEnacted}) rows.push_back(row);
        }
      }
      // Stack the shown rows: Trial close at the top, Decided below it, then one step each,
      // or a text box's height and a gap after a text box.
      float top = kDecidedTop;
      const Row* previous = nullptr;
      for (const Row* row : rows) {
        if (row == &kTrialClose) {
          top = kTrialCloseTop;
        } else if (row == &kDecided) {
          top = kDecidedTop;
        } else if (previous != nullptr) {
          Widget& above = ctx_.widgets.Get<Widget>(previous->input);
          top += previous->textBox ? above.Height() + kAfterTextBox : kRowStep;
        }
        Widget& input = ctx_.widgets.Get<Widget>(row->input);
        Widget& label = ctx_.widgets.Get<Widget>(row->label);
        input.SetLeft(kInputLeft);
        input.SetTop(top);
        if (row->textBox) {
          label.SetLeft(kLabelLeft);
          label.SetTop(top);
        } else {
          ctx_.CenterControl(kLabelLeft, label, input);
        }
        label.SetVisible(true);
        input.SetVisible(true);
        previous = row;
      }
    });
  });
}

void CloseTab::AnswerOption(const char* property, bool value) {
  IRecord& rec = ctx_.Rec();
  if (!ctx_.state.loading && rec.Get(property).AsBool() != value) {
    rec.Set(property, value);
    ctx_.MarkIboAsDirty();
  }
  if (!ctx_.state.refreshing) RebuildFromRecord();
}

void CloseTab::CboResultClick() {
  RunHandler(EditorContext::Proc("cboResult_Click"), ctx_.platform, [&] {
    const std::int32_t position = ctx_.Get<ListBox>(kResultList).ListIndex();
    if (position < 0) return;
    IRecord& rec = ctx_.Rec();
    if (!ctx_.state.loading && !ctx_.state.refreshing &&
        position != rec.Get(prop::CloseResult).AsLong()) {
      // The status changes first; the empty entry gives back the status the record was loaded
      // with.
      const std::int32_t status = position == kResultWon    ? eEditStatusWon
                                  : position == kResultLost ? eEditStatusLost
                                                            : ctx_.state.loadedStatus;
      HostChanges(ctx_).IboChangeStatus(status);
      rec.Set(prop::CloseResult, position);
      ctx_.MarkIboAsDirty();
    }
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
    ctx_.MarkIboAsDirty();
  });
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

void CloseTab::SaveText(const char* procedure, const char* box, const char* property,
                        bool indexed) {
  RunMethod(EditorContext::Proc(procedure), [&] {
    if (ctx_.state.loading) return;
    IRecord& rec = ctx_.Rec();
    const std::string& text = ctx_.Get<TextBox>(box).Text();
    const std::int32_t current = indexed ? rec.Get(prop::TrialCloseCurrent).AsLong() : 0;
    const std::string stored =
        indexed ? rec.GetAt(property, current).AsString() : rec.Get(property).AsString();
    if (text == stored) return;
    if (indexed) {
      rec.SetAt(property, current, text);
    } else {
      rec.Set(property, text);
    }
    ctx_.MarkIboAsDirty();
  });
}

void CloseTab::SaveSEnvCloseTab() {
  RunMethod(EditorContext::Proc("SaveSEnvCloseTab"), [&] {
    if (ctx_.state.loading) return;
    SaveText("SEnvCloseSaveBarriers", kBarriers.input, prop::CloseBarriers, true);
    SaveText("SEnvCloseSaveStrategy", kStrategy.input, prop::CloseStrategy, true);
    SaveText("SEnvCloseSaveReason", kReason.input, prop::CloseReason, false);
    SaveText("SEnvCloseSaveWinBidder", kWinBidder.input, prop::CloseWinBidder, false);
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
    if (picked == rec.Get(prop::CloseDate).AsDate()) return;
    ctx_.Get<DateEdit>(kDate.input).SetDay(calendar.Day());
    rec.Set(prop::CloseDate, picked);
    ctx_.MarkIboAsDirty();
  });
}

}  // namespace pelkedit
