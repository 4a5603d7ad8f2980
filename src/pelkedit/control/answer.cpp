#include "control/answer.h"

#include "contracts/names.h"
#include "control/editor_context.h"
#include "trace/error_paths.h"

namespace pelkedit {

const std::vector<const char*> kAdvisorResults = {fact::AdvisorPriority, fact::AdvisorWih,
                                                  fact::AdvisorWwgi, fact::AdvisorExtraResult};

namespace {

void TellEngine(EditorContext& ctx, const char* fact, const Variant& value) {
  IAdvisor& advisor = ctx.Adv();
  advisor.Set(fact, value);
  advisor.Evaluate();
}

void StoreAnswer(EditorContext& ctx, const char* property, const Variant& value,
                 const std::vector<const char*>& results) {
  ctx.Rec().Set(property, value);
  ctx.CopyAdvisorResults(results);
}

}  // namespace

void CommitAnswer(EditorContext& ctx, const Edit& edit, const char* fact, const char* property,
                  const Variant& value, const std::vector<const char*>& results) {
  ctx.EditRecord(edit, [&] {
    TellEngine(ctx, fact, value);
    StoreAnswer(ctx, property, value, results);
  });
}

void ApplyAnswer(EditorContext& ctx, const Answer& answer, const Variant& value,
                 const std::function<void()>& redraw) {
  RunMethod(EditorContext::Proc(answer.procedure), [&] {
    // The engine hears the answer even while a load fills the widgets; the record does not.
    TellEngine(ctx, answer.fact, value);
    ctx.EditRecord({answer.step},
                   [&] { StoreAnswer(ctx, answer.property, value, answer.results); });
    if (redraw) redraw();
  });
}

void WireOptionAnswer(EditorContext& ctx, const std::string& prefix,
                      std::initializer_list<const char*> levels, const Answer& answer,
                      const std::function<void()>& redraw) {
  std::int32_t code = 0;
  for (const char* level : levels) {
    const std::string option = prefix + level;
    ctx.Get<OptionButton>(option).onClick = [&ctx, option, code, answer, redraw] {
      RunHandler(EditorContext::Proc(option + "_Click"), ctx.platform, [&] {
        if (!ctx.state.loading) ApplyAnswer(ctx, answer, code, redraw);
      });
    };
    ++code;
  }
}

}  // namespace pelkedit
