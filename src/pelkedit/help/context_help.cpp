#include "help/context_help.h"

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

}  // namespace

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
  for (const auto& page : ctx.pages) {
    for (const HelpLink& link : page->HelpTopics()) {
      Widget& widget = ctx.widgets.Get<Widget>(std::string(link.widget));
      const std::string proc = EditorContext::Proc(std::string(link.widget) + "_Click");
      const std::int32_t mapId = link.mapId;
      widget.SetHelpTopic(mapId);
      widget.onClick = [&ctx, proc, mapId] {
        RunHelpHandler(proc, [&] { ShowContextHelp(ctx, mapId); });
      };
      if (widget.Kind() == WidgetKind::kLabel) {
        widget.SetPointer(static_cast<std::int32_t>(MousePointer::kArrowQuestion));
      }
    }
  }
}

}  // namespace pelkedit
