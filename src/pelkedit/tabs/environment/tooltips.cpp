#include "tabs/environment/tooltips.h"

#include "control/editor_context.h"
#include "trace/error_paths.h"

namespace pelkedit {
namespace {

struct Tooltip {
  const char* label;
  const char* text;
};

const char* const kProbeInfluence = "The degree of influence this decision maker has in the sale.";
const char* const kProbeImportant =
    "The aspect of the sale that most concerns this decision maker.";
const char* const kProveInfluence =
    "The degree of influence this decision maker has in the sale, as discovered in the probe "
    "phase.";
const char* const kProveImportant =
    "The aspect of the sale that most concerns this decision maker, as discovered in the probe "
    "phase.";
const char* const kRelationship = "How good is your relationship with this decision maker?";
const char* const kProof =
    "How well have you proved the features of your product to this decision maker, especially "
    "the aspects that most concern this person.";

const Tooltip kTooltips[] = {
    {"lblEstablishedNeed",
     "To what degree have you established the customer's need for your product/service?"},
    {"lblSolutionMatch", "How well does your product match the customer's requirement?"},
    {"lblLevelOfNeed", "How great is the customer's need for your product?"},
    {"lblBudgetMatch", "How well does the price of your solution match the customer's budget?"},
    {"lblFunding", "What are the chances that the customer will receive funding?"},
    {"lblFamiliarity", "What is your familiarity with the customer and his organization?"},
    {"lblCompPressure", "How strong is the competitive pressure in this sale?"},
    {"lblCompetitors", "Who are the competitors?"},
    {"lblProbeEconName", "What is the name of economic decision maker in this sale?"},
    {"lblProbeTechName", "What is the name of technical decision maker in this sale?"},
    {"lblProbeUserName", "What is the name of user decision maker in this sale?"},
    {"lblProbeEconInfluence", kProbeInfluence},
    {"lblProbeTechInfluence", kProbeInfluence},
    {"lblProbeUserInfluence", kProbeInfluence},
    {"lblProbeEconImportant", kProbeImportant},
    {"lblProbeTechImportant", kProbeImportant},
    {"lblProbeUserImportant", kProbeImportant},
    {"lblProveEconName",
     "The name of economic decision maker that you discovered in the probe phase."},
    {"lblProveTechName",
     "The name of technical decision maker that you discovered in the probe phase."},
    {"lblProveUserName", "The name of user decision maker that you discovered in the probe phase."},
    {"lblProveEconInfluence", kProveInfluence},
    {"lblProveTechInfluence", kProveInfluence},
    {"lblProveUserInfluence", kProveInfluence},
    {"lblProveEconImportant", kProveImportant},
    {"lblProveTechImportant", kProveImportant},
    {"lblProveUserImportant", kProveImportant},
    {"lblProveEconRel", kRelationship},
    {"lblProveTechRel", kRelationship},
    {"lblProveUserRel", kRelationship},
    {"lblProveEconDOP", kProof},
    {"lblProveTechDOP", kProof},
    {"lblProveUserDOP", kProof},
    {"lblCloseTC", "Have you made a trial close?"},
    {"lblCloseDecided", "Has the customer made a decision to buy from you?"},
    {"lblCloseBarriers", "What are the barriers to the customer buying your product?"},
    {"lblCloseStrategy", "What is your strategy to overcome the customer\u2019s objection?"},
    {"lblCloseDate", "The date that you won or lost this opportunity."},
    {"lblCloseReason", "Enter the reason(s) why you won or lost this sale."},
    {"lblCloseResult", "Did you win or lose this sale?"},
    {"lblCloseWinBidder",
     "If the sale has been won by the competition list the winning company for your records."},
    {"lblCloseEnacted",
     "Have you enacted your strategy to overcome the customer\u2019s objection?"},
    {"lblCloseTcHistory", "History of trial closes and strategies."},
};

}  // namespace

void InitTooltips(EditorContext& ctx) {
  RunMethod(EditorContext::Proc("InitTooltips"), [&] {
    for (const Tooltip& tooltip : kTooltips) {
      if (Widget* label = ctx.widgets.Find(tooltip.label)) label->SetTooltip(tooltip.text);
    }
  });
}

}  // namespace pelkedit
