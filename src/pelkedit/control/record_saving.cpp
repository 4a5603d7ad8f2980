#include "control/record_saving.h"

#include <cmath>

#include "contracts/names.h"
#include "control/editor_context.h"
#include "control/navigation.h"
#include "trace/error_paths.h"
#include "values/text.h"

#include <vector>

namespace pelkedit {
namespace {

const char* const kLongSizeMessage =
    "The current IBO physical size exceeds single Palm record storage limits. Please remove some "
    "text from a product note field or IBO note field and try saving again.";
const char* const kShortSizeMessage =
    "The current IBO physical size exceeds single Palm record storage limits.";
const char* const kSavePrompt = "The IBO has been modified. Would you like to save the changes?";

}  // namespace

void RecordSaving::Wire() {
  ctx_.Get<Button>(widget::cmdSave).onClick = [this] { CmdSaveClick(); };
  ctx_.Get<Button>(widget::cmdCancel).onClick = [this] { CmdCancelClick(); };
}

std::string RecordSaving::RetrievalProcedure(std::int32_t view, const std::string& procedure) {
  if (const char* name = RetrievalProcedureOf(view)) return name;
  throw PelkError(ThreadTrace().InvalidArgumentErrorNumber(), procedure,
                  "Invalid DB view specifier passed.");
}

void RecordSaving::SaveIBO() {
  const std::string proc = EditorContext::Proc("SaveIBO");
  RunMethod(proc, [&] {
    const std::string procName = RetrievalProcedure(ctx_.state.dbView, proc);
    ctx_.Data().WriteIbo(ctx_.Rec().GetIboData(), procName);
    ctx_.history.Saved();
    if (ctx_.afterChange) ctx_.afterChange();
  });
}

void RecordSaving::SaveAllTabs() {
  RunMethod(EditorContext::Proc("SaveAllTabs"),
            [&] { ctx_.navigation->CollectCurrentTab(CollectReason::kSaving); });
}

// Not traced: an error passes straight to the caller.
bool RecordSaving::CheckRecordSize() {
  const auto helper = CreateObjectAs<ISizeHelper>(ctx_.platform, kSizeHelperProgId);
  const Variant size = helper->GetPhysicalSize(ctx_.Rec().GetIboData());
  // Converted to a whole byte count as a Long conversion does: nearest, halves to even.
  const auto bytes = static_cast<std::int64_t>(std::nearbyint(size.AsDouble()));
  return bytes <= kPalmRecordLimit;
}

void RecordSaving::PostCloseRequest() {
  ctx_.platform.PostMessage(ctx_.platform.HostWindowHandle(), kWmClose, 0, 0);
}

std::int32_t RecordSaving::AskToSave() {
  return static_cast<std::int32_t>(ctx_.platform.MsgBox(kSavePrompt, MsgIcon::kExclamation,
                                                        MsgButtons::kYesNoCancel, "IBO modified"));
}

void RecordSaving::CmdSaveClick() {
  RunHandler(EditorContext::Proc("cmdSave_Click"), ctx_.platform, [&] {
    SaveAllTabs();
    if (!CheckRecordSize()) {
      ctx_.platform.MsgBox(kLongSizeMessage, MsgIcon::kExclamation, MsgButtons::kOk, "Pelkor");
      return;
    }
    SaveIBO();
    ctx_.state.iboSaved = true;
    PostCloseRequest();
  });
}

void RecordSaving::CmdCancelClick() {
  RunHandler(
      EditorContext::Proc("cmdCancel_Click"), ctx_.platform,
      [&] {
        SaveAllTabs();
        if (ctx_.state.iboChanged) {
          const auto answer = static_cast<MsgAnswer>(AskToSave());
          ctx_.state.promptAnswered = true;
          if (answer == MsgAnswer::kCancel) return;
          if (answer == MsgAnswer::kYes) {
            SaveIBO();
            ctx_.state.iboSaved = true;
          } else {
            ctx_.state.iboChanged = false;
            if (ctx_.afterChange) ctx_.afterChange();
          }
        }
        PostCloseRequest();
      },
      // Whatever failed, the host is told the record may have been saved.
      [&] { ctx_.state.iboSaved = true; });
}

void RecordSaving::FormClose() {
  RunMethod(EditorContext::Proc("FormClose"), [&] {
    SaveAllTabs();
    if (!ctx_.state.iboChanged || ctx_.state.promptAnswered) return;
    const auto answer = static_cast<MsgAnswer>(AskToSave());
    if (answer == MsgAnswer::kNo) {
      ctx_.state.iboChanged = false;
      return;
    }
    if (answer != MsgAnswer::kYes) return;
    if (!CheckRecordSize()) {
      ctx_.platform.MsgBox(kShortSizeMessage, MsgIcon::kExclamation, MsgButtons::kOk, "Pelkor");
      return;
    }
    SaveIBO();
  });
}

std::string ValidateField(const std::string& text, std::int32_t maxLength) {
  return RunMethod(EditorContext::Proc("ValidateField"), [&]() -> std::string {
    const auto limit = static_cast<std::size_t>(maxLength < 0 ? 0 : maxLength);
    if (CharCount(text) <= limit) return text;
    // Line breaks go first, from the end of the text towards its start.
    std::size_t excess = CharCount(text) - limit;
    std::vector<std::size_t> breaks;
    for (std::size_t at = text.rfind("\r\n"); excess > 0 && at != std::string::npos;
         at = at == 0 ? std::string::npos : text.rfind("\r\n", at - 1)) {
      breaks.push_back(at);
      --excess;
    }
    std::string result;
    result.reserve(text.size());
    std::size_t from = 0;
    for (auto it = breaks.rbegin(); it != breaks.rend(); ++it) {
      result.append(text, from, *it - from);
      result.push_back(' ');
      from = *it + 2;
    }
    result.append(text, from, std::string::npos);
    const std::size_t first = result.find_first_not_of(' ');
    if (first == std::string::npos) return std::string();
    result = result.substr(first, result.find_last_not_of(' ') - first + 1);
    return CharCount(result) > limit ? CharLeft(result, limit) : result;
  });
}

}  // namespace pelkedit
