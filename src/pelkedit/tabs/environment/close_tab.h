#pragma once

#include <cstdint>

#include "control/tab_page.h"

namespace pelkedit {

class EditorContext;
namespace close_page {
struct Row;
}  // namespace close_page

// The Close phase: a small state machine. Which rows show follows from the record's CloseTC,
// CloseDecided and CloseResult and the too-early test; every answer writes the record and the
// rows are rebuilt from it.
class CloseTab : public TabPage {
 public:
  explicit CloseTab(EditorContext& ctx) : ctx_(ctx) {}

  TabPlace Place() const override { return {tab::kSalesEnvironment, tab::kClose}; }
  PageCaption Caption() const override { return {"Sales Environment", "Close"}; }
  std::span<const HelpLink> HelpTopics() const override;
  void Build(WidgetRegistry& widgets, Frame& frame) override;
  void Wire() override;
  void Load() override { InitSEnvClose(); }
  // Entering the Sales Environment rebuilds the rows: the position or status may have moved.
  void Show() override { RebuildFromRecord(); }
  void Collect(CollectReason /*reason*/) override { SaveSEnvCloseTab(); }
  void HostChanged(HostChange change) override;

  void InitSEnvClose();
  void InitCloseTab(bool made, bool decided, std::int32_t result);
  void CloseTabHideControls();
  void ResetTcInterface();
  void EnactStrategy();
  void FileTrialClose();
  void SaveSEnvCloseTab();
  void EnumerateTrialCloses();

 private:
  // InitCloseTab with the record's CloseTC, CloseDecided and CloseResult.
  void RebuildFromRecord();
  void AnswerOption(const char* label, const char* property, bool value);
  void CboResultClick();
  void OptCloseEnactedYesClick();
  bool RequireText(const char* box, const char* message);
  void SaveText(const char* procedure, const close_page::Row& row, const char* property,
                bool indexed);
  void DeCloseDateEditClickDrop();
  void DtCloseDateDateClick(int day, int month, int year);
  // Saves the refresh flag, sets it for the body, and restores it however the body ends.
  template <typename Body>
  void Refreshing(Body&& body);
  bool& RefreshFlag();

  EditorContext& ctx_;
};

template <typename Body>
void CloseTab::Refreshing(Body&& body) {
  // Restored however the body ends, so a failure never leaves the page refreshing.
  struct Restore {
    bool& flag;
    bool previous;
    ~Restore() { flag = previous; }
  } restore{RefreshFlag(), RefreshFlag()};
  RefreshFlag() = true;
  body();
}

}  // namespace pelkedit
