#pragma once

#include <array>
#include <string>

namespace pelkedit {

// One decision maker (economic, technical, user) as the Probe and Prove phases show and
// store it: its widgets, engine facts and record properties, spelled once here.
struct DecisionMaker {
  const char* role;  // "Econ", "Tech", "User": the row's caption and the procedures' names
  // Probe phase.
  const char* nameLabel;
  const char* nameBox;
  const char* lookup;
  const char* influenceLabel;
  const char* influenceList;
  const char* importantLabel;
  const char* importantBox;
  // Prove phase.
  const char* proveNameLabel;
  const char* nameEcho;
  const char* proveInfluenceLabel;
  const char* influenceEcho;
  const char* proveImportantLabel;
  const char* importantEcho;
  const char* relationshipLabel;
  const char* relationshipList;
  const char* proofLabel;
  const char* proofList;
  // Engine facts and record properties.
  const char* knownFact;
  const char* knownProperty;
  const char* nameProperty;
  const char* influenceFact;
  const char* influenceProperty;
  const char* importantKnownFact;
  const char* importantProperty;
  const char* relationshipFact;
  const char* relationshipProperty;
  const char* proofFact;
  const char* proofProperty;
};

class EditorContext;

// What Undo calls a change to one decision maker's answer ("Econ influence"): the row's role
// and the answer's label.
std::string DmStepName(const EditorContext& ctx, const DecisionMaker& dm, const char* label);

// Econ, Tech, User, in the order the phases treat them.
extern const std::array<DecisionMaker, 3> kDecisionMakers;

}  // namespace pelkedit
