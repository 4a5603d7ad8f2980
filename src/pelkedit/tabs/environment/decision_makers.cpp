#include "tabs/environment/decision_makers.h"

#include <cctype>

#include "contracts/names.h"
#include "control/editor_context.h"

namespace pelkedit {

const std::array<DecisionMaker, 3> kDecisionMakers = {{
    {"Econ",
     "lblProbeEconName",
     "txtProbeEconName",
     "picEconLookup",
     "lblProbeEconInfluence",
     "cboProbeEconInfluence",
     "lblProbeEconImportant",
     "txtProbeEconImportant",
     "lblProveEconName",
     "txtProveEconName",
     "lblProveEconInfluence",
     "txtProveEconInfluence",
     "lblProveEconImportant",
     "txtProveEconImportant",
     "lblProveEconRel",
     "cboProveEconRel",
     "lblProveEconDOP",
     "cboProveEconDOP",
     fact::SEnvDmEconNameKnown,
     prop::DmEconKnown,
     prop::DmEconName,
     fact::SEnvDmEconInfluence,
     prop::DmEconInfluence,
     fact::SEnvDmEconImportantKnown,
     prop::DmEconImportant,
     fact::SEnvDmEconRelationship,
     prop::DmEconRelationship,
     fact::SEnvDmEconDOP,
     prop::DmEconDOP},
    {"Tech",
     "lblProbeTechName",
     "txtProbeTechName",
     "picTechLookup",
     "lblProbeTechInfluence",
     "cboProbeTechInfluence",
     "lblProbeTechImportant",
     "txtProbeTechImportant",
     "lblProveTechName",
     "txtProveTechName",
     "lblProveTechInfluence",
     "txtProveTechInfluence",
     "lblProveTechImportant",
     "txtProveTechImportant",
     "lblProveTechRel",
     "cboProveTechRel",
     "lblProveTechDOP",
     "cboProveTechDOP",
     fact::SEnvDmTechNameKnown,
     prop::DmTechKnown,
     prop::DmTechName,
     fact::SEnvDmTechInfluence,
     prop::DmTechInfluence,
     fact::SEnvDmTechImportantKnown,
     prop::DmTechImportant,
     fact::SEnvDmTechRelationship,
     prop::DmTechRelationship,
     fact::SEnvDmTechDOP,
     prop::DmTechDOP},
    {"User",
     "lblProbeUserName",
     "txtProbeUserName",
     "picUserLookup",
     "lblProbeUserInfluence",
     "cboProbeUserInfluence",
     "lblProbeUserImportant",
     "txtProbeUserImportant",
     "lblProveUserName",
     "txtProveUserName",
     "lblProveUserInfluence",
     "txtProveUserInfluence",
     "lblProveUserImportant",
     "txtProveUserImportant",
     "lblProveUserRel",
     "cboProveUserRel",
     "lblProveUserDOP",
     "cboProveUserDOP",
     fact::SEnvDmUserNameKnown,
     prop::DmUserKnown,
     prop::DmUserName,
     fact::SEnvDmUserInfluence,
     prop::DmUserInfluence,
     fact::SEnvDmUserImportantKnown,
     prop::DmUserImportant,
     fact::SEnvDmUserRelationship,
     prop::DmUserRelationship,
     fact::SEnvDmUserDOP,
     prop::DmUserDOP},
}};

std::string DmStepName(const EditorContext& ctx, const DecisionMaker& dm, const char* label) {
  const std::string role = dm.role;
  // The name's label is the role itself.
  if (label == dm.nameLabel || label == dm.proveNameLabel) return role + " name";
  std::string caption = ctx.CaptionOf(label);
  for (char& c : caption) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return role + " " + caption;
}

}  // namespace pelkedit
