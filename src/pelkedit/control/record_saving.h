#pragma once

#include <cstdint>
#include <string>

namespace pelkedit {

class EditorContext;

// Writing the record back: the Save and Cancel buttons, the host's closing, the size rule.
class RecordSaving {
 public:
  explicit RecordSaving(EditorContext& ctx) : ctx_(ctx) {}
  void Wire();

  void SaveIBO();
  void SaveAllTabs();
  void FormClose();
  // True when the record's storage form fits one handheld record.
  bool CheckRecordSize();
  // The retrieval procedure of a view code; error "Invalid DB view specifier passed." raised
  // from `procedure` for any other code.
  std::string RetrievalProcedure(std::int32_t view, const std::string& procedure);

 private:
  void CmdSaveClick();
  void CmdCancelClick();
  void PostCloseRequest();
  std::int32_t AskToSave();

  EditorContext& ctx_;
};

// Fits a stored text into a field that takes at most maxLength characters.
std::string ValidateField(const std::string& text, std::int32_t maxLength);

}  // namespace pelkedit
