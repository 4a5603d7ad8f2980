#pragma once

#include <cstdint>
#include <string>

#include "values/date.h"

namespace pelkedit {

class EditorContext;

// Will It Happen, Will We Get It and When Will It Happen.
class EssentialsTab {
 public:
  explicit EssentialsTab(EditorContext& ctx) : ctx_(ctx) {}
  void Wire();

  void InitIboEssentials();
  void InitEssentialsTab();
  void SaveEssentialsTab();
  void UpdateUserWIH(std::int32_t value);
  void UpdateUserWWGI(std::int32_t value);

 private:
  void UpdateUserAnswer(const char* procedure, const char* fact, std::int32_t value);
  void SelectOption(const char* procedure, const std::string& prefix, std::int32_t code);
  void DeWwihLostFocus();
  void CommitTypedDate();
  void ApplyWwihDate(const Date& newDate);
  void InvalidWwihDate();
  void DeWwihClickDrop();
  void DtWwihDateClick(int day, int month, int year);

  EditorContext& ctx_;
};

}  // namespace pelkedit
