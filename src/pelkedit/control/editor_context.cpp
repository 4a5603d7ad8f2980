#include "control/editor_context.h"

#include "contracts/names.h"
#include "control/navigation.h"
#include "control/record_saving.h"
#include "trace/error_paths.h"
#include "values/error.h"

namespace pelkedit {
namespace {

template <typename T>
T& Require(const std::shared_ptr<T>& object, const char* what) {
  if (!object) {
    Raise(errnum::kObjectVariableNotSet, EditorContext::Proc(what));
  }
  return *object;
}

}  // namespace

EditorContext::EditorContext(IPlatform& p, IEditorEvents& e) : platform(p), events(e) {}
EditorContext::~EditorContext() = default;

IRecord& EditorContext::Rec() const {
  Require(record, "record");
  return tap_;
}
IAdvisor& EditorContext::Adv() const {
  return Require(advisor, "advisor");
}
IDataAccess& EditorContext::Data() const {
  return Require(data, "data");
}

std::string EditorContext::Proc(std::string_view procedure) {
  return Qualified("PelkIboEdit", procedure);
}

bool EditorContext::Skipped(unsigned guards) const {
  return ((guards & kNotWhileLoading) != 0U && state.loading) ||
         ((guards & kNotWhileRefreshing) != 0U && state.refreshing);
}

EditorContext::StepScope::StepScope(EditorContext& ctx, const std::string& name)
    : ctx_(ctx), opened_(ctx.hostCalls_ == 0) {
  if (!opened_) return;
  ctx.history.Open(name, ctx.CurrentPlace());
}

EditorContext::StepScope::~StepScope() {
  if (!opened_) return;
  ctx_.history.Close();
  if (ctx_.history.InStep()) return;
  // Nothing may leave a destructor: both are extras of the step, which is made whatever they do.
  try {
    // Only a shortcut for rebuilding: without it the record is replayed from the copy before.
    if (ctx_.history.WantsCopy() && ctx_.record) ctx_.history.Copied(ctx_.record->GetIboData());
    if (ctx_.afterChange) ctx_.afterChange();
  } catch (...) {
  }
}

TabPlace EditorContext::CurrentPlace() const {
  return {state.mainTab, state.mainTab == tab::kSalesEnvironment ? state.sEnvTab : tab::kNoPhase};
}

std::string EditorContext::CaptionOf(const char* label) const {
  std::string caption = widgets.Get<Label>(label).Caption();
  while (!caption.empty() && (caption.back() == ':' || caption.back() == ' ')) caption.pop_back();
  return caption;
}

void EditorContext::MarkIboAsDirty() {
  RunMethod(Proc("MarkIboAsDirty"), [&] {
    if (state.loading) return;
    IRecord& rec = Rec();
    if (!rec.Get(prop::DirtyExempt).AsBool()) {
      rec.Set(prop::DirtyFlag, true);
      rec.Set(prop::CleanFlag, false);
    }
    rec.Set(prop::ModifiedDate, platform.Now());
    state.iboChanged = true;
  });
}

void EditorContext::CopyAdvisorResults(const std::vector<const char*>& results) const {
  IAdvisor& engine = Adv();
  IRecord& rec = Rec();
  for (const char* result : results) rec.Set(result, engine.Get(result));
}

void EditorContext::CenterControl(float left, Widget& ctl, const Widget& container) {
  RunMethod(Proc("CenterControl"), [&] {
    ctl.SetLeft(left);
    ctl.SetTop(container.Top() + container.Height() / 2.0F - ctl.Height() / 2.0F);
  });
}

void EditorContext::InitTooltips() const {
  if (initTooltips) initTooltips();
}

}  // namespace pelkedit
