#include "tabs/essentials/essentials_tab.h"

#include "contracts/names.h"
#include "contracts/pictures.h"
#include "control/answer.h"
#include "control/editor_context.h"
#include "control/page_layout.h"
#include "locale/mod_locale.h"
#include "trace/error_paths.h"

namespace pelkedit {
namespace {

constexpr std::int32_t kFirstWwihDay = 1460;  // 1904-01-01
constexpr std::int32_t kLastWwihDay = 48211;  // 2031-12-31

const Answer kWih{"Will It Happen?",
                  "UpdateUserWIH",
                  fact::WIH,
                  prop::WIH,
                  {fact::AdvisorWih, fact::AdvisorWwgi, fact::AdvisorPriority, fact::UserPriority}};
const Answer kWwgi{
    "Will We Get It?",
    "UpdateUserWWGI",
    fact::WWGI,
    prop::WWGI,
    {fact::AdvisorWih, fact::AdvisorWwgi, fact::AdvisorPriority, fact::UserPriority}};

// The option groups of the two questions and the answers they commit.
struct Question {
  const char* prefix;
  const Answer& answer;
};
const Question kQuestions[] = {{"optWih", kWih}, {"optWwgi", kWwgi}};

// The three questions share one topic; the matrix and the priority open theirs from the
// picture as from the label.
constexpr HelpLink kHelpTopics[] = {
    HelpLink{"picProbabilitMatrix", 9}, HelpLink{"lblEssentMatrix", 9},
    HelpLink{"lblEssentWIH", 10},       HelpLink{"lblEssentWWGI", 10},
    HelpLink{"lblEssentWWIH", 10},      HelpLink{"picAdvPriority", 16},
    HelpLink{"lblEssentPriority", 16},
};

}  // namespace

std::span<const HelpLink> EssentialsTab::HelpTopics() const {
  return kHelpTopics;
}

void EssentialsTab::Build(WidgetRegistry& widgets, Frame& frame) {
  PageLayout page(widgets, frame);
  constexpr float kOptionWidth = 110;
  page.Caption("lblEssentWIH", 12, 10, 140, "Will It Happen?");
  page.OptionColumn("optWih", 24, 30, kOptionWidth, kLevelWords);
  page.Caption("lblEssentWWGI", 12, 104, 140, "Will We Get It?");
  page.OptionColumn("optWwgi", 24, 124, kOptionWidth, kLevelWords);
  page.Caption("lblEssentWWIH", 12, 198, 160, "When Will It Happen?");
  page.Place<DateEdit>(widget::deWwih, 24, 218, 120, layout::kFieldHeight);
  page.Place<Calendar>(widget::dtWwih, 24, 120, 230, 180).SetVisible(false);

  page.Caption("lblEssentMatrix", 190, 10, 139, "Probability Matrix");
  auto& matrix = page.Place<PictureBox>(widget::picProbabilitMatrix, 190, 30, 139, 139);
  matrix.SetDesignPicture(picture::kMatrix);
  constexpr float kSquare = 36;
  const std::pair<const char*, std::int32_t> squares[] = {
      {widget::picPmUserSqr, picture::kUserSquare},
      {widget::picPmAdvSqr, picture::kAdvisorSquare},
      {widget::picPmCmnSqr, picture::kCommonSquare}};
  for (const auto& [square, drawing] : squares) {
    page.PlaceInPicture<PictureBox>(square, matrix, 25, 40, kSquare, kSquare)
        .SetDesignPicture(drawing);
  }
  widgets.Get<PictureBox>(widget::picPmAdvSqr).SetVisible(false);
  widgets.Get<PictureBox>(widget::picPmCmnSqr).SetVisible(false);

  page.Caption("lblEssentPriority", 360, 10, 140, "Priority");
  page.Place<PictureBox>(widget::picUserPriority, 360, 30, 140, 140);
  page.Place<PictureBox>(widget::picAdvPriority, 360, 30, 140, 140).SetVisible(false);
  auto& advisorSays = page.Place<Button>(widget::cmdAdvisorSays, 360, 180, 140, 26);
  advisorSays.SetCaption("Advisor says");
  advisorSays.SetVisible(false);
}

void EssentialsTab::Wire() {
  for (const Question& question : kQuestions) {
    WireOptionAnswer(ctx_, question.prefix, {kLevelWords[0], kLevelWords[1], kLevelWords[2]},
                     question.answer, [this] { Redraw(); });
  }
  auto& dateEdit = ctx_.Get<DateEdit>(widget::deWwih);
  dateEdit.onLostFocus = [this] { DeWwihLostFocus(); };
  dateEdit.onClickDrop = [this] { DeWwihClickDrop(); };
  auto& calendar = ctx_.Get<Calendar>(widget::dtWwih);
  calendar.onDateClick = [this](int day, int month, int year) {
    DtWwihDateClick(day, month, year);
  };
  calendar.onLostFocus = [this] {
    RunHandler(EditorContext::Proc("dtWwih_LostFocus"), ctx_.platform,
               [&] { ctx_.Get<Calendar>(widget::dtWwih).SetVisible(false); });
  };
  auto& advisorSays = ctx_.Get<Button>(widget::cmdAdvisorSays);
  advisorSays.onMouseDown = [this](int, int, float, float) {
    AdvisorSays("cmdAdvisorSays_MouseDown", true);
  };
  advisorSays.onMouseUp = [this](int, int, float, float) {
    AdvisorSays("cmdAdvisorSays_MouseUp", false);
  };
}

void EssentialsTab::Redraw() {
  matrix_.RefreshMatrixInfo(false);
  matrix_.RefreshPriorityInfo(false);
}

void EssentialsTab::AdvisorSays(const char* procedure, bool showAdvisor) {
  RunHandler(EditorContext::Proc(procedure), ctx_.platform, [&] {
    matrix_.RefreshMatrixInfo(showAdvisor);
    matrix_.RefreshPriorityInfo(showAdvisor);
  });
}

void EssentialsTab::Collect(CollectReason reason) {
  if (reason == CollectReason::kSaving) SaveEssentialsTab();
}

void EssentialsTab::HostChanged(HostChange change) {
  if (change == HostChange::kUpgrade) ctx_.Get<Button>(widget::cmdAdvisorSays).SetVisible(true);
}

// A new start date moves the priority, not the matrix.
void EssentialsTab::RedrawShown(HostChange change) {
  if (change == HostChange::kStartDate) matrix_.RefreshPriorityInfo(false);
}

void EssentialsTab::SelectOption(const std::string& prefix, std::int32_t code) {
  // "SetOptWihLow" and the like: one setter procedure per option.
  const std::string option = prefix + kLevelWords[code];
  RunMethod(EditorContext::Proc("SetO" + option.substr(1)), [&] {
    for (std::int32_t i = 0; i < kLevelCount; ++i) {
      ctx_.Get<OptionButton>(prefix + kLevelWords[i]).SetValue(i == code);
    }
  });
}

void EssentialsTab::InitIboEssentials() {
  RunMethod(EditorContext::Proc("InitIboEssentials"), [&] {
    IRecord& rec = ctx_.Rec();
    ctx_.Get<Button>(widget::cmdAdvisorSays).SetVisible(ctx_.state.expertView);
    Redraw();
    for (const Question& question : kQuestions) {
      const std::int32_t code = rec.Get(question.answer.property).AsLong();
      if (code >= 0 && code < kLevelCount) SelectOption(question.prefix, code);
    }
    auto& dateEdit = ctx_.Get<DateEdit>(widget::deWwih);
    dateEdit.SetMinDay(kFirstWwihDay);
    dateEdit.SetMaxDay(kLastWwihDay);
    const Date wwih = rec.Get(prop::WwihDate).AsDate();
    if (!dateEdit.InBounds(DayNumberOf(wwih))) {
      Raise(errnum::kInvalidPropertyValue, widget::deWwih,
            "IBO " + std::to_string(rec.Get(prop::IboNumber).AsLong()) + " holds the WWIH date " +
                wwih.ToIso() + ", outside the dates the calendar accepts (" +
                GetDateFromLong(kFirstWwihDay).ToIso() + " to " +
                GetDateFromLong(kLastWwihDay).ToIso() + ").");
    }
    dateEdit.SetDay(DayNumberOf(wwih));
  });
}

void EssentialsTab::InitEssentialsTab() {
  RunMethod(EditorContext::Proc("InitEssentialsTab"), [&] { Redraw(); });
}

void EssentialsTab::SaveEssentialsTab() {
  RunMethod(EditorContext::Proc("SaveEssentialsTab"), [&] { DeWwihLostFocus(); });
}

// A new WWIH date goes to the advisor first, then to the record with the advisor's results.
void EssentialsTab::ApplyWwihDate(const Date& newDate) {
  CommitAnswer(ctx_, {ctx_.CaptionOf("lblEssentWWIH"), kAlways}, fact::WwihDate, prop::WwihDate,
               newDate,
               {fact::AdvisorPriority, fact::AdvisorWih, fact::AdvisorWwgi,
                fact::AdvisorExtraResult, fact::UserPriority});
  matrix_.RefreshPriorityInfo(false);
}

// The typed date is committed when the field loses the focus and when the tab is collected.
void EssentialsTab::DeWwihLostFocus() {
  RunHandler(EditorContext::Proc("deWwih_LostFocus"), ctx_.platform, [&] { CommitTypedDate(); });
}

void EssentialsTab::CommitTypedDate() {
  auto& dateEdit = ctx_.Get<DateEdit>(widget::deWwih);
  const Date newDate = GetDateFromLong(dateEdit.Day());
  IRecord& rec = ctx_.Rec();
  if (newDate < rec.Get(prop::StartDate).AsDate()) {
    InvalidWwihDate();
    dateEdit.SetDate(rec.Get(prop::WwihDate).AsDate());
    return;
  }
  if (newDate == rec.Get(prop::WwihDate).AsDate()) return;
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
    auto& calendar = ctx_.Get<Calendar>(widget::dtWwih);
    calendar.SetDay(ctx_.Get<DateEdit>(widget::deWwih).Day());
    calendar.BringToFront();
    calendar.SetVisible(true);
    calendar.SetFocus();
  });
}

void EssentialsTab::DtWwihDateClick(int day, int month, int year) {
  RunHandler(EditorContext::Proc("dtWwih_DateClick"), ctx_.platform, [&] {
    ctx_.Get<Calendar>(widget::dtWwih).SetVisible(false);
    const Date newDate = Date::FromCivil(year, month, day);
    const std::int32_t dayNumber = DayNumberOf(newDate);
    IRecord& rec = ctx_.Rec();
    if (newDate < rec.Get(prop::StartDate).AsDate()) {
      InvalidWwihDate();
      return;
    }
    ctx_.Get<DateEdit>(widget::deWwih).SetDay(dayNumber);
    ApplyWwihDate(newDate);
  });
}

}  // namespace pelkedit
