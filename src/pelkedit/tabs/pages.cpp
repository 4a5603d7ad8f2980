#include "tabs/pages.h"

#include "tabs/advisor/advisor_tab.h"
#include "tabs/environment/close_tab.h"
#include "tabs/environment/probe_tab.h"
#include "tabs/environment/prove_tab.h"
#include "tabs/essentials/essentials_tab.h"
#include "tabs/info/info_tab.h"
#include "tabs/note/note_tab.h"

namespace pelkedit {

// A load fills the pages in this order; the Sales Advisor comes last because its advice is
// built from everything the others filled. A new page is one line here.
std::vector<std::unique_ptr<TabPage>> CreatePages(EditorContext& ctx) {
  std::vector<std::unique_ptr<TabPage>> pages;
  pages.push_back(std::make_unique<EssentialsTab>(ctx));
  pages.push_back(std::make_unique<ProbeTab>(ctx));
  pages.push_back(std::make_unique<ProveTab>(ctx));
  pages.push_back(std::make_unique<CloseTab>(ctx));
  pages.push_back(std::make_unique<InfoTab>(ctx));
  pages.push_back(std::make_unique<NoteTab>(ctx));
  pages.push_back(std::make_unique<AdvisorTab>(ctx));
  return pages;
}

}  // namespace pelkedit
