#include "widgets/controls.h"

#include <algorithm>

#include "values/error.h"
#include "values/text.h"

namespace pelkedit {

void TextBox::SetText(const std::string& text) {
  text_ = text;
  selStart_ = std::min<std::int32_t>(selStart_, static_cast<std::int32_t>(CharCount(text_)));
  selLength_ = 0;
  Changed("text");
  Fire(onChange);
}

void TextBox::UserType(const std::string& text) {
  if (maxLength_ > 0 && CharCount(text) > static_cast<std::size_t>(maxLength_)) {
    SetText(CharLeft(text, static_cast<std::size_t>(maxLength_)));
    return;
  }
  SetText(text);
}

void TextBox::SetMaxLength(std::int32_t length) {
  if (length < 0) Raise(errnum::kInvalidPropertyValue, Name());
  maxLength_ = length;
  Changed("maxlength");
}

void TextBox::SetSelection(std::int32_t start, std::int32_t length) {
  const auto count = static_cast<std::int32_t>(CharCount(text_));
  if (start < 0 || length < 0) Raise(errnum::kInvalidPropertyValue, Name());
  selStart_ = std::min(start, count);
  selLength_ = std::min(length, count - selStart_);
  Changed("selection");
}

void TextBox::SetLocked(bool locked) {
  locked_ = locked;
  Changed("locked");
}

void ListBox::AddItem(const std::string& item) {
  items_.push_back(item);
  Changed("list");
}

void ListBox::Clear() {
  items_.clear();
  listIndex_ = -1;
  Changed("list");
}

const std::string& ListBox::List(std::int32_t index) const {
  if (index < 0 || index >= ListCount()) Raise(errnum::kSubscriptOutOfRange, Name());
  return items_[static_cast<std::size_t>(index)];
}

void ListBox::SetListIndex(std::int32_t index) {
  if (index < -1 || index >= ListCount()) Raise(errnum::kInvalidPropertyValue, Name());
  listIndex_ = index;
  Changed("listindex");
  Fire(onClick);
}

std::string ListBox::Text() const {
  return listIndex_ < 0 ? std::string() : items_[static_cast<std::size_t>(listIndex_)];
}

void OptionButton::JoinGroup(std::shared_ptr<OptionGroup> group) {
  group->Add(this);
  group_ = std::move(group);
}

void OptionButton::SetValueQuietly(bool value) {
  if (value_ == value) return;
  value_ = value;
  Changed("value");
}

void OptionButton::SetValue(bool value) {
  if (!value) {
    SetValueQuietly(false);
    return;
  }
  if (group_) {
    for (OptionButton* other : group_->Members()) {
      if (other != this) other->SetValueQuietly(false);
    }
  }
  SetValueQuietly(true);
  Fire(onClick);
}

void PictureBox::SetPicture(std::int32_t pictureId) {
  picture_ = pictureId;
  Changed("picture");
}

void DayValued::SetDay(std::int32_t day) {
  if (!InBounds(day)) Raise(errnum::kInvalidPropertyValue, Name());
  day_ = day;
  Changed("day");
}

bool DayValued::UserSetDay(std::int32_t day) {
  if (!InBounds(day)) return false;
  SetDay(day);
  return true;
}

void DayValued::SetMinDay(std::int32_t day) {
  min_ = day;
  Changed("bounds");
}

void DayValued::SetMaxDay(std::int32_t day) {
  max_ = day;
  Changed("bounds");
}

void DateEdit::SetDateOrder(std::int32_t order) {
  if (order < 0 || order > 2) Raise(errnum::kInvalidPropertyValue, Name());
  dateOrder_ = order;
  Changed("dateorder");
}

void Calendar::UserDateClick(int year, int month, int day) {
  if (!IsValidCivil(year, month, day)) Raise(errnum::kInvalidPropertyValue, Name());
  const std::int32_t dayNumber = Date::FromCivil(year, month, day).DayNumber();
  if (!InBounds(dayNumber)) return;
  SetDay(dayNumber);
  if (onDateClick) onDateClick(day, month, year);
}

void RichTextBox::SetText(const std::string& text) {
  text_ = text;
  formats_.assign(CharCount(text_), insertion_);
  // Formatting chosen with nothing selected applies to this text only, not to later ones.
  insertion_ = CharFormat{};
  selStart_ = 0;
  selLength_ = 0;
  Changed("text");
}

void RichTextBox::Select(std::int32_t start, std::int32_t length) {
  if (start < 0 || length < 0) Raise(errnum::kInvalidPropertyValue, Name());
  selStart_ = std::min(start, Length());
  selLength_ = std::min(length, Length() - selStart_);
  Changed("selection");
}

template <typename Apply>
void RichTextBox::ApplyToSelection(Apply apply) {
  if (selLength_ == 0) apply(insertion_);
  for (std::int32_t i = selStart_; i < selStart_ + selLength_; ++i) {
    apply(formats_[static_cast<std::size_t>(i)]);
  }
  Changed("format");
}

template <typename Apply>
void RichTextBox::ApplyToParagraphs(Apply apply) {
  // Paragraphs end after a line feed; find the first and last touched by the selection.
  std::vector<std::int32_t> starts{0};
  std::int32_t index = 0;
  for (const char c : text_) {
    if ((static_cast<unsigned char>(c) & 0xC0) == 0x80) continue;
    ++index;
    if (c == '\n') starts.push_back(index);
  }
  const std::int32_t selEnd = selStart_ + std::max<std::int32_t>(selLength_ - 1, 0);
  std::int32_t from = 0;
  std::int32_t to = Length();
  for (std::size_t p = 0; p < starts.size(); ++p) {
    const bool last = p + 1 == starts.size();
    const std::int32_t pStart = starts[p];
    const std::int32_t pEnd = last ? Length() : starts[p + 1];
    // The insertion point at the very end of the text belongs to the last paragraph.
    const std::int32_t pLimit = last ? Length() + 1 : pEnd;
    if (selStart_ >= pStart && selStart_ < pLimit) from = pStart;
    if (selEnd >= pStart && selEnd < pLimit) to = pEnd;
  }
  for (std::int32_t i = from; i < to; ++i) apply(formats_[static_cast<std::size_t>(i)]);
  Changed("format");
}

void RichTextBox::SetSelBold(bool on) {
  ApplyToSelection([on](CharFormat& f) { f.bold = on; });
}
void RichTextBox::SetSelEmphasis(bool on) {
  ApplyToSelection([on](CharFormat& f) { f.emphasis = on; });
}
void RichTextBox::SetSelColor(std::int32_t color) {
  ApplyToSelection([color](CharFormat& f) { f.color = color; });
}
void RichTextBox::SetSelBullet(bool on) {
  ApplyToParagraphs([on](CharFormat& f) { f.bullet = on; });
}
void RichTextBox::SetSelIndent(std::int32_t twips) {
  ApplyToParagraphs([twips](CharFormat& f) { f.indent = twips; });
}

const CharFormat& RichTextBox::FormatAt(std::int32_t index) const {
  if (index < 0 || index >= Length()) Raise(errnum::kSubscriptOutOfRange, Name());
  return formats_[static_cast<std::size_t>(index)];
}

}  // namespace pelkedit
