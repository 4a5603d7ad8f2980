#pragma once

#include <cstdint>
#include <iterator>

namespace pelkedit {

class EditorContext;

// The answers to Will It Happen? and Will We Get It?, by code: the matrix's columns and rows.
inline constexpr const char* kLevelWords[] = {"Low", "Medium", "High"};
inline constexpr auto kLevelCount = static_cast<std::int32_t>(std::size(kLevelWords));

// The probability matrix markers and the priority pictures on the Essentials tab.
class MatrixPriority {
 public:
  explicit MatrixPriority(EditorContext& ctx) : ctx_(ctx) {}

  // Pixel position of a matrix square: column is the WIH code, row the WWGI code.
  static void GetSquareCoordinates(std::int32_t column, std::int32_t row, float& left, float& top);
  void RefreshMatrixInfo(bool showAdvisor);
  void RefreshPriorityInfo(bool showAdvisor);

 private:
  EditorContext& ctx_;
};

}  // namespace pelkedit
