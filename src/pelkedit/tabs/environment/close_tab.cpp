#include "tabs/environment/close_tab.h"

#include "control/editor_context.h"
#include "control/page_layout.h"
#include "locale/mod_locale.h"
#include "tabs/environment/close_rows.h"
#include "trace/error_paths.h"

namespace pelkedit {
namespace {

// Each close question opens its topic.
constexpr HelpLink kHelpTopics[] = {
    HelpLink{"lblCloseTC", 44},       HelpLink{"lblCloseDecided", 45},
    HelpLink{"lblCloseBarriers", 46}, HelpLink{"lblCloseStrategy", 47},
    HelpLink{"lblCloseEnacted", 48},  HelpLink{"lblCloseTcHistory", 49},
    HelpLink{"lblCloseResult", 50},   HelpLink{"lblCloseDate", 51},
    HelpLink{"lblCloseReason", 52},   HelpLink{"lblCloseWinBidder", 53},
};

}  // namespace

std::span<const HelpLink> CloseTab::HelpTopics() const {
  return kHelpTopics;
}

using namespace close_page;

bool& CloseTab::RefreshFlag() {
  return ctx_.state.refreshing;
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
  // The history takes the room of a larger window.
  history.SetAnchors(anchor::kFill);
  // Until the first load the page shows no rows.
  for (const Row* row : kHideable) {
    widgets.Find(row->label)->SetVisible(false);
    widgets.Find(row->input)->SetVisible(false);
  }
  widgets.Find(kTooEarly)->SetVisible(false);
}

void CloseTab::Wire() {
  const auto option = [this](const char* name, const Row& row, const char* property, bool value) {
    ctx_.Get<OptionButton>(name).onClick = [this, name, &row, property, value] {
      RunHandler(EditorContext::Proc(std::string(name) + "_Click"), ctx_.platform,
                 [&] { AnswerOption(row.label, property, value); });
    };
  };
  option(kTcYes, kTrialClose, prop::CloseTC, true);
  option(kTcNo, kTrialClose, prop::CloseTC, false);
  option(kDecidedYes, kDecided, prop::CloseDecided, true);
  option(kDecidedNo, kDecided, prop::CloseDecided, false);
  ctx_.Get<OptionButton>(kEnactedYes).onClick = [this] { OptCloseEnactedYesClick(); };
  ctx_.Get<ListBox>(kResultList).onClick = [this] { CboResultClick(); };
  const auto text = [this](const Row& row, const char* procedure, const char* property,
                           bool indexed) {
    ctx_.Get<TextBox>(row.input).onLostFocus = [this, &row, procedure, property, indexed] {
      RunHandler(EditorContext::Proc(std::string(row.input) + "_LostFocus"), ctx_.platform, [&] {
        if (!ctx_.state.loading) SaveText(procedure, row, property, indexed);
      });
    };
  };
  text(kBarriers, "SEnvCloseSaveBarriers", prop::CloseBarriers, true);
  text(kStrategy, "SEnvCloseSaveStrategy", prop::CloseStrategy, true);
  text(kReason, "SEnvCloseSaveReason", prop::CloseReason, false);
  text(kWinBidder, "SEnvCloseSaveWinBidder", prop::CloseWinBidder, false);
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

}  // namespace pelkedit
