#include "tabs/environment/prove_tab.h"

#include "control/answer.h"
#include "control/editor_context.h"
#include "control/page_layout.h"
#include "tabs/environment/decision_makers.h"
#include "tabs/environment/prove_rows.h"
#include "tabs/environment/scales.h"
#include "trace/error_paths.h"

namespace pelkedit {
namespace {

// Layout in pixels on the phase's frame: one block of three lines per decision maker, what
// the Probe phase found on the left, the two questions on the right.
constexpr float kMargin = 12;
constexpr float kCaptionWidth = 64;
constexpr float kEchoLeft = 80;
constexpr float kEchoWidth = 180;
constexpr float kQuestionLeft = 290;
constexpr float kQuestionCaptionWidth = 104;
constexpr float kQuestionFieldLeft = 398;
constexpr float kQuestionFieldWidth = 150;
constexpr float kBlockPitch = 96;

// The decision makers share one topic per question.
constexpr HelpLink kHelpTopics[] = {
    HelpLink{"lblProveEconName", 35},      HelpLink{"lblProveTechName", 35},
    HelpLink{"lblProveUserName", 35},      HelpLink{"lblProveEconInfluence", 36},
    HelpLink{"lblProveTechInfluence", 36}, HelpLink{"lblProveUserInfluence", 36},
    HelpLink{"lblProveEconImportant", 37}, HelpLink{"lblProveTechImportant", 37},
    HelpLink{"lblProveUserImportant", 37}, HelpLink{"lblProveEconRel", 38},
    HelpLink{"lblProveTechRel", 38},       HelpLink{"lblProveUserRel", 38},
    HelpLink{"lblProveEconDOP", 39},       HelpLink{"lblProveTechDOP", 39},
    HelpLink{"lblProveUserDOP", 39},
};

}  // namespace

std::span<const HelpLink> ProveTab::HelpTopics() const {
  return kHelpTopics;
}

void ProveTab::Build(WidgetRegistry& widgets, Frame& frame) {
  PageLayout page(widgets, frame);
  float top = kMargin;
  for (const DecisionMaker& dm : kDecisionMakers) {
    const float second = top + layout::kRowPitch;
    const float third = second + layout::kRowPitch;
    page.FieldCaption(dm.proveNameLabel, kMargin, top, kCaptionWidth, dm.role);
    page.Display(dm.nameEcho, kEchoLeft, top, kEchoWidth);
    page.FieldCaption(dm.proveInfluenceLabel, kMargin, second, kCaptionWidth, "Influence");
    page.Display(dm.influenceEcho, kEchoLeft, second, kEchoWidth);
    page.FieldCaption(dm.proveImportantLabel, kMargin, third, kCaptionWidth, "Focus on");
    page.Display(dm.importantEcho, kEchoLeft, third, kEchoWidth);
    page.FieldCaption(dm.relationshipLabel, kQuestionLeft, second, kQuestionCaptionWidth,
                      "Relationship");
    page.Place<ListBox>(dm.relationshipList, kQuestionFieldLeft, second, kQuestionFieldWidth,
                        layout::kFieldHeight);
    page.FieldCaption(dm.proofLabel, kQuestionLeft, third, kQuestionCaptionWidth,
                      "Degree of proof");
    page.Place<ListBox>(dm.proofList, kQuestionFieldLeft, third, kQuestionFieldWidth,
                        layout::kFieldHeight);
    top += kBlockPitch;
  }
}

void ProveTab::Wire() {
  for (const DecisionMaker& dm : kDecisionMakers) {
    auto& relationship = ctx_.Get<ListBox>(dm.relationshipList);
    relationship.onClick = [this, &relationship, &dm] {
      RunHandler(EditorContext::Proc(std::string(dm.relationshipList) + "_Click"), ctx_.platform,
                 [&] {
                   UpdateAnswer("UpdateSEnvProveDmRel", DmStepName(ctx_, dm, dm.relationshipLabel),
                                relationship, dm.relationshipFact, dm.relationshipProperty);
                 });
    };
    auto& proof = ctx_.Get<ListBox>(dm.proofList);
    proof.onClick = [this, &proof, &dm] {
      RunHandler(EditorContext::Proc(std::string(dm.proofList) + "_Click"), ctx_.platform, [&] {
        UpdateAnswer("UpdateSEnvProveDmDOP", DmStepName(ctx_, dm, dm.proofLabel), proof,
                     dm.proofFact, dm.proofProperty);
      });
    };
  }
}

void ProveTab::HostChanged(HostChange change) {
  if (change == HostChange::kUpgrade) InitSEnvProve();
}

void ProveTab::InitSEnvProve() {
  RunMethod(EditorContext::Proc("InitSEnvProve"), [&] {
    for (const DecisionMaker& dm : kDecisionMakers) {
      for (const char* label : {dm.proveNameLabel, dm.proveInfluenceLabel, dm.proveImportantLabel,
                                dm.relationshipLabel, dm.proofLabel}) {
        ctx_.widgets.Get<Label>(label).SetPointer(
            static_cast<std::int32_t>(MousePointer::kArrowQuestion));
      }
    }
    for (const DecisionMaker& dm : kDecisionMakers) {
      FillCombo(ctx_.Get<ListBox>(dm.relationshipList), scale::Relationship());
    }
    for (const DecisionMaker& dm : kDecisionMakers) {
      FillCombo(ctx_.Get<ListBox>(dm.proofList), scale::Proof());
    }
    // Econ, then User, then Tech.
    for (const std::size_t row : {0U, 2U, 1U}) ProveRefreshInfo(ctx_, kDecisionMakers[row]);
  });
}

void ProveTab::UpdateAnswer(const char* procedure, const std::string& step, ListBox& list,
                            const char* fact, const char* property) {
  RunMethod(EditorContext::Proc(procedure), [&] {
    const std::int32_t value = list.ListIndex();
    if (value < 0) return;
    CommitAnswer(ctx_,
                 {step, kNotWhileLoading, [&] { return ctx_.Adv().Get(fact).AsLong() == value; }},
                 fact, property, value, kAdvisorResults);
  });
}

}  // namespace pelkedit
