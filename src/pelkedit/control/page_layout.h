#pragma once

#include <initializer_list>
#include <memory>
#include <string>

#include "platform/platform.h"
#include "widgets/controls.h"
#include "widgets/widget_registry.h"

namespace pelkedit {

// Heights shared by every page, in pixels.
namespace layout {
inline constexpr float kLabelHeight = 17;
inline constexpr float kOptionHeight = 20;
inline constexpr float kFieldHeight = 22;
inline constexpr float kRowPitch = 27;
}  // namespace layout

// Places widgets on a frame (or, with no parent, on the form or a dialog). Positions and sizes
// are given in pixels and kept in twips, as the component's frames measure them; markers
// inside a picture keep pixels.
class PageLayout {
 public:
  PageLayout(WidgetRegistry& widgets, Widget* parent) : widgets_(widgets), parent_(parent) {}
  PageLayout(WidgetRegistry& widgets, Widget& parent) : PageLayout(widgets, &parent) {}

  template <typename W>
  W& Place(const std::string& name, float left, float top, float width, float height) {
    return PlaceIn<W>(name, parent_, left * kTwipsPerPixel, top * kTwipsPerPixel,
                      width * kTwipsPerPixel, height * kTwipsPerPixel);
  }
  // A widget inside a picture measured in pixels.
  template <typename W>
  W& PlaceInPicture(const std::string& name, Widget& picture, float left, float top, float width,
                    float height) {
    return PlaceIn<W>(name, &picture, left, top, width, height);
  }
  Label& Caption(const std::string& name, float left, float top, float width,
                 const std::string& caption) {
    Label& label = Place<Label>(name, left, top, width, layout::kLabelHeight);
    label.SetCaption(caption);
    return label;
  }
  // A field that shows what the editor puts into it; the user neither types nor tabs into it.
  TextBox& Display(const std::string& name, float left, float top, float width) {
    auto& box = Place<TextBox>(name, left, top, width, layout::kFieldHeight);
    box.SetLocked(true);
    box.SetDisplayOnly();
    return box;
  }
  // A label beside a field whose top is `fieldTop`, level with the field's text.
  Label& FieldCaption(const std::string& name, float left, float fieldTop, float width,
                      const std::string& caption) {
    return Caption(name, left, fieldTop + kFieldCaptionDrop, width, caption);
  }
  // Option buttons side by side that form one group.
  void Options(std::initializer_list<const char*> names,
               std::initializer_list<const char*> captions, float left, float top, float width) {
    auto group = std::make_shared<OptionGroup>();
    auto caption = captions.begin();
    for (const char* name : names) {
      auto& option = Place<OptionButton>(name, left, top, width, layout::kOptionHeight);
      option.SetCaption(*caption++);
      option.JoinGroup(group);
      left += width;
    }
  }
  // A column of option buttons PREFIX + caption that form one group.
  template <std::size_t N>
  void OptionColumn(const std::string& prefix, float left, float top, float width,
                    const char* const (&captions)[N]) {
    auto group = std::make_shared<OptionGroup>();
    for (std::size_t i = 0; i < N; ++i) {
      auto& option = Place<OptionButton>(prefix + captions[i], left,
                                         top + static_cast<float>(i) * layout::kOptionHeight, width,
                                         layout::kOptionHeight);
      option.SetCaption(captions[i]);
      option.JoinGroup(group);
    }
  }

 private:
  template <typename W>
  W& PlaceIn(const std::string& name, Widget* parent, float left, float top, float width,
             float height) {
    W& widget = widgets_.Make<W>(name);
    widget.SetParent(parent);
    widget.Move(left, top, width, height);
    return widget;
  }

  static constexpr float kFieldCaptionDrop = 3;
  WidgetRegistry& widgets_;
  Widget* parent_;
};

}  // namespace pelkedit
