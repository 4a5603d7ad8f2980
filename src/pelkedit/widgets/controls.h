#pragma once

#include <cstdint>
#include <limits>
#include <memory>
#include <string>
#include <vector>

#include "values/date.h"
#include "widgets/widget.h"

namespace pelkedit {

class TextBox : public Widget {
 public:
  explicit TextBox(std::string name) : Widget(std::move(name), WidgetKind::kTextBox) {}
  const std::string& Text() const { return text_; }
  // Code may assign any text; the typing limit does not apply.
  void SetText(const std::string& text);
  // What the user types replaces the text, cut to the typing limit.
  void UserType(const std::string& text);
  // Maximum input length in characters; 0 means no limit.
  std::int32_t MaxLength() const { return maxLength_; }
  void SetMaxLength(std::int32_t length);
  std::int32_t SelStart() const { return selStart_; }
  std::int32_t SelLength() const { return selLength_; }
  void SetSelection(std::int32_t start, std::int32_t length);
  bool Multiline() const { return multiline_; }
  void SetMultiline(bool multiline) { multiline_ = multiline; }
  bool Locked() const { return locked_; }
  void SetLocked(bool locked);
  Handler onChange;

 private:
  std::string text_;
  std::int32_t maxLength_ = 0;
  std::int32_t selStart_ = 0;
  std::int32_t selLength_ = 0;
  bool multiline_ = false;
  bool locked_ = false;
};

// A drop-down list. Setting the index, from code or by the user, raises click at once.
class ListBox : public Widget {
 public:
  explicit ListBox(std::string name) : Widget(std::move(name), WidgetKind::kList) {}
  void AddItem(const std::string& item);
  void Clear();
  std::int32_t ListCount() const { return static_cast<std::int32_t>(items_.size()); }
  // Error 9 outside 0..ListCount-1.
  const std::string& List(std::int32_t index) const;
  std::int32_t ListIndex() const { return listIndex_; }
  // -1 clears the selection; any index the list cannot hold is error 380.
  void SetListIndex(std::int32_t index);
  // Text of the selected item ("" when none).
  std::string Text() const;

 private:
  std::vector<std::string> items_;
  std::int32_t listIndex_ = -1;
};

class OptionButton;

// The option buttons that exclude each other.
class OptionGroup {
 public:
  void Add(OptionButton* option) { members_.push_back(option); }
  const std::vector<OptionButton*>& Members() const { return members_; }

 private:
  std::vector<OptionButton*> members_;
};

// Selecting an option clears the others of its group and raises its click.
class OptionButton : public Widget {
 public:
  explicit OptionButton(std::string name) : Widget(std::move(name), WidgetKind::kOption) {}
  bool Value() const { return value_; }
  void SetValue(bool value);
  void JoinGroup(std::shared_ptr<OptionGroup> group);
  const OptionGroup* Group() const { return group_.get(); }
  void UserClick() override { SetValue(true); }

 private:
  void SetValueQuietly(bool value);
  bool value_ = false;
  std::shared_ptr<OptionGroup> group_;
};

class Label : public Widget {
 public:
  explicit Label(std::string name) : Widget(std::move(name), WidgetKind::kLabel) {}
};

// A picture area showing one picture resource (0: none).
class PictureBox : public Widget {
 public:
  explicit PictureBox(std::string name) : Widget(std::move(name), WidgetKind::kPicture) {}
  std::int32_t Picture() const { return picture_; }
  void SetPicture(std::int32_t pictureId);
  void ClearPicture() { SetPicture(0); }
  // The drawing the form's design gives it (picture::), shown while code has set none.
  std::int32_t DesignPicture() const { return designPicture_; }
  void SetDesignPicture(std::int32_t pictureId) { designPicture_ = pictureId; }
  // Whether a press takes the focus from the field being edited first, as a tab strip's does,
  // so that what was typed is committed before the press is handled.
  bool TakesFocus() const { return takesFocus_; }
  void SetTakesFocus(bool takes) { takesFocus_ = takes; }

