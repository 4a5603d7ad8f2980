#include "tabs/environment/prove_rows.h"

#include "control/editor_context.h"
#include "tabs/environment/decision_makers.h"
#include "tabs/environment/scales.h"
#include "trace/error_paths.h"

namespace pelkedit {
namespace {

constexpr const char* kUnknown = "UNKNOWN";

// ProveShowEconDm and the like: the eight widgets after the name.
void ProveShowDm(EditorContext& ctx, const DecisionMaker& dm, bool show) {
  RunMethod(EditorContext::Proc(std::string("ProveShow") + dm.role + "Dm"), [&] {
    for (const char* name :
         {dm.proveInfluenceLabel, dm.influenceEcho, dm.proveImportantLabel, dm.importantEcho,
          dm.relationshipLabel, dm.relationshipList, dm.proofLabel, dm.proofList}) {
      ctx.widgets.Get<Widget>(name).SetVisible(show);
    }
  });
}

}  // namespace

void ProveRefreshInfo(EditorContext& ctx, const DecisionMaker& dm) {
  RunMethod(EditorContext::Proc(std::string("ProveRefresh") + dm.role + "Info"), [&] {
    IRecord& rec = ctx.Rec();
    auto& nameEcho = ctx.Get<TextBox>(dm.nameEcho);
    if (!rec.Get(dm.knownProperty).AsBool()) {
      nameEcho.SetText(kUnknown);
      ProveShowDm(ctx, dm, false);
      return;
    }
    const std::string& name = ctx.Get<TextBox>(dm.nameBox).Text();
    nameEcho.SetText(name);
    nameEcho.SetTooltip(name);
    ProveShowDm(ctx, dm, true);
    ctx.Get<TextBox>(dm.influenceEcho).SetText(ctx.Get<ListBox>(dm.influenceList).Text());
    const std::string& important = ctx.Get<TextBox>(dm.importantBox).Text();
    auto& importantEcho = ctx.Get<TextBox>(dm.importantEcho);
    importantEcho.SetText(important);
    importantEcho.SetTooltip(important);
    SelectStoredCode(ctx.Get<ListBox>(dm.relationshipList),
                     rec.Get(dm.relationshipProperty).AsLong());
    SelectStoredCode(ctx.Get<ListBox>(dm.proofList), rec.Get(dm.proofProperty).AsLong());
  });
}

void ProveRefreshAll(EditorContext& ctx) {
  for (const DecisionMaker& dm : kDecisionMakers) ProveRefreshInfo(ctx, dm);
}

}  // namespace pelkedit
