#include "control/layout.h"

#include <memory>
#include <string>

#include "platform/platform.h"
#include "widgets/controls.h"
#include "widgets/widget_registry.h"

namespace pelkedit {
namespace {

constexpr float Px(float pixels) {
  return pixels * kTwipsPerPixel;
}

// The component's area and the frames the main tabs show, in pixels.
constexpr float kFormWidth = 600;
constexpr float kStripHeight = 21;
constexpr float kFrameTop = 24;
constexpr float kFrameHeight = 336;
constexpr float kButtonTop = 368;
constexpr float kButtonWidth = 84;
constexpr float kButtonHeight = 26;
constexpr float kLabelHeight = 17;
constexpr float kOptionHeight = 20;
constexpr float kFieldHeight = 22;
constexpr float kSubFrameTop = 28;

template <typename W>
W& Place(WidgetRegistry& widgets, const std::string& name, Widget* parent, float left, float top,
         float width, float height, bool pixels = false) {
  W& widget = widgets.Make<W>(name);
  widget.SetParent(parent);
  if (pixels) {
    widget.Move(left, top, width, height);
  } else {
    widget.Move(Px(left), Px(top), Px(width), Px(height));
  }
  return widget;
}

Label& Caption(WidgetRegistry& widgets, const std::string& name, Widget* parent, float left,
               float top, float width, const std::string& caption) {
  Label& label = Place<Label>(widgets, name, parent, left, top, width, kLabelHeight);
  label.SetCaption(caption);
  return label;
}

void OptionColumn(WidgetRegistry& widgets, Widget* parent, float left, float top,
                  const std::string& prefix) {
  auto group = std::make_shared<OptionGroup>();
  const char* const levels[] = {"Low", "Medium", "High"};
  for (int i = 0; i < 3; ++i) {
    auto& option =
        Place<OptionButton>(widgets, prefix + levels[i], parent, left,
                            top + static_cast<float>(i) * kOptionHeight, 110, kOptionHeight);
    option.SetCaption(levels[i]);
    option.JoinGroup(group);
  }
}

void BuildEssentials(WidgetRegistry& widgets, Frame* frame) {
  Caption(widgets, "lblEssentWIH", frame, 12, 10, 140, "Will It Happen?");
  OptionColumn(widgets, frame, 24, 30, "optWih");
  Caption(widgets, "lblEssentWWGI", frame, 12, 104, 140, "Will We Get It?");
  OptionColumn(widgets, frame, 24, 124, "optWwgi");
  Caption(widgets, "lblEssentWWIH", frame, 12, 198, 160, "When Will It Happen?");
  Place<DateEdit>(widgets, "deWwih", frame, 24, 218, 120, kFieldHeight);
  auto& calendar = Place<Calendar>(widgets, "dtWwih", frame, 24, 120, 230, 180);
  calendar.SetVisible(false);

  Caption(widgets, "lblEssentMatrix", frame, 190, 10, 139, "Probability Matrix");
  auto* matrix = &Place<PictureBox>(widgets, "picProbabilitMatrix", frame, 190, 30, 139, 139);
  matrix->SetPicture(0);
  constexpr float kSquare = 36;
  Place<PictureBox>(widgets, "picPmUserSqr", matrix, 25, 40, kSquare, kSquare, true);
  Place<PictureBox>(widgets, "picPmAdvSqr", matrix, 25, 40, kSquare, kSquare, true)
      .SetVisible(false);
  Place<PictureBox>(widgets, "picPmCmnSqr", matrix, 25, 40, kSquare, kSquare, true)
      .SetVisible(false);

  Caption(widgets, "lblEssentPriority", frame, 360, 10, 140, "Priority");
  Place<PictureBox>(widgets, "picUserPriority", frame, 360, 30, 140, 140);
  Place<PictureBox>(widgets, "picAdvPriority", frame, 360, 30, 140, 140).SetVisible(false);
  auto& advisorSays = Place<Button>(widgets, "cmdAdvisorSays", frame, 360, 180, 140, 26);
  advisorSays.SetCaption("Advisor says");
  advisorSays.SetVisible(false);
}

void BuildSalesAdvisor(WidgetRegistry& widgets, Frame* frame) {
  Place<RichTextBox>(widgets, "rtfAdvisorMsg", frame, 10, 10, 300, 316);
  Caption(widgets, "lblAdvisorSCGraph", frame, 328, 10, 250, "Sales Cycle Graph");
  Place<PictureBox>(widgets, "picSalesCycle", frame, 328, 30, 250, 117);
  Place<PictureBox>(widgets, "picLine", frame, 328, 43, 8, 101);
  auto& caption = Place<TextBox>(widgets, "txtSalesCycle", frame, 328, 155, 250, 40);
  caption.SetMultiline(true);
  caption.SetLocked(true);
}

void BuildSalesEnvironment(WidgetRegistry& widgets, Frame* frame) {
  Place<PictureBox>(widgets, "picSEnvTab", frame, 8, 4, 128, kStripHeight);
  for (const char* name : {"fraMainSEnvProbe", "fraMainSEnvProve", "fraMainSEnvClose"}) {
    Place<Frame>(widgets, name, frame, 0, kSubFrameTop, kFormWidth, kFrameHeight - kSubFrameTop);
  }
  // The Close phase's close-date field takes the user's date order at creation.
  // It stays hidden until the phase shows it with the rest of its answers.
  Place<DateEdit>(widgets, "deCloseDateEdit", &widgets.Get<Frame>("fraMainSEnvClose"), 240, 200,
                  120, kFieldHeight)
      .SetVisible(false);
}

void BuildIboInfo(WidgetRegistry& widgets, Frame* frame) {
  struct Field {
    const char* label;
    const char* box;
    const char* caption;
  };
  const Field fields[] = {
      {"lblConFirstName", "txtConFirstName", "First Name"},
      {"lblConLastName", "txtConLastName", "Last Name"},
      {"lblConCompany", "txtConCompany", "Company"},
      {"lblConAddress", "txtConAddress", "Address"},
      {"lblConPhone", "txtConPhone", "Phone"},
      {"lblConEmail", "txtConEmail", "E-mail"},
  };
  float top = 12;
  for (const Field& field : fields) {
    Caption(widgets, field.label, frame, 12, top + 3, 90, field.caption);
    Place<TextBox>(widgets, field.box, frame, 108, top, 300, kFieldHeight);
    top += kFieldHeight + 8;
  }
}

}  // namespace

void BuildEditorLayout(WidgetRegistry& widgets) {
  Place<PictureBox>(widgets, "picMainTab", nullptr, 0, 0, 405, kStripHeight);
  const char* const frames[] = {"fraMainEssentials", "fraMainSalesAdvisor",
                                "fraMainSalesEnvironment", "fraMainIBOInfo", "fraMainIBONote"};
  for (const char* name : frames) {
    Place<Frame>(widgets, name, nullptr, 0, kFrameTop, kFormWidth, kFrameHeight);
  }
  BuildEssentials(widgets, &widgets.Get<Frame>("fraMainEssentials"));
  BuildSalesAdvisor(widgets, &widgets.Get<Frame>("fraMainSalesAdvisor"));
  BuildSalesEnvironment(widgets, &widgets.Get<Frame>("fraMainSalesEnvironment"));
  BuildIboInfo(widgets, &widgets.Get<Frame>("fraMainIBOInfo"));

  auto& save = Place<Button>(widgets, "cmdSave", nullptr, kFormWidth - 2 * kButtonWidth - 16,
                             kButtonTop, kButtonWidth, kButtonHeight);
  save.SetCaption("&Save");
  auto& cancel = Place<Button>(widgets, "cmdCancel", nullptr, kFormWidth - kButtonWidth - 8,
                               kButtonTop, kButtonWidth, kButtonHeight);
  cancel.SetCaption("&Cancel");
}

}  // namespace pelkedit
