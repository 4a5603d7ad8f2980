#include "widgets/widget.h"

#include "widgets/widget_registry.h"

namespace pelkedit {

const char* WidgetKindName(WidgetKind kind) {
  switch (kind) {
    case WidgetKind::kTextBox:
      return "TextBox";
    case WidgetKind::kList:
      return "List";
    case WidgetKind::kOption:
      return "OptionButton";
    case WidgetKind::kLabel:
      return "Label";
    case WidgetKind::kPicture:
      return "Picture";
    case WidgetKind::kButton:
      return "Button";
    case WidgetKind::kFrame:
      return "Frame";
    case WidgetKind::kDateEdit:
      return "DateEdit";
    case WidgetKind::kCalendar:
      return "Calendar";
    case WidgetKind::kDateField:
      return "DateField";
    case WidgetKind::kRichText:
      return "RichText";
    case WidgetKind::kProductView:
      return "ProductView";
  }
  return "?";
}

Widget::Widget(std::string name, WidgetKind kind) : name_(std::move(name)), kind_(kind) {}

bool Widget::Focusable() const {
  return !displayOnly_ && kind_ != WidgetKind::kLabel && kind_ != WidgetKind::kPicture &&
         kind_ != WidgetKind::kFrame;
}

bool Widget::PositionedInPixels() const {
  return parent_ != nullptr && parent_->Kind() == WidgetKind::kPicture;
}

void Widget::Changed(const std::string& property) {
  for (auto& observer : observers_) observer(*this, property);
}

void Widget::SetVisible(bool visible) {
  visible_ = visible;
  Changed("visible");
}
void Widget::SetEnabled(bool enabled) {
  enabled_ = enabled;
  Changed("enabled");
}
void Widget::SetLeft(float v) {
  left_ = v;
  Changed("geometry");
}
void Widget::SetTop(float v) {
  top_ = v;
  Changed("geometry");
}
void Widget::SetWidth(float v) {
  width_ = v;
  Changed("geometry");
}
void Widget::SetHeight(float v) {
  height_ = v;
  Changed("geometry");
}
void Widget::Move(float left, float top, float width, float height) {
  left_ = left;
  top_ = top;
  width_ = width;
  height_ = height;
  Changed("geometry");
}
void Widget::SetTooltip(const std::string& text) {
  tooltip_ = text;
  Changed("tooltip");
}
void Widget::SetDescription(const std::string& text) {
  if (text == description_) return;
  description_ = text;
  Changed("description");
}
void Widget::SetPointer(std::int32_t pointer) {
  pointer_ = pointer;
  Changed("pointer");
}
void Widget::SetFontName(const std::string& name) {
  fontName_ = name;
  Changed("font");
}
void Widget::SetCaption(const std::string& caption) {
  caption_ = caption;
  Changed("caption");
}
void Widget::BringToFront() {
  zOrder_ = registry_ != nullptr ? registry_->NextZOrder() : zOrder_ + 1;
  Changed("zorder");
}

void Widget::UserClick() {
  Fire(onClick);
}

void Widget::UserMouseDown(int button, int shift, float x, float y) {
  if (onMouseDown) onMouseDown(button, shift, x, y);
}

void Widget::UserMouseUp(int button, int shift, float x, float y) {
  if (onMouseUp) onMouseUp(button, shift, x, y);
}

void Widget::SetFocus() {
  if (registry_ != nullptr) registry_->MoveFocus(this);
}

Widget* WidgetRegistry::Find(const std::string& name) const {
  const auto it = widgets_.find(name);
  return it == widgets_.end() ? nullptr : it->second.get();
}

void WidgetRegistry::Adopt(std::unique_ptr<Widget> widget) {
  const std::string name = widget->Name();
  widget->AttachRegistry(this);
  order_.push_back(widget.get());
  widgets_[name] = std::move(widget);
}

void WidgetRegistry::MoveFocus(Widget* target) {
  if (target != nullptr && !target->Focusable()) return;
  if (target == focused_) return;
  Widget* previous = focused_;
  focused_ = target;
  if (previous != nullptr && previous->onLostFocus) previous->onLostFocus();
}

}  // namespace pelkedit
