#pragma once

#include "control/tab_page.h"

namespace pelkedit {

class EditorContext;

// The IBO Note page: one free-text note and a date stamp.
class NoteTab : public TabPage {
 public:
  explicit NoteTab(EditorContext& ctx) : ctx_(ctx) {}

  TabPlace Place() const override { return {tab::kIboNote}; }
  PageCaption Caption() const override { return {"IBO Note"}; }
  void Build(WidgetRegistry& widgets, Frame& frame) override;
  void Wire() override;
  void Load() override { InitIBONote(); }
  void Collect(CollectReason /*reason*/) override { SaveIBONoteTab(); }

  void InitIBONote();
  void IBONoteSaveNote();
  void SaveIBONoteTab();

 private:
  void CmdDateStampClick();

  EditorContext& ctx_;
};

}  // namespace pelkedit
