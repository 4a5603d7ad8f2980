#include "control/pelk_ibo_edit.h"

#include <map>

#include "control/caption.h"
#include "control/editor_context.h"
#include "control/host_changes.h"
#include "control/layout.h"
#include "control/navigation.h"
#include "control/record_saving.h"
#include "locale/mod_locale.h"
#include "tabs/advisor/advisor_tab.h"
#include "tabs/advisor/matrix_priority.h"
#include "tabs/essentials/essentials_tab.h"
#include "trace/error_paths.h"

namespace pelkedit {
namespace {

template <typename T>
std::shared_ptr<T> CreateAs(IPlatform& platform, const char* progId) {
  auto object = std::dynamic_pointer_cast<T>(platform.CreateObject(progId));
  if (!object) Raise(errnum::kTypeMismatch, progId);
  return object;
}

}  // namespace

PelkIboEdit::PelkIboEdit(IPlatform& platform, IEditorEvents& events)
    : ctx_(std::make_unique<EditorContext>(platform, events)) {
  EditorContext& ctx = *ctx_;
  BuildEditorLayout(ctx.widgets);
  ctx.navigation = std::make_unique<Navigation>(ctx);
  ctx.essentials = std::make_unique<EssentialsTab>(ctx);
  ctx.matrix = std::make_unique<MatrixPriority>(ctx);
  ctx.advisorTab = std::make_unique<AdvisorTab>(ctx);
  ctx.saving = std::make_unique<RecordSaving>(ctx);
  ctx.navigation->Wire();
  ctx.essentials->Wire();
  ctx.advisorTab->Wire();
  ctx.saving->Wire();

  // UserControl_Initialize: every failing step is reported and creation goes on.
  ResumeNext statement(EditorContext::Proc("UserControl_Initialize"));
  statement([&] { ctx.Get<DateEdit>("deWwih").SetDateOrder(GetUserDateOrder(platform)); });
  statement([&] { ctx.Get<DateEdit>("deCloseDateEdit").SetDateOrder(GetUserDateOrder(platform)); });
  statement([&] { ctx.data = CreateAs<IDataAccess>(platform, kDataProgId); });
  statement([&] { ctx.record = CreateAs<IRecord>(platform, kRecordProgId); });
  statement([&] { ctx.advisor = CreateAs<IAdvisor>(platform, kAdvisorProgIdAtCreate); });
  ctx.state.loading = true;
  ctx.state.iboSaved = false;
  statement([&] { ctx.InitTooltips(); });
  statement([&] { ctx.navigation->LoadSEnvTabPictures(); });
  statement([&] { ctx.navigation->SwitchSEnvTab(Navigation::kProbe); });
  statement([&] { ctx.navigation->SwitchMainTab(Navigation::kEssentials); });
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
  return ctx_->Rec().Get("Status").AsLong();
}
bool PelkIboEdit::IboChanged() const {
  return ctx_->state.iboChanged;
}

void PelkIboEdit::IboChangeStartDate() {
  HostChanges(*ctx_).IboChangeStartDate();
}
void PelkIboEdit::IboUpgradeToExpert() {
  HostChanges(*ctx_).IboUpgradeToExpert();
}
void PelkIboEdit::IboChangeStatus(std::int32_t status) {
  HostChanges(*ctx_).IboChangeStatus(status);
}
void PelkIboEdit::FormClose() {
  ctx_->saving->FormClose();
}

void PelkIboEdit::InitIBOInfo() {
  EditorContext& ctx = *ctx_;
  RunMethod(EditorContext::Proc("InitIBOInfo"), [&] {
    static const std::pair<const char*, std::int32_t> kContactLimits[] = {
        {"txtConFirstName", 63}, {"txtConLastName", 63}, {"txtConCompany", 127},
        {"txtConAddress", 255},  {"txtConEmail", 127},   {"txtConPhone", 63}};
    for (const auto& [name, limit] : kContactLimits) ctx.Get<TextBox>(name).SetMaxLength(limit);
    ctx.InitPage(TabPageId::kInfo);
  });
}

void PelkIboEdit::ShowIbo(std::int32_t iboId, std::int32_t view) {
  EditorContext& ctx = *ctx_;
  const std::string proc = EditorContext::Proc("ShowIbo");
  RunMethod(proc, [&] {
    const MousePointer previous = ctx.platform.ScreenPointer();
    ctx.platform.SetScreenPointer(MousePointer::kHourglass);
    // The user is never left with the hourglass, even when the load fails.
    struct RestorePointer {
      IPlatform& platform;
      MousePointer pointer;
      ~RestorePointer() {
        if (std::uncaught_exceptions() > 0) platform.SetScreenPointer(pointer);
      }
    } restore{ctx.platform, previous};

    ctx.state.dbView = view;
    const std::string procName = ctx.saving->RetrievalProcedure(view, proc);
    ctx.Rec().SetIboData(ctx.Data().ReadIbo(iboId, procName));
    ctx.state.loading = true;
    ctx.state.iboChanged = false;
    IRecord& rec = ctx.Rec();
    ctx.state.expertView = rec.Get("ExpertMode").AsBool();
    ctx.Get<Button>("cmdAdvisorSays").SetVisible(ctx.state.expertView);
    ctx.navigation->LoadMainTabPictures(ctx.state.expertView);
    ctx.navigation->RefreshMainTab(Navigation::kEssentials);
    ctx.navigation->SwitchMainTab(Navigation::kEssentials);
    ctx.advisorTab->InitAdvisor();
    ctx.state.loadedStatus = rec.Get("Status").AsLong();
    ctx.essentials->InitIboEssentials();
    ctx.InitPage(TabPageId::kProbe);
    ctx.InitPage(TabPageId::kProve);
    ctx.InitPage(TabPageId::kClose);
    InitIBOInfo();
    ctx.InitPage(TabPageId::kNote);
    ctx.advisorTab->RefreshAdvisorMsg();
    ctx.state.loading = false;
    ctx.events.SetFormCaption(FormCaptionOf(rec));
    ctx.events.SetIBOStatus(rec.Get("Status").AsLong());
    ctx.events.SetExpertMode(rec.Get("ExpertMode").AsBool());
    ctx.platform.SetScreenPointer(previous);
  });
}

WidgetRegistry& PelkIboEdit::Widgets() {
  return ctx_->widgets;
}
const EditorState& PelkIboEdit::State() const {
  return ctx_->state;
}
std::shared_ptr<IRecord> PelkIboEdit::Record() const {
  return ctx_->record;
}
std::shared_ptr<IAdvisor> PelkIboEdit::Advisor() const {
  return ctx_->advisor;
}

void PelkIboEdit::InstallPage(TabPageId id, std::unique_ptr<TabPage> page) {
  ctx_->pages[static_cast<std::size_t>(id)] = std::move(page);
}

std::optional<Variant> PelkIboEdit::StateByName(const std::string& name) const {
  const EditorState& s = ctx_->state;
  const std::map<std::string, Variant> fields = {
      {"IboChanged", s.iboChanged}, {"IboSaved", s.iboSaved}, {"Loading", s.loading},
      {"ExpertView", s.expertView}, {"DbView", s.dbView},     {"LoadedStatus", s.loadedStatus},
      {"MainTab", s.mainTab},       {"SEnvTab", s.sEnvTab},   {"PromptAnswered", s.promptAnswered}};
  if (name == "IboStatus") return Variant(IboStatus());
  const auto it = fields.find(name);
  if (it == fields.end()) return std::nullopt;
  return it->second;
}

}  // namespace pelkedit
