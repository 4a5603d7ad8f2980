// What the user does with the component's widgets, and the answers queued for modal boxes.
#include <cctype>

#include "dialogs/frm_competitors.h"
#include "dialogs/frm_start_date.h"
#include "session.h"
#include "widgets/controls.h"

namespace pelkscript {
namespace {

constexpr int kLeftButton = 1;
constexpr int kNoShift = 0;

bool Clickable(const pelkedit::Widget& widget) {
  switch (widget.Kind()) {
    case pelkedit::WidgetKind::kButton:
    case pelkedit::WidgetKind::kOption:
    case pelkedit::WidgetKind::kLabel:
    case pelkedit::WidgetKind::kPicture:
      return true;
    default:
      return false;
  }
}

bool Pressable(const pelkedit::Widget& widget) {
  return widget.Kind() == pelkedit::WidgetKind::kPicture ||
         widget.Kind() == pelkedit::WidgetKind::kButton;
}

pelkedit::MsgAnswer ParseAnswer(std::string word) {
  for (char& c : word) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  if (word == "yes") return pelkedit::MsgAnswer::kYes;
  if (word == "no") return pelkedit::MsgAnswer::kNo;
  if (word == "cancel") return pelkedit::MsgAnswer::kCancel;
  if (word == "ok") return pelkedit::MsgAnswer::kOk;
  throw ScriptError("usage: answer Yes|No|Cancel|OK");
}

}  // namespace

void Session::Click(const Words& w) {
  RequireWords(w, 2, 2, "click W");
  auto& widget = WidgetArg(w[1]);
  if (!Clickable(widget)) {
    throw ScriptError(widget.Name() + " is a " + pelkedit::WidgetKindName(widget.Kind()) +
                      ", which cannot be clicked");
  }
  Guard([&] {
    UserFocus(widget);
    widget.UserClick();
  });
}

void Session::Select(const Words& w) {
  RequireWords(w, 3, 3, "select W N");
  auto& list = WidgetArg<pelkedit::ListBox>(w[1], "a list");
  const std::int32_t index = ParseInt(w[2].raw);
  if (index < -1 || index >= list.ListCount()) {
    throw ScriptError(list.Name() + " has no item " + w[2].raw + " (it holds " +
                      std::to_string(list.ListCount()) + ")");
  }
  Guard([&] {
    UserFocus(list);
    list.SetListIndex(index);
  });
}

void Session::Type(const Words& w) {
  RequireWords(w, 3, 3, "type W \"TEXT\"");
  auto& box = WidgetArg<pelkedit::TextBox>(w[1], "a text box");
  const std::string text = DecodeString(w[2].raw);
  Guard([&] {
    UserFocus(box);
    box.UserType(text);
  });
}

void Session::Focus(const Words& w) {
  RequireWords(w, 2, 2, "focus W");
  auto& widget = WidgetArg(w[1]);
  if (!widget.Focusable()) throw ScriptError(widget.Name() + " cannot take the focus");
  Guard([&] { widget.SetFocus(); });
}

void Session::Blur(const Words& w) {
  RequireWords(w, 1, 1, "blur");
  auto& widgets = Component().Widgets();
  Guard([&] { widgets.MoveFocus(nullptr); });
}

void Session::Undo(const Words& w) {
  RequireWords(w, 1, 1, "undo");
  auto& component = Component();
  Guard([&] { component.Undo(); });
}

void Session::Redo(const Words& w) {
  RequireWords(w, 1, 1, "redo");
  auto& component = Component();
  Guard([&] { component.Redo(); });
}

void Session::MouseDown(const Words& w) {
  RequireWords(w, 3, 4, "mousedown W X [Y]");
  auto& widget = WidgetArg(w[1]);
  if (!Pressable(widget)) throw ScriptError(widget.Name() + " is not a picture area or button");
  const auto x = static_cast<float>(ParseDouble(w[2].raw));
  const auto y = w.size() == 4 ? static_cast<float>(ParseDouble(w[3].raw)) : 0.0F;
  pressedAt_[widget.Name()] = {x, y};
  Guard([&] { widget.UserMouseDown(kLeftButton, kNoShift, x, y); });
}

void Session::MouseUp(const Words& w) {
  RequireWords(w, 2, 2, "mouseup W");
  auto& widget = WidgetArg(w[1]);
  if (!Pressable(widget)) throw ScriptError(widget.Name() + " is not a picture area or button");
  const auto at = pressedAt_[widget.Name()];
  Guard([&] { widget.UserMouseUp(kLeftButton, kNoShift, at.first, at.second); });
}

void Session::Drop(const Words& w) {
  RequireWords(w, 2, 2, "drop W");
  auto& edit = WidgetArg<pelkedit::DateEdit>(w[1], "a date edit");
  Guard([&] { edit.UserDrop(); });
}

void Session::DateClick(const Words& w) {
  RequireWords(w, 5, 5, "dateclick W YEAR MONTH DAY");
  auto& calendar = WidgetArg<pelkedit::Calendar>(w[1], "a calendar");
  const std::int32_t year = ParseInt(w[2].raw);
  const std::int32_t month = ParseInt(w[3].raw);
  const std::int32_t day = ParseInt(w[4].raw);
  if (!pelkedit::IsValidCivil(year, month, day)) throw ScriptError("dateclick: no such date");
  Guard([&] {
    UserFocus(calendar);
    calendar.UserDateClick(year, month, day);
  });
}

void Session::SetDay(const Words& w) {
  RequireWords(w, 3, 3, "setday W N");
  auto& field = WidgetArg<pelkedit::DayValued>(w[1], "a date edit or date field");
  const std::int32_t day = ParseInt(w[2].raw);
  Guard([&] {
    UserFocus(field);
    field.UserSetDay(day);
  });
}

void Session::Selection(const Words& w) {
  RequireWords(w, 4, 4, "selection W START LENGTH");
  auto& box = WidgetArg<pelkedit::TextBox>(w[1], "a text box");
  const std::int32_t start = ParseInt(w[2].raw);
  const std::int32_t length = ParseInt(w[3].raw);
  Guard([&] { box.SetSelection(start, length); });
}

void Session::Answer(const Words& w) {
  RequireWords(w, 2, 2, "answer Yes|No|Cancel|OK");
  world_.platform.QueueAnswer(ParseAnswer(Bare(w[1])));
}

void Session::StartDateDialog(const Words& w) {
  RequireWords(w, 2, SIZE_MAX, "startdate-dialog STEP ...  (setday N, save, cancel, close)");
  std::vector<DialogStep> steps;
  for (std::size_t i = 1; i < w.size(); ++i) {
    const std::string& step = Bare(w[i]);
    if (step == "setday") {
      if (++i >= w.size()) throw ScriptError("startdate-dialog: setday needs a day number");
      steps.emplace_back(0, ParseInt(w[i].raw));  // the dialog's one date field
    } else if (step == "save") {
      steps.emplace_back(DialogStep::Kind::kAccept);
    } else if (step == "cancel") {
      steps.emplace_back(DialogStep::Kind::kCancel);
    } else if (step == "close") {
      steps.emplace_back(DialogStep::Kind::kClose);
    } else {
      throw ScriptError("startdate-dialog: unknown step " + step);
    }
  }
  world_.platform.QueueDialog(pelkedit::FrmStartDate::kName, std::move(steps));
}

void Session::CompetitorsDialog(const Words& w) {
  RequireWords(w, 2, 3, "competitors-dialog save [\"TEXT\"] | cancel | close");
  const std::string& ending = Bare(w[1]);
  std::vector<DialogStep> steps;
  if (ending == "save") {
    // The dialog's one field is its text.
    if (w.size() == 3) steps.emplace_back(0, pelkedit::Variant(DecodeString(w[2].raw)));
    steps.emplace_back(DialogStep::Kind::kAccept);
  } else if (ending == "cancel" && w.size() == 2) {
    steps.emplace_back(DialogStep::Kind::kCancel);
  } else if (ending == "close" && w.size() == 2) {
    steps.emplace_back(DialogStep::Kind::kClose);
  } else {
    throw ScriptError("usage: competitors-dialog save [\"TEXT\"] | cancel | close");
  }
  world_.platform.QueueDialog(pelkedit::FrmCompetitors::kName, std::move(steps));
}

void Session::Products(const Words& w) {
  constexpr const char* kUsage = "products \"TEXT\" CHANGED TOTAL";
  RequireWords(w, 4, 4, kUsage);
  if (!w[1].Quoted()) throw ScriptError(std::string("usage: ") + kUsage);
  const pelkedit::Variant changed = ParseValue(w[2].raw);
  if (changed.Type() != pelkedit::VariantType::kBoolean) {
    throw ScriptError("bad value " + w[2].raw + ": True or False was expected");
  }
  // The total as written, to the fourth decimal; an exponent form goes through a double.
  pelkedit::Currency total;
  AsScriptError("products total", [&] {
    try {
      total = pelkedit::Currency::Parse(w[3].raw);
    } catch (const pelkedit::PelkError& error) {
      if (error.Number() != pelkedit::errnum::kTypeMismatch) throw;
      total = pelkedit::Currency::FromNumber(ParseDouble(w[3].raw));
    }
  });
  Component();
  if (!world_.productView) throw ScriptError("the component has no product view");
  world_.productView->UserEdited(DecodeString(w[1].raw), changed.AsBool(), total);
}

void Session::Lookup(const Words& w) {
  constexpr const char* kUsage = "lookup FIRST LAST ADDRESS COMPANY PHONE EMAIL  or  lookup cancel";
  constexpr std::size_t kFields = 6;
  if (w.size() == 2 && !w[1].Quoted() && w[1].raw == "cancel") {
    world_.lookups->push_back({});
    return;
  }
  RequireWords(w, kFields + 1, kFields + 1, kUsage);
  std::array<std::string, kFields> contact;
  for (std::size_t i = 0; i < kFields; ++i) {
    if (!w[i + 1].Quoted()) throw ScriptError(std::string("usage: ") + kUsage);
    contact[i] = DecodeString(w[i + 1].raw);
  }
  world_.lookups->push_back({contact});
}

}  // namespace pelkscript