 private:
  std::int32_t picture_ = 0;
  std::int32_t designPicture_ = 0;
  bool takesFocus_ = false;
};

class Button : public Widget {
 public:
  explicit Button(std::string name) : Widget(std::move(name), WidgetKind::kButton) {}
};

class Frame : public Widget {
 public:
  explicit Frame(std::string name) : Widget(std::move(name), WidgetKind::kFrame) {}
};

// Shared by the widgets that exchange dates as day numbers within bounds.
class DayValued : public Widget {
 public:
  DayValued(std::string name, WidgetKind kind) : Widget(std::move(name), kind) {}
  std::int32_t Day() const { return day_; }
  // From code: a day outside the bounds is error 380.
  void SetDay(std::int32_t day);
  void SetDate(const Date& date) { SetDay(date.DayNumber()); }
  // As the user enters it: refused (false, nothing changes) outside the bounds.
  bool UserSetDay(std::int32_t day);
  std::int32_t MinDay() const { return min_; }
  std::int32_t MaxDay() const { return max_; }
  void SetMinDay(std::int32_t day);
  void SetMaxDay(std::int32_t day);
  bool InBounds(std::int32_t day) const { return day >= min_ && day <= max_; }

 private:
  std::int32_t day_ = 0;
  std::int32_t min_ = std::numeric_limits<std::int32_t>::min();
  std::int32_t max_ = std::numeric_limits<std::int32_t>::max();
};

// Masked date edit with a drop-down button; shows dates in the user's date order.
class DateEdit : public DayValued {
 public:
  explicit DateEdit(std::string name) : DayValued(std::move(name), WidgetKind::kDateEdit) {}
  // 0 month-day-year, 1 day-month-year, 2 year-month-day.
  std::int32_t DateOrder() const { return dateOrder_; }
  void SetDateOrder(std::int32_t order);
  Handler onClickDrop;
  void UserDrop() { Fire(onClickDrop); }

 private:
  std::int32_t dateOrder_ = 0;
};

// Drop-down calendar; a click on a date reports day, month and year.
class Calendar : public DayValued {
 public:
  explicit Calendar(std::string name) : DayValued(std::move(name), WidgetKind::kCalendar) {}
  std::function<void(int day, int month, int year)> onDateClick;
  void UserDateClick(int year, int month, int day);
};

// A plain date field (value as a day number).
class DateField : public DayValued {
 public:
  explicit DateField(std::string name) : DayValued(std::move(name), WidgetKind::kDateField) {}
};

// Formatting of one character of a rich-text box.
struct CharFormat {
  bool bold = false;
  bool emphasis = false;
  std::int32_t color = 0;
  bool bullet = false;
  std::int32_t indent = 0;
  friend bool operator==(const CharFormat&, const CharFormat&) = default;
};

// Rich text: the text, and a format for every character (positions count characters;
// a CR LF counts two). Bullets and indents apply to whole paragraphs.
class RichTextBox : public Widget {
 public:
  explicit RichTextBox(std::string name) : Widget(std::move(name), WidgetKind::kRichText) {}
  const std::string& Text() const { return text_; }
  // Replaces the text; every character takes the format at the insertion point.
  void SetText(const std::string& text);
  std::int32_t SelStart() const { return selStart_; }
  std::int32_t SelLength() const { return selLength_; }
  void Select(std::int32_t start, std::int32_t length);
  void SetSelBold(bool on);
  void SetSelEmphasis(bool on);
  void SetSelColor(std::int32_t color);
  void SetSelBullet(bool on);
  void SetSelIndent(std::int32_t twips);
  std::int32_t Length() const { return static_cast<std::int32_t>(formats_.size()); }
  // Error 9 outside the text.
  const CharFormat& FormatAt(std::int32_t index) const;
  const std::vector<CharFormat>& Formats() const { return formats_; }

 private:
  template <typename Apply>
  void ApplyToSelection(Apply apply);
  template <typename Apply>
  void ApplyToParagraphs(Apply apply);
  std::string text_;
  std::vector<CharFormat> formats_;
  CharFormat insertion_;
  std::int32_t selStart_ = 0;
  std::int32_t selLength_ = 0;
};

}  // namespace pelkedit
