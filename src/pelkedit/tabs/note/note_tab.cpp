#include "tabs/note/note_tab.h"

#include "contracts/names.h"
#include "control/editor_context.h"
#include "control/page_layout.h"
#include "control/record_saving.h"
#include "locale/mod_locale.h"
#include "trace/error_paths.h"
#include "values/text.h"

namespace pelkedit {
namespace {

constexpr std::int32_t kNoteLimit = 12000;
constexpr const char* kNote = "txtIboNote";
constexpr const char* kStampCalendar = "dteDateStamp";
constexpr const char* kStampButton = "cmdDateStamp";

// Layout in pixels: the note on the left, the calendar and its button on the right.
constexpr float kMargin = 10;
constexpr float kNoteWidth = 330;
constexpr float kNoteHeight = 316;
constexpr float kCalendarLeft = 352;
constexpr float kCalendarWidth = 236;
constexpr float kCalendarHeight = 190;
constexpr float kButtonTop = 208;
constexpr float kButtonWidth = 110;
constexpr float kButtonHeight = 26;

}  // namespace

void NoteTab::Build(WidgetRegistry& widgets, Frame& frame) {
  PageLayout page(widgets, frame);
  auto& note = page.Place<TextBox>(kNote, kMargin, kMargin, kNoteWidth, kNoteHeight);
  note.SetMultiline(true);
  note.SetDescription("IBO Note");
  // The note takes the room of a larger window; the date stamp stays at its right.
  note.SetAnchors(anchor::kFill);
  auto& calendar =
      page.Place<Calendar>(kStampCalendar, kCalendarLeft, kMargin, kCalendarWidth, kCalendarHeight);
  calendar.SetDescription("Date for the date stamp");
  calendar.SetAnchors(anchor::kFollowRight);
  auto& stamp =
      page.Place<Button>(kStampButton, kCalendarLeft, kButtonTop, kButtonWidth, kButtonHeight);
  stamp.SetCaption("Date Stamp");
  stamp.SetAnchors(anchor::kFollowRight);
  stamp.SetDescription("Puts the date picked above into the note, where the cursor is.");
}

void NoteTab::Wire() {
  ctx_.Get<TextBox>(kNote).onLostFocus = [this] {
    RunHandler(EditorContext::Proc("txtIboNote_LostFocus"), ctx_.platform, [&] {
      if (!ctx_.state.loading) IBONoteSaveNote();
    });
  };
  ctx_.Get<Button>(kStampButton).onClick = [this] { CmdDateStampClick(); };
}

void NoteTab::InitIBONote() {
  RunMethod(EditorContext::Proc("InitIBONote"), [&] {
    auto& note = ctx_.Get<TextBox>(kNote);
    note.SetMaxLength(kNoteLimit);
    note.SetText(ValidateField(ctx_.Rec().Get(prop::IboNote).AsString(), kNoteLimit));
    ctx_.Get<Calendar>(kStampCalendar).SetDay(DayNumberOf(ctx_.platform.Today()));
  });
}

void NoteTab::IBONoteSaveNote() {
  RunMethod(EditorContext::Proc("IBONoteSaveNote"), [&] {
    const std::string& text = ctx_.Get<TextBox>(kNote).Text();
    IRecord& rec = ctx_.Rec();
    ctx_.EditRecord(
        {"IBO Note", kNotWhileLoading, [&] { return text == rec.Get(prop::IboNote).AsString(); }},
        [&] { rec.Set(prop::IboNote, text); });
  });
}

void NoteTab::SaveIBONoteTab() {
  RunMethod(EditorContext::Proc("SaveIBONoteTab"), [&] {
    if (!ctx_.state.loading) IBONoteSaveNote();
  });
}

// The stamp replaces the selection (or goes in at the caret) when the whole note and the
// stamp fit the box; a note too long simply gets no stamp.
void NoteTab::CmdDateStampClick() {
  RunHandler(EditorContext::Proc("cmdDateStamp_Click"), ctx_.platform, [&] {
    const Date picked = GetDateFromLong(ctx_.Get<Calendar>(kStampCalendar).Day());
    const std::string stamp = FormatShortDate(picked, ctx_.platform.ShortDateFormat());
    auto& note = ctx_.Get<TextBox>(kNote);
    const std::string text = note.Text();
    const std::size_t length = CharCount(text);
    if (length + CharCount(stamp) > static_cast<std::size_t>(note.MaxLength())) return;
    const auto start = std::min(static_cast<std::size_t>(note.SelStart()), length);
    const auto selected = std::min(static_cast<std::size_t>(note.SelLength()), length - start);
    note.SetText(CharLeft(text, start) + stamp + CharMid(text, start + selected, length));
    note.SetSelection(static_cast<std::int32_t>(start + CharCount(stamp)), 0);
  });
}

}  // namespace pelkedit
