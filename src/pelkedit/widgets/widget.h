#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace pelkedit {

enum class WidgetKind {
  kTextBox,
  kList,
  kOption,
  kLabel,
  kPicture,
  kButton,
  kFrame,
  kDateEdit,
  kCalendar,
  kDateField,
  kRichText,
  kProductView,
};

const char* WidgetKindName(WidgetKind kind);

class WidgetRegistry;

// How a widget follows a window larger than the component's design; the page that places a
// widget declares it.
namespace anchor {
inline constexpr int kNone = 0;
inline constexpr int kFollowRight = 1;   // moves with the right edge
inline constexpr int kFollowBottom = 2;  // moves with the bottom edge
inline constexpr int kGrowWidth = 4;     // takes the extra width
inline constexpr int kGrowHeight = 8;    // takes the extra height
// Two columns side by side share the extra width: the left grows by half, the right moves by
// half and grows by half.
inline constexpr int kGrowHalfWidth = 16;
inline constexpr int kFollowHalfRight = 32;
inline constexpr int kFill = kGrowWidth | kGrowHeight;
inline constexpr int kCorner = kFollowRight | kFollowBottom;
}  // namespace anchor

// Base of the headless widget models: the properties every classic control has, the events
// the editor listens to, and change notification for a host that draws them.
class Widget {
 public:
  using Handler = std::function<void()>;
  using MouseHandler = std::function<void(int button, int shift, float x, float y)>;
  using Observer = std::function<void(Widget&, const std::string& property)>;

  Widget(std::string name, WidgetKind kind);
  virtual ~Widget() = default;
  Widget(const Widget&) = delete;
  Widget& operator=(const Widget&) = delete;

  const std::string& Name() const { return name_; }
  WidgetKind Kind() const { return kind_; }
  // Labels, pictures, frames and display-only fields never take the focus.
  bool Focusable() const;
  // A field that only shows what the editor puts into it (a text display).
  void SetDisplayOnly() { displayOnly_ = true; }

  bool Visible() const { return visible_; }
  void SetVisible(bool visible);
  bool Enabled() const { return enabled_; }
  void SetEnabled(bool enabled);
  float Left() const { return left_; }
  float Top() const { return top_; }
  float Width() const { return width_; }
  float Height() const { return height_; }
  void SetLeft(float v);
  void SetTop(float v);
  void SetWidth(float v);
  void SetHeight(float v);
  void Move(float left, float top, float width, float height);
  const std::string& Tooltip() const { return tooltip_; }
  void SetTooltip(const std::string& text);
  // The help topic a click on the widget opens (a question's label); 0 for none.
  std::int32_t HelpTopic() const { return helpTopic_; }
  void SetHelpTopic(std::int32_t mapId) { helpTopic_ = mapId; }
  // How the widget follows a larger window (anchor::).
  int Anchors() const { return anchors_; }
  void SetAnchors(int anchors) { anchors_ = anchors; }
  // The picture beside this input that looks its value up ("..."), by name; "" for none.
  const std::string& LookUpPicture() const { return lookUpPicture_; }
  void SetLookUpPicture(std::string name) { lookUpPicture_ = std::move(name); }
  // What a picture shows, in words, for people who cannot see it (a screen reader reads it).
  const std::string& Description() const { return description_; }
  void SetDescription(const std::string& text);
  std::int32_t Pointer() const { return pointer_; }
  void SetPointer(std::int32_t pointer);
  const std::string& FontName() const { return fontName_; }
  void SetFontName(const std::string& name);
  // Drawing order: a larger value is in front.
  int ZOrder() const { return zOrder_; }
  void BringToFront();

  // Caption of labels, buttons, option buttons and frames.
  const std::string& Caption() const { return caption_; }
  void SetCaption(const std::string& caption);

  // Events the editor handles (one handler each, as a classic control has).
  Handler onClick;
  Handler onLostFocus;
  MouseHandler onMouseDown;
  MouseHandler onMouseUp;

  // What the user does; a host or the scenario runner calls these.
  virtual void UserClick();
  void UserMouseDown(int button, int shift, float x, float y);
  void UserMouseUp(int button, int shift, float x, float y);

  void AddObserver(Observer observer) { observers_.push_back(std::move(observer)); }

  void AttachRegistry(WidgetRegistry* registry) { registry_ = registry; }
  // The frame or picture the widget is placed on (nullptr: the form itself). Positions are
  // in twips on frames and forms, in pixels inside a picture.
  Widget* Parent() const { return parent_; }
  void SetParent(Widget* parent) { parent_ = parent; }
  bool PositionedInPixels() const;
  // Moves the input focus here (lost focus of the widget that had it is raised first).
  void SetFocus();

 protected:
  void Changed(const std::string& property);
  static void Fire(const Handler& handler) {
    if (handler) handler();
  }
  WidgetRegistry* Registry() const { return registry_; }

 private:
  std::string name_;
  WidgetKind kind_;
  bool visible_ = true;
  bool enabled_ = true;
  bool displayOnly_ = false;
  float left_ = 0;
  float top_ = 0;
  float width_ = 0;
  float height_ = 0;
  std::string tooltip_;
  std::string description_;
  int anchors_ = anchor::kNone;
  std::int32_t helpTopic_ = 0;
  std::string lookUpPicture_;
  std::int32_t pointer_ = 0;
  std::string fontName_;
  std::string caption_;
  int zOrder_ = 0;
  std::vector<Observer> observers_;
  WidgetRegistry* registry_ = nullptr;
  Widget* parent_ = nullptr;
};

}  // namespace pelkedit
