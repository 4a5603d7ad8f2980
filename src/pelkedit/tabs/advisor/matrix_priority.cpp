#include "tabs/advisor/matrix_priority.h"

#include <string>

#include "contracts/names.h"
#include "control/editor_context.h"
#include "control/tab_strips.h"
#include "trace/error_paths.h"

namespace pelkedit {
namespace {

// Matrix geometry in pixels: the Low/Low square's corner and the pitch between squares.
constexpr std::int32_t kGridLeft = 25;
constexpr std::int32_t kGridBottomRowTop = 78;
constexpr std::int32_t kSquarePitch = 38;
// Priority picture resources: priority 1 is the first picture of each set.
constexpr std::int32_t kUserPriorityBase = picture::kUserPriorityFirst - 1;
constexpr std::int32_t kAdvisorPriorityBase = picture::kAdvisorPriorityFirst - 1;

// The scale's words for a square's column or row.
std::string LevelWord(std::int32_t level) {
  return level >= 0 && level < kLevelCount ? kLevelWords[level] : "not answered";
}

std::string SquareWords(std::int32_t column, std::int32_t row) {
  return "Will it happen: " + LevelWord(column) + "; will we get it: " + LevelWord(row);
}

// The matrix in words: the user's square, and the advisor's when it is shown.
std::string MatrixWords(IRecord& rec, bool showAdvisor) {
  const std::int32_t column = rec.Get(prop::WIH).AsLong();
  const std::int32_t row = rec.Get(prop::WWGI).AsLong();
  std::string words = SquareWords(column, row);
  if (!showAdvisor) return words;
  const std::int32_t advisorColumn = rec.Get(prop::AdvisorWih).AsLong();
  const std::int32_t advisorRow = rec.Get(prop::AdvisorWwgi).AsLong();
  if (advisorColumn == column && advisorRow == row) return words + ". The advisor agrees";
  std::string advisor = SquareWords(advisorColumn, advisorRow);
  advisor[0] = 'w';
  return words + ". The advisor: " + advisor;
}

}  // namespace

void MatrixPriority::GetSquareCoordinates(std::int32_t column, std::int32_t row, float& left,
                                          float& top) {
  RunMethod(EditorContext::Proc("GetSquareCoordinates"), [&] {
    left = static_cast<float>(kGridLeft + kSquarePitch * column);
    top = static_cast<float>(kGridBottomRowTop - kSquarePitch * row);
  });
}

void MatrixPriority::RefreshMatrixInfo(bool showAdvisor) {
  RunMethod(EditorContext::Proc("RefreshMatrixInfo"), [&] {
    IRecord& rec = ctx_.Rec();
    const std::int32_t userColumn = rec.Get(prop::WIH).AsLong();
    const std::int32_t userRow = rec.Get(prop::WWGI).AsLong();
    const std::int32_t advisorColumn = rec.Get(prop::AdvisorWih).AsLong();
    const std::int32_t advisorRow = rec.Get(prop::AdvisorWwgi).AsLong();
    auto& userSquare = ctx_.Get<PictureBox>(widget::picPmUserSqr);
    auto& advisorSquare = ctx_.Get<PictureBox>(widget::picPmAdvSqr);
    auto& commonSquare = ctx_.Get<PictureBox>(widget::picPmCmnSqr);
    ctx_.Get<PictureBox>(widget::picProbabilitMatrix).SetDescription(MatrixWords(rec, showAdvisor));
    float left = 0;
    float top = 0;
    if (userColumn != advisorColumn || userRow != advisorRow || !showAdvisor) {
      GetSquareCoordinates(userColumn, userRow, left, top);
      userSquare.SetLeft(left);
      userSquare.SetTop(top);
      userSquare.SetVisible(true);
      if (showAdvisor) {
        GetSquareCoordinates(rec.Get(prop::AdvisorWih).AsLong(),
                             rec.Get(prop::AdvisorWwgi).AsLong(), left, top);
        advisorSquare.SetLeft(left);
        advisorSquare.SetTop(top);
        advisorSquare.SetVisible(true);
        return;
      }
      advisorSquare.SetVisible(false);
      commonSquare.SetVisible(false);
      return;
    }
    userSquare.SetVisible(false);
    advisorSquare.SetVisible(false);
    GetSquareCoordinates(userColumn, userRow, left, top);
    commonSquare.SetLeft(left);
    commonSquare.SetTop(top);
    commonSquare.SetVisible(true);
  });
}

void MatrixPriority::RefreshPriorityInfo(bool showAdvisor) {
  RunMethod(EditorContext::Proc("RefreshPriorityInfo"), [&] {
    auto& userPicture = ctx_.Get<PictureBox>(widget::picUserPriority);
    auto& advisorPicture = ctx_.Get<PictureBox>(widget::picAdvPriority);
    if (showAdvisor) {
      advisorPicture.ClearPicture();
      const std::int32_t priority = ctx_.Adv().Get(fact::AdvisorPriority).AsLong();
      advisorPicture.SetPicture(kAdvisorPriorityBase + priority);
      advisorPicture.SetDescription("Priority " + std::to_string(priority) +
                                    ": the advisor's view");
      advisorPicture.SetVisible(true);
      userPicture.SetVisible(false);
      return;
    }
    advisorPicture.SetVisible(false);
    userPicture.ClearPicture();
    const std::int32_t priority = ctx_.Adv().Get(fact::UserPriority).AsLong();
    userPicture.SetPicture(kUserPriorityBase + priority);
    userPicture.SetDescription("Priority " + std::to_string(priority) + ": your view");
    userPicture.SetVisible(true);
  });
}

}  // namespace pelkedit
