#include "control/answer.h"

#include "control/editor_context.h"
#include "trace/error_paths.h"

namespace pelkedit {

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
