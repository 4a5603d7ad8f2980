// Picking a decision maker's name from the contact book.
#include <string>

#include "contracts/contact_lookup.h"
#include "control/editor_context.h"
#include "tabs/environment/decision_makers.h"
#include "tabs/environment/probe_tab.h"
#include "trace/error_paths.h"
#include "values/text.h"

namespace pelkedit {
namespace {
constexpr std::size_t kDmNameLimit = 30;
}  // namespace

void ProbeTab::LookupDmName(bool& cancelled, std::string& name) {
  RunMethod(EditorContext::Proc("LookupDmName"), [&] {
    const auto dialog = CreateObjectAs<IContactLookup>(ctx_.platform, kContactLookupProgId);
    dialog->ShowDialog();
    const std::string first = dialog->FirstName();
    const std::string last = dialog->LastName();
    const std::string whole = first.empty() ? last : (last.empty() ? first : first + " " + last);
    name = CharLeft(whole, kDmNameLimit);
    cancelled = dialog->Cancelled();
  });
}

void ProbeTab::DmLookupClick(const DecisionMaker& dm) {
  RunHandler(EditorContext::Proc(std::string(dm.lookup) + "_Click"), ctx_.platform, [&] {
    bool cancelled = true;
    std::string name;
    LookupDmName(cancelled, name);
    if (!cancelled) ctx_.Get<TextBox>(dm.nameBox).SetText(name);
    // After a cancel too: a name typed and not yet committed is committed now.
    UpdateSEnvProbeDmName(dm);
  });
}

}  // namespace pelkedit
