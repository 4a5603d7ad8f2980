#include "tabs/advisor/matrix_priority.h"

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
      advisorPicture.SetPicture(kAdvisorPriorityBase +
                                ctx_.Adv().Get(fact::AdvisorPriority).AsLong());
      advisorPicture.SetVisible(true);
      userPicture.SetVisible(false);
      return;
    }
    advisorPicture.SetVisible(false);
    userPicture.ClearPicture();
    userPicture.SetPicture(kUserPriorityBase + ctx_.Adv().Get(fact::UserPriority).AsLong());
    userPicture.SetVisible(true);
  });
}

}  // namespace pelkedit
