#include "tabs/environment/probe_tab.h"

#include "contracts/names.h"
#include "contracts/pictures.h"
#include "control/answer.h"
#include "control/editor_context.h"
#include "control/page_layout.h"
#include "dialogs/frm_competitors.h"
#include "tabs/environment/decision_makers.h"
#include "tabs/environment/prove_rows.h"
#include "tabs/environment/scales.h"
#include "tabs/environment/tooltips.h"
#include "trace/error_paths.h"

namespace pelkedit {
namespace {

constexpr std::int32_t kNameLimit = 30;
constexpr std::int32_t kImportantLimit = 25;
constexpr const char* kCompetitorsButton = "cmdSenvCompetitors";

// A single question: its label, its list, its scale, and the fact and property of the same
// name that receive the answer.
struct Question {
  const char* label;
  const char* caption;
  const char* list;
  const Scale& (*scale)();
  const char* name;
};

// Note the crossing: the established need feeds SEnvLevelNeed, the level of need
// SEnvCustomerNeed.
const Question kQuestions[] = {
    {"lblEstablishedNeed", "Established need?", "cboProbeEstablishedNeed", scale::Level,
     fact::SEnvLevelNeed},
    {"lblSolutionMatch", "Solution Match?", "cboProbeSolutionMatch", scale::Level,
     fact::SEnvSolMatch},
    {"lblLevelOfNeed", "Level of need?", "cboProbeLevelOfNeed", scale::Urgency,
     fact::SEnvCustomerNeed},
    {"lblBudgetMatch", "Budget match?", "cboProbeBudgetMatch", scale::Budget,
     fact::SEnvBudgetMatch},
    {"lblFunding", "Funding?", "cboProbeFunding", scale::Funding, fact::SEnvFunding},
    {"lblFamiliarity", "Familiarity?", "cboProbeFamiliarity", scale::Familiarity, fact::SEnvFamOrg},
    {"lblCompPressure", "Comp. pressure?", "cboProbeCompPressure", scale::Level,
     fact::SEnvCompPressure},
};

// Layout in pixels on the phase's frame: the questions on the left, the decision makers on
// the right, three lines each.
constexpr float kMargin = 12;
constexpr float kQuestionCaptionWidth = 116;
constexpr float kQuestionListLeft = 132;
constexpr float kQuestionListWidth = 124;
constexpr float kDmLeft = 290;
constexpr float kDmCaptionWidth = 42;
constexpr float kDmFieldLeft = 336;
constexpr float kDmNameWidth = 226;
constexpr float kDmDetailLeft = 306;
constexpr float kDmDetailCaptionWidth = 70;
constexpr float kDmDetailFieldLeft = 384;
constexpr float kDmDetailWidth = 178;
constexpr float kLookupSize = 22;
constexpr float kFirstDmTop = 34;
constexpr float kDmPitch = 86;
constexpr float kButtonWidth = 80;
constexpr float kButtonHeight = 24;

// Each question opens its topic; the decision makers share one topic per question.
constexpr HelpLink kHelpTopics[] = {
    HelpLink{"lblEstablishedNeed", 22},
    HelpLink{"lblSolutionMatch", 23},
    HelpLink{"lblLevelOfNeed", 24},
    HelpLink{"lblBudgetMatch", 25},
    HelpLink{"lblFunding", 26},
    HelpLink{"lblFamiliarity", 27},
    HelpLink{"lblCompPressure", 28},
    HelpLink{"lblCompetitors", 29},
    HelpLink{"lblDecisionMakers", 30},
    HelpLink{"lblProbeEconName", 31},
    HelpLink{"lblProbeTechName", 31},
    HelpLink{"lblProbeUserName", 31},
    HelpLink{"lblProbeEconInfluence", 32},
    HelpLink{"lblProbeTechInfluence", 32},
    HelpLink{"lblProbeUserInfluence", 32},
    HelpLink{"lblProbeEconImportant", 33},
    HelpLink{"lblProbeTechImportant", 33},
    HelpLink{"lblProbeUserImportant", 33},
};

}  // namespace

std::span<const HelpLink> ProbeTab::HelpTopics() const {
  return kHelpTopics;
}

void ProbeTab::Build(WidgetRegistry& widgets, Frame& frame) {
  PageLayout page(widgets, frame);
  float top = kMargin;
  for (const Question& question : kQuestions) {
    page.FieldCaption(question.label, kMargin, top, kQuestionCaptionWidth, question.caption);
    page.Place<ListBox>(question.list, kQuestionListLeft, top, kQuestionListWidth,
                        layout::kFieldHeight);
    top += layout::kRowPitch;
  }
  page.FieldCaption("lblCompetitors", kMargin, top, kQuestionCaptionWidth, "Competitors?");
  auto& competitors = page.Place<Button>(kCompetitorsButton, kQuestionListLeft, top - 1,
                                         kButtonWidth, kButtonHeight);
  competitors.SetCaption("Edit...");
  competitors.SetDescription("Edits the list of competitors you know of.");

  page.Caption("lblDecisionMakers", kDmLeft, kMargin, kDmNameWidth, "Decision Makers");
  float dmTop = kFirstDmTop;
  for (const DecisionMaker& dm : kDecisionMakers) {
    page.FieldCaption(dm.nameLabel, kDmLeft, dmTop, kDmCaptionWidth, dm.role);
    page.Place<TextBox>(dm.nameBox, kDmFieldLeft, dmTop, kDmNameWidth, layout::kFieldHeight)
        .SetLookUpPicture(dm.lookup);
    page.Place<PictureBox>(dm.lookup, kDmFieldLeft + kDmNameWidth + 4, dmTop, kLookupSize,
                           kLookupSize)
        .SetDesignPicture(picture::kLookupButton);
    const float influenceTop = dmTop + layout::kRowPitch;
    page.FieldCaption(dm.influenceLabel, kDmDetailLeft, influenceTop, kDmDetailCaptionWidth,
                      "Influence");
    page.Place<ListBox>(dm.influenceList, kDmDetailFieldLeft, influenceTop, kDmDetailWidth,
                        layout::kFieldHeight);
    const float importantTop = influenceTop + layout::kRowPitch;
    page.FieldCaption(dm.importantLabel, kDmDetailLeft, importantTop, kDmDetailCaptionWidth,
                      "Important");
    page.Place<TextBox>(dm.importantBox, kDmDetailFieldLeft, importantTop, kDmDetailWidth,
                        layout::kFieldHeight);
    dmTop += kDmPitch;
  }
}

void ProbeTab::Wire() {
  ctx_.initTooltips = [this] { InitTooltips(ctx_); };
  for (const Question& question : kQuestions) {
    auto& list = ctx_.Get<ListBox>(question.list);
    list.onClick = [this, &list, &question] {
      RunHandler(EditorContext::Proc(std::string(question.list) + "_Click"), ctx_.platform,
                 [&] { UpdateSEnvQuestion(list, question.label, question.name, question.name); });
    };
  }
  for (const DecisionMaker& dm : kDecisionMakers) {
    ctx_.Get<ListBox>(dm.influenceList).onClick = [this, &dm] {
      RunHandler(EditorContext::Proc(std::string(dm.influenceList) + "_Click"), ctx_.platform,
                 [&] { UpdateSEnvProbeDmInfluence(dm); });
    };
    ctx_.Get<TextBox>(dm.nameBox).onLostFocus = [this, &dm] {
      RunHandler(EditorContext::Proc(std::string(dm.nameBox) + "_LostFocus"), ctx_.platform,
                 [&] { UpdateSEnvProbeDmName(dm); });
    };
    ctx_.Get<PictureBox>(dm.lookup).onClick = [this, &dm] { DmLookupClick(dm); };
    ctx_.Get<TextBox>(dm.importantBox).onLostFocus = [this, &dm] {
      RunHandler(EditorContext::Proc(std::string(dm.importantBox) + "_LostFocus"), ctx_.platform,
                 [&] { UpdateSEnvProbeDmImportant(dm); });
    };
  }
  ctx_.Get<Button>(kCompetitorsButton).onClick = [this] { CmdSenvCompetitorsClick(); };
}

void ProbeTab::HostChanged(HostChange change) {
  if (change == HostChange::kUpgrade) InitSEnvProbe();
}

void ProbeTab::InitSEnvProbe() {
  RunMethod(EditorContext::Proc("InitSEnvProbe"), [&] {
    for (const DecisionMaker& dm : kDecisionMakers) {
      ctx_.Get<TextBox>(dm.nameBox).SetMaxLength(kNameLimit);
    }
    for (const DecisionMaker& dm : kDecisionMakers) {
      ctx_.Get<TextBox>(dm.importantBox).SetMaxLength(kImportantLimit);
    }
    // One loop over the scale fills the three influence lists in turn.
    for (const DecisionMaker& dm : kDecisionMakers) ctx_.Get<ListBox>(dm.influenceList).Clear();
    for (const std::string& item : scale::Level()) {
      for (const DecisionMaker& dm : kDecisionMakers) {
        ctx_.Get<ListBox>(dm.influenceList).AddItem(item);
      }
    }
    for (const Question& question : kQuestions) {
      FillCombo(ctx_.Get<ListBox>(question.list), question.scale());
    }
    IRecord& rec = ctx_.Rec();
    for (const Question& question : kQuestions) {
      SelectStoredCode(ctx_.Get<ListBox>(question.list), rec.Get(question.name).AsLong());
    }
    for (const DecisionMaker& dm : kDecisionMakers) {
      ctx_.Get<TextBox>(dm.nameBox).SetText(rec.Get(dm.nameProperty).AsString());
      ctx_.Get<TextBox>(dm.importantBox).SetText(rec.Get(dm.importantProperty).AsString());
      // The selection's event writes the Prove phase's echo, even during a load.
      SelectStoredCode(ctx_.Get<ListBox>(dm.influenceList), rec.Get(dm.influenceProperty).AsLong());
    }
  });
}

void ProbeTab::UpdateSEnvQuestion(ListBox& list, const char* label, const char* fact,
                                  const char* property) {
  RunMethod(EditorContext::Proc("UpdateSEnvQuestion"), [&] {
    const std::int32_t value = list.ListIndex();
    if (value < 0) return;
    // Every pick commits, the stored answer again too.
    CommitAnswer(ctx_, {ctx_.CaptionOf(label)}, fact, property, value, kAdvisorResults);
  });
}

void ProbeTab::UpdateSEnvProbeDmInfluence(const DecisionMaker& dm) {
  RunMethod(EditorContext::Proc("UpdateSEnvProbeDmInfluence"), [&] {
    auto& list = ctx_.Get<ListBox>(dm.influenceList);
    const std::int32_t value = list.ListIndex();
    if (value < 0) return;
    ctx_.Get<TextBox>(dm.influenceEcho).SetText(list.List(value));
    CommitAnswer(ctx_,
                 {DmStepName(ctx_, dm, dm.influenceLabel), kNotWhileLoading,
                  [&] { return ctx_.Adv().Get(dm.influenceFact).AsLong() == value; }},
                 dm.influenceFact, dm.influenceProperty, value, kAdvisorResults);
  });
}

void ProbeTab::UpdateSEnvProbeDmName(const DecisionMaker& dm) {
  RunMethod(EditorContext::Proc("UpdateSEnvProbeDmName"), [&] {
    const std::string name = ctx_.Get<TextBox>(dm.nameBox).Text();
    IRecord& rec = ctx_.Rec();
    const bool changed =
        ctx_.EditRecord({DmStepName(ctx_, dm, dm.nameLabel), kAlways,
                         [&] { return name == rec.Get(dm.nameProperty).AsString(); }},
                        [&] {
                          const bool known = !name.empty();
                          IAdvisor& advisor = ctx_.Adv();
                          advisor.Set(dm.knownFact, known);
                          advisor.Evaluate();
                          rec.Set(dm.knownProperty, known);
                          rec.Set(dm.nameProperty, name);
                          ctx_.CopyAdvisorResults(kAdvisorResults);
                        });
    if (changed) ProveRefreshAll(ctx_);
  });
}

void ProbeTab::UpdateSEnvProbeDmImportant(const DecisionMaker& dm) {
  RunMethod(EditorContext::Proc("UpdateSEnvProbeDmImportant"), [&] {
    const std::string text = ctx_.Get<TextBox>(dm.importantBox).Text();
    auto& echo = ctx_.Get<TextBox>(dm.importantEcho);
    echo.SetText(text);
    echo.SetTooltip(text);
    IRecord& rec = ctx_.Rec();
    ctx_.EditRecord({DmStepName(ctx_, dm, dm.importantLabel), kAlways,
                     [&] { return text == rec.Get(dm.importantProperty).AsString(); }},
                    [&] {
                      IAdvisor& advisor = ctx_.Adv();
                      advisor.Set(dm.importantKnownFact, !text.empty());
                      advisor.Evaluate();
                      // The record derives whether the text is known.
                      rec.Set(dm.importantProperty, text);
                      ctx_.CopyAdvisorResults(kAdvisorResults);
                    });
  });
}

void ProbeTab::SaveSEnvProbeTab() {
  RunMethod(EditorContext::Proc("SaveSEnvProbeTab"), [&] {
    if (ctx_.state.loading) return;
    for (const DecisionMaker& dm : kDecisionMakers) UpdateSEnvProbeDmName(dm);
    for (const DecisionMaker& dm : kDecisionMakers) UpdateSEnvProbeDmImportant(dm);
  });
}

void ProbeTab::CmdSenvCompetitorsClick() {
  RunHandler(EditorContext::Proc("cmdSenvCompetitors_Click"), ctx_.platform, [&] {
    FrmCompetitors dialog;
    IRecord& rec = ctx_.Rec();
    dialog.SetCompetitors(rec.Get(prop::Competitors).AsString());
    ctx_.platform.ShowModal(dialog);
    if (dialog.DialogCancel()) return;
    const std::string text = dialog.Competitors();
    ctx_.EditRecord({ctx_.CaptionOf("lblCompetitors"), kAlways,
                     [&] { return text == rec.Get(prop::Competitors).AsString(); }},
                    [&] {
                      rec.Set(prop::Competitors, text);
                      IAdvisor& advisor = ctx_.Adv();
                      advisor.Set(fact::SEnvCompetitorsKnown, rec.Get(prop::CompetitorsKnown));
                      advisor.Evaluate();
                      // No copy-back here: the next answer brings the record's copies of the
                      // results up to date.
                    });
  });
}

}  // namespace pelkedit
