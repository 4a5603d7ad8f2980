#include "help/context_help.h"

#include <array>
#include <memory>
#include <string>

#include "contracts/help.h"
#include "control/editor_context.h"
#include "trace/error_paths.h"
#include "values/error.h"

namespace pelkedit {
namespace {

constexpr const char* kHelpWindow = "PelkorHelp";
constexpr const char* kHelpViewer = "keyhh.exe";
constexpr const char* kMissingHelp = "Pelkor help file is missing";
constexpr const char* kTitle = "Pelkor";

// The decision makers share one topic per question, on each page.
const std::array kLinks = {
    HelpLink{"picProbabilitMatrix", 9},
    HelpLink{"lblEssentMatrix", 9},
    HelpLink{"lblEssentWIH", 10},
    HelpLink{"lblEssentWWGI", 10},
    HelpLink{"lblEssentWWIH", 10},
    HelpLink{"lblAdvisorSCGraph", 11},
    HelpLink{"lblSCProbe", 12},
    HelpLink{"lblSCProve", 13},
    HelpLink{"lblSCClose", 14},
    HelpLink{"picAdvPriority", 16},
    HelpLink{"lblEssentPriority", 16},
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
    HelpLink{"lblProveEconName", 35},
    HelpLink{"lblProveTechName", 35},
    HelpLink{"lblProveUserName", 35},
    HelpLink{"lblProveEconInfluence", 36},
    HelpLink{"lblProveTechInfluence", 36},
    HelpLink{"lblProveUserInfluence", 36},
    HelpLink{"lblProveEconImportant", 37},
    HelpLink{"lblProveTechImportant", 37},
    HelpLink{"lblProveUserImportant", 37},
    HelpLink{"lblProveEconRel", 38},
    HelpLink{"lblProveTechRel", 38},
    HelpLink{"lblProveUserRel", 38},
    HelpLink{"lblProveEconDOP", 39},
    HelpLink{"lblProveTechDOP", 39},
    HelpLink{"lblProveUserDOP", 39},
    HelpLink{"lblCloseTC", 44},
    HelpLink{"lblCloseDecided", 45},
    HelpLink{"lblCloseBarriers", 46},
    HelpLink{"lblCloseStrategy", 47},
    HelpLink{"lblCloseEnacted", 48},
    HelpLink{"lblCloseTcHistory", 49},
    HelpLink{"lblCloseResult", 50},
    HelpLink{"lblCloseDate", 51},
    HelpLink{"lblCloseReason", 52},
    HelpLink{"lblCloseWinBidder", 53},
};

}  // namespace

std::span<const HelpLink> HelpLinks() {
  return kLinks;
}

void OpenHelpTopic(IPlatform& platform, std::int32_t mapId) {
  // Both are created for this request and released when it ends, whatever happens.
  auto config = CreateObjectAs<IConfig>(platform, kConfigProgId);
  const auto files = CreateObjectAs<IFileSystem>(platform, kFileSystemProgId);
  const std::string folder = config->GetValue("InstallPath");
  const std::string name = config->GetValue("PLKHelpName");
  config.reset();
  const std::string path = files->BuildPath(folder, name);
  if (!files->FileExists(path)) {
    platform.MsgBox(kMissingHelp, MsgIcon::kExclamation, MsgButtons::kOk, kTitle);
    return;
  }
  platform.StartProcess(std::string(kHelpViewer) + " -" + kHelpWindow + " -#mapid " +
                        std::to_string(mapId) + " " + path);
}

// A help handler of its own: a failure is shown here, without an owner, and the request ends,
// so the label's click handler goes on to its normal end.
void ShowContextHelp(EditorContext& ctx, std::int32_t mapId) {
  RunHelpHandler(EditorContext::Proc("ShowContextHelp"),
                 [&] { OpenHelpTopic(ctx.platform, mapId); });
}

void WireContextHelp(EditorContext& ctx) {
  for (const HelpLink& link : kLinks) {
    Widget& widget = ctx.widgets.Get<Widget>(std::string(link.widget));
    const std::string proc = EditorContext::Proc(std::string(link.widget) + "_Click");
    const std::int32_t mapId = link.mapId;
    widget.onClick = [&ctx, proc, mapId] {
      RunHelpHandler(proc, [&] { ShowContextHelp(ctx, mapId); });
    };
    if (widget.Kind() == WidgetKind::kLabel) {
      widget.SetPointer(static_cast<std::int32_t>(MousePointer::kArrowQuestion));
    }
  }
}

}  // namespace pelkedit
