#include "contracts/advisor.h"
#include "contracts/names.h"
#include "control/editor_context.h"
#include "tabs/advisor/advice_message.h"
#include "tabs/advisor/advisor_tab.h"
#include "trace/error_paths.h"

namespace pelkedit {
namespace {

constexpr std::int32_t kBlack = 0;
constexpr std::int32_t kRed = 255;  // red 255, green 0, blue 0
constexpr std::int32_t kListIndentTwips = 350;
constexpr std::int32_t kClearedBoldSpan = 10;
const char* const kAdviceFont = "Tahoma";

// Sales-cycle graph geometry, in pixels.
constexpr double kCycleStart = 2;
constexpr double kCycleLength = 244;
constexpr double kMarkerWidth = 8;
constexpr double kMarkerHalf = kMarkerWidth / 2;
constexpr double kMarkerTopGap = 13;
constexpr double kMarkerHeightCut = 16;
constexpr double kMarkerRightLimit = 10;

void Emphasise(RichTextBox& box, const MessagePart& part, bool bold, std::int32_t color) {
  box.Select(part.start, part.length);
  box.SetSelBold(bold);
  box.SetSelColor(color);
}

void FormatExpert(RichTextBox& box, const ComposedAdvice& advice, bool hasAlert, bool hasHeading) {
  Emphasise(box, advice.title, true, kBlack);
  box.Select(box.SelStart(), 0);
  if (hasAlert) Emphasise(box, advice.alert, true, kRed);
  if (hasHeading) {
    box.Select(advice.heading.start, advice.heading.length);
    box.SetSelBold(true);
    box.SetSelEmphasis(true);
    box.SetSelColor(kBlack);
  }
  if (advice.hasList) {
    Emphasise(box, advice.list, false, kBlack);
    box.SetSelIndent(kListIndentTwips);
    box.SetSelBullet(true);
  }
  box.Select(0, 0);
}

void FormatBasic(RichTextBox& box, const ComposedAdvice& advice) {
  Emphasise(box, advice.title, true, kBlack);
  box.Select(box.SelStart(), 0);
  Emphasise(box, advice.body, false, kBlack);
  box.Select(box.SelStart(), 0);
}

}  // namespace

void AdvisorTab::RefreshAdvisorMsg() {
  RunMethod(EditorContext::Proc("RefreshAdvisorMsg"), [&] {
    auto& box = ctx_.Get<RichTextBox>(widget::rtfAdvisorMsg);
    IRecord& rec = ctx_.Rec();
    const std::int32_t status = rec.Get(prop::Status).AsLong();
    if (status == eEditStatusWon || status == eEditStatusLost) {
      box.SetText("The sales cycle is complete.");
      return;
    }
    if (status == eEditStatusCancelled) {
      box.SetText("The sales cycle has been cancelled.");
      return;
    }
    box.SetVisible(false);
    IAdvisor& advisor = ctx_.Adv();
    const bool expert = rec.Get(prop::ExpertMode).AsBool();
    std::string alert;
    std::string heading;
    std::string body;
    ComposedAdvice advice;
    if (expert) {
      const std::string title = advisor.Get(fact::ExpertAdviceTitle).AsString();
      alert = advisor.Get(fact::ExpertAdviceAlert).AsString();
      heading = advisor.Get(fact::ExpertAdviceHeading).AsString();
      body = advisor.Get(fact::ExpertAdviceBody).AsString();
      advice = ComposeExpertAdvice(title, alert, heading, body);
    } else {
      advice = ComposeBasicAdvice(advisor.Get(fact::BasicAdviceTitle).AsString(),
                                  advisor.Get(fact::BasicAdviceBody).AsString());
    }
    box.SetFontName(kAdviceFont);
    box.SetText("");
    box.Select(0, kClearedBoldSpan);
    box.SetSelBold(false);
    box.SetText(advice.text);
    if (expert) {
      FormatExpert(box, advice, !alert.empty(), !body.empty() && !heading.empty());
    } else {
      FormatBasic(box, advice);
    }
    box.SetVisible(true);
  });
}

void AdvisorTab::InitSalesCycleGraph() {
  RunMethod(EditorContext::Proc("InitSalesCycleGraph"), [&] {
    IAdvisor& advisor = ctx_.Adv();
    const std::string line1 = advisor.Get(fact::SalesCycleLine1).AsString();
    const std::string line2 = advisor.Get(fact::SalesCycleLine2).AsString();
    ctx_.Get<TextBox>(widget::txtSalesCycle).SetText(line1 + "\r\n" + line2);
    auto& graph = ctx_.Get<PictureBox>(widget::picSalesCycle);
    graph.SetDescription(line1 + ", " + line2);
    auto& marker = ctx_.Get<PictureBox>(widget::picLine);
    const double px = kTwipsPerPixel;
    const double graphLeft = graph.Left();
    marker.SetTop(static_cast<float>(graph.Top() + kMarkerTopGap * px));
    const double position = advisor.Get(fact::SalesCyclePosition).AsDouble();
    double left = graphLeft + (kCycleStart + position * kCycleLength - kMarkerHalf) * px;
    const double rightLimit = graphLeft + graph.Width() - kMarkerRightLimit * px;
    if (left > rightLimit) {
      left = rightLimit;
    } else if (left < graphLeft) {
      left = graphLeft;
    }
    marker.SetLeft(static_cast<float>(left));
    marker.SetWidth(static_cast<float>(kMarkerWidth * px));
    marker.SetHeight(static_cast<float>(graph.Height() - kMarkerHeightCut * px));
  });
}

}  // namespace pelkedit
