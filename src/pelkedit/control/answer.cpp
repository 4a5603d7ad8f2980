#include "control/answer.h"

#include "contracts/names.h"
#include "control/editor_context.h"
#include "trace/error_paths.h"

namespace pelkedit {

const std::vector<const char*> kSEnvResults = {fact::AdvisorPriority, fact::AdvisorWih,
                                               fact::AdvisorWwgi, fact::AdvisorExtraResult};

void CommitAnswer(EditorContext& ctx, const char* fact, const char* property, const Variant& value,
                  const std::vector<const char*>& results) {
  IAdvisor& advisor = ctx.Adv();
  advisor.Set(fact, value);
  advisor.Evaluate();
  ctx.Rec().Set(property, value);
  ctx.CopyAdvisorResults(results);
  ctx.MarkIboAsDirty();
}

void ApplyAnswer(EditorContext& ctx, const Answer& answer, const Variant& value,
                 const std::function<void()>& redraw) {
  RunMethod(EditorContext::Proc(answer.procedure), [&] {
    IAdvisor& advisor = ctx.Adv();
    advisor.Set(answer.fact, value);
    advisor.Evaluate();
    if (!ctx.state.loading) {
      ctx.Rec().Set(answer.property, value);
      ctx.CopyAdvisorResults(answer.results);
      ctx.MarkIboAsDirty();
    }
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
