#include "control/pelk_ibo_edit.h"

#include <map>

#include "contracts/names.h"
#include "control/caption.h"
#include "control/editor_context.h"
#include "control/host_changes.h"
#include "control/kept_changes.h"
#include "control/layout.h"
#include "control/navigation.h"
#include "control/record_saving.h"
#include "control/undo_redo.h"
#include "help/context_help.h"
#include "locale/mod_locale.h"
#include "tabs/pages.h"
#include "trace/error_paths.h"

namespace pelkedit {
namespace {}  // namespace

PelkIboEdit::PelkIboEdit(IPlatform& platform, IEditorEvents& events)
    : ctx_(std::make_unique<EditorContext>(platform, events)),
      undo_(std::make_unique<UndoRedo>(*ctx_)),
      keeping_(std::make_unique<ChangeKeeping>(*ctx_, *undo_)) {
  EditorContext& ctx = *ctx_;
  BuildEditorShell(ctx.widgets);
  ctx.pages = CreatePages(ctx);
  for (const auto& page : ctx.pages) page->Build(ctx.widgets, FrameOf(ctx.widgets, page->Place()));
  BuildEditorButtons(ctx.widgets);
  ctx.navigation = std::make_unique<Navigation>(ctx);
  ctx.saving = std::make_unique<RecordSaving>(ctx);
  ctx.navigation->Wire();
  ctx.saving->Wire();
  for (const auto& page : ctx.pages) page->Wire();
  WireContextHelp(ctx);

  // UserControl_Initialize: every failing step is reported and creation goes on.
  ResumeNext statement(EditorContext::Proc("UserControl_Initialize"));
  statement([&] { ctx.Get<DateEdit>(widget::deWwih).SetDateOrder(GetUserDateOrder(platform)); });
  statement(
      [&] { ctx.Get<DateEdit>(widget::deCloseDateEdit).SetDateOrder(GetUserDateOrder(platform)); });
  statement([&] { ctx.data = CreateObjectAs<IDataAccess>(platform, kDataProgId); });
  statement([&] { ctx.record = CreateObjectAs<IRecord>(platform, kRecordProgId); });
  statement([&] { ctx.advisor = CreateObjectAs<IAdvisor>(platform, kAdvisorProgIdAtCreate); });
  ctx.state.loading = true;
  ctx.state.iboSaved = false;
  statement([&] { ctx.InitTooltips(); });
  statement([&] { ctx.navigation->LoadSEnvTabPictures(); });
  statement([&] { ctx.navigation->SwitchSEnvTab(tab::kProbe); });
  statement([&] { ctx.navigation->SwitchMainTab(tab::kEssentials); });
  ctx.state.loading = false;
  statement.Leave();
}

PelkIboEdit::~PelkIboEdit() {
  EditorContext& ctx = *ctx_;
  ResumeNext statement(EditorContext::Proc("UserControl_Terminate"));
  statement([&] { ctx.navigation->CleanupMainTabPictures(); });
  statement([&] { ctx.navigation->CleanupSEnvTabPictures(); });
  ctx.record.reset();
  ctx.advisor.reset();
  ctx.data.reset();
  statement.Leave();
}

bool PelkIboEdit::IboSaved() const {
  return ctx_->state.iboSaved;
}
std::int32_t PelkIboEdit::IboStatus() const {
  return ctx_->Rec().Get(prop::Status).AsLong();
}
bool PelkIboEdit::IboChanged() const {
  return ctx_->state.iboChanged;
}

// The host's calls change the record as the host asks: none of it is a step of the user's.
void PelkIboEdit::IboChangeStartDate() {
  ctx_->HostCall([&] { HostChanges(*ctx_).IboChangeStartDate(); });
}
void PelkIboEdit::IboUpgradeToExpert() {
  ctx_->HostCall([&] { HostChanges(*ctx_).IboUpgradeToExpert(); });
}
void PelkIboEdit::IboChangeStatus(std::int32_t status) {
  ctx_->HostCall([&] { HostChanges(*ctx_).IboChangeStatus(status); });
}
void PelkIboEdit::FormClose() {
  ctx_->HostCall([&] { ctx_->saving->FormClose(); });
}

void PelkIboEdit::InitIBOInfo() {
  ctx_->HostCall(
      [&] { ctx_->ForPagesOn(tab::kIboInfo, tab::kNoPhase, [](TabPage& page) { page.Load(); }); });
}

void PelkIboEdit::SetJournal(std::shared_ptr<IChangeJournal> journal) {
  keeping_->SetJournal(std::move(journal));
  ctx_->afterChange = [this] { keeping_->Update(); };
}

void PelkIboEdit::TakeRecord(const Blob& data, const std::string& step) {
  EditorContext& ctx = *ctx_;
  RunMethod(EditorContext::Proc("TakeRecord"), [&] {
    const TabPlace place = ctx.CurrentPlace();
    ctx.EditRecord({step, kNotWhileLoading}, [&] { ctx.Rec().SetIboData(data); });
    undo_->ShowRebuilt(place);
  });
}

std::string PelkIboEdit::VersionRead() const {
  return keeping_->VersionRead();
}

void PelkIboEdit::SaveOnVersion(const std::string& version) {
  keeping_->SaveOnVersion(version);
}

void PelkIboEdit::Undo() {
  undo_->Undo();
}
void PelkIboEdit::Redo() {
  undo_->Redo();
}
bool PelkIboEdit::CanUndo() const {
  return ctx_->history.NextUndo() != nullptr;
}
bool PelkIboEdit::CanRedo() const {
  return ctx_->history.NextRedo() != nullptr;
}
std::string PelkIboEdit::UndoName() const {
  return undo_->UndoName();
}
std::string PelkIboEdit::RedoName() const {
  return undo_->RedoName();
}

void PelkIboEdit::ShowIbo(std::int32_t iboId, std::int32_t view) {
  ctx_->HostCall([&] {
    Load(iboId, view);
    keeping_->Loaded(iboId);
  });
}

void PelkIboEdit::Load(std::int32_t iboId, std::int32_t view) {
  EditorContext& ctx = *ctx_;
  const std::string proc = EditorContext::Proc("ShowIbo");
  RunMethod(proc, [&] {
    const MousePointer previous = ctx.platform.ScreenPointer();
    ctx.platform.SetScreenPointer(MousePointer::kHourglass);
    // A failed load leaves no half-loaded record: the record object goes back to what it held,
    // so a later save cannot write what was never shown. The pointer stays as the failure left
    // it; giving it back is the host's business after any failed call.
    struct Restore {
      EditorContext& ctx;
      EditHistory::Memento history;
      std::optional<Blob> record;
      ~Restore() {
        if (std::uncaught_exceptions() == 0) return;
        ctx.history.Restore(std::move(history));
        if (!record || !ctx.record) return;
        // The load's own error is the one the host hears of; a record that cannot take back
        // its own storage form leaves nothing better to report.
        try {
          ctx.record->SetIboData(*record);
        } catch (const PelkError&) {
        }
      }
    } restore{ctx, ctx.history.Keep(), std::nullopt};

    ctx.state.dbView = view;
    const std::string procName = ctx.saving->RetrievalProcedure(view, proc);
    IRecord& rec = ctx.Rec();
    Blob loaded = ctx.Data().ReadIbo(iboId, procName);
    restore.record = rec.GetIboData();
    rec.SetIboData(loaded);
    ctx.history.Loaded(std::move(loaded));
    ctx.state.loading = true;
    ctx.state.iboChanged = false;
    ctx.state.expertView = rec.Get(prop::ExpertMode).AsBool();
    ctx.navigation->LoadMainTabPictures(ctx.state.expertView);
    ctx.navigation->RefreshMainTab(tab::kEssentials);
    ctx.navigation->SwitchMainTab(tab::kEssentials);
    ctx.InitAdvisor();
    ctx.state.loadedStatus = rec.Get(prop::Status).AsLong();
    ctx.ForPages([](TabPage& page) { page.Load(); });
    ctx.state.loading = false;
    ctx.events.SetFormCaption(FormCaptionOf(rec));
    ctx.events.SetIBOStatus(rec.Get(prop::Status).AsLong());
    ctx.events.SetExpertMode(rec.Get(prop::ExpertMode).AsBool());
    ctx.history.Saved();
    ctx.platform.SetScreenPointer(previous);
  });
}

WidgetRegistry& PelkIboEdit::Widgets() {
  return ctx_->widgets;
}
const EditorState& PelkIboEdit::State() const {
  return ctx_->state;
}
std::string PelkIboEdit::TabCaption(const TabStrip& strip, std::int32_t tab) const {
  const bool phase = &strip == &PhaseStrip();
  for (const auto& page : ctx_->pages) {
    const TabPlace place = page->Place();
    if (phase && place.phase == tab) return page->Caption().phase;
    if (!phase && place.mainTab == tab) return page->Caption().tab;
  }
  return {};
}
std::shared_ptr<IRecord> PelkIboEdit::Record() const {
  return ctx_->record;
}
std::shared_ptr<IAdvisor> PelkIboEdit::Advisor() const {
  return ctx_->advisor;
}

std::optional<Variant> PelkIboEdit::StateByName(const std::string& name) const {
  const EditorState& s = ctx_->state;
  const std::map<std::string, Variant> fields = {
      {"IboChanged", s.iboChanged}, {"IboSaved", s.iboSaved}, {"Loading", s.loading},
      {"ExpertView", s.expertView}, {"DbView", s.dbView},     {"LoadedStatus", s.loadedStatus},
      {"MainTab", s.mainTab},       {"SEnvTab", s.sEnvTab},   {"PromptAnswered", s.promptAnswered},
      {"Refreshing", s.refreshing}, {"CanUndo", CanUndo()},   {"CanRedo", CanRedo()}};
  if (name == "IboStatus") return Variant(IboStatus());
  const auto it = fields.find(name);
  if (it == fields.end()) return std::nullopt;
  return it->second;
}

}  // namespace pelkedit
