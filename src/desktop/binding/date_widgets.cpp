#include "binding/date_widgets.h"

#include <QFontInfo>
#include <QTextCharFormat>

#include <QHBoxLayout>
#include <QVBoxLayout>
#include <algorithm>

#include "locale/mod_locale.h"

namespace pelkor::desktop {

namespace {
const QDate kDayZero(1900, 1, 1);
// The range Qt's date edits accept.
const QDate kFirstShowable(100, 1, 1);
const QDate kLastShowable(9999, 12, 31);
constexpr int kDropButtonWidth = 18;
constexpr QChar kDefaultSeparator = '/';

enum DateOrder { kMonthDayYear = 0, kDayMonthYear = 1, kYearMonthDay = 2 };
}  // namespace

QDate DateOfDay(std::int32_t day) {
  return kDayZero.addDays(day);
}

std::int32_t DayOfDate(const QDate& date) {
  return static_cast<std::int32_t>(kDayZero.daysTo(date));
}

std::int32_t ClampToShowable(std::int32_t day) {
  return std::clamp(day, DayOfDate(kFirstShowable), DayOfDate(kLastShowable));
}

int DateOrderOf(const QString& format) {
  return pelkedit::DateOrderFromFormat(format.toStdString()).value_or(kMonthDayYear);
}

QString MaskedDateFormat(const QString& shortDateFormat, int order) {
  QChar separator = kDefaultSeparator;
  for (const QChar c : shortDateFormat) {
    if (!c.isLetter() && !c.isSpace() && c != '\'') {
      separator = c;
      break;
    }
  }
  const QString s(separator);
  switch (order) {
    case kDayMonthYear:
      return "dd" + s + "MM" + s + "yyyy";
    case kYearMonthDay:
      return "yyyy" + s + "MM" + s + "dd";
    default:
      return "MM" + s + "dd" + s + "yyyy";
  }
}

DateEditBox::DateEditBox(const QString& name, QWidget* parent)
    : QWidget(parent), edit_(new QDateEdit(this)), drop_(new QToolButton(this)) {
  setObjectName(name + "Box");
  edit_->setObjectName(name);
  edit_->setButtonSymbols(QAbstractSpinBox::NoButtons);
  drop_->setObjectName(name + "Drop");
  drop_->setArrowType(Qt::DownArrow);
  // Reachable with Tab; a click leaves the focus on the date while the calendar drops.
  drop_->setFocusPolicy(Qt::TabFocus);
  drop_->setFixedWidth(kDropButtonWidth);
  drop_->setToolTip(tr("Pick a date"));
  drop_->setAccessibleName(tr("Pick a date"));
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  layout->addWidget(edit_, 1);
  layout->addWidget(drop_);
  drop_->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
  edit_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

namespace {
constexpr double kHeaderScale = 0.8;
}  // namespace

CalendarBox::CalendarBox(const QString& name, QWidget* parent) : QFrame(parent), name_(name) {
  setObjectName(name + "Box");
  setFrameShape(QFrame::StyledPanel);
  setFrameShadow(QFrame::Raised);
  setAutoFillBackground(true);
}

void CalendarBox::Build() {
  if (calendar_ != nullptr) return;
  calendar_ = new QCalendarWidget(this);
  today_ = new QPushButton(this);
  calendar_->setObjectName(name_);
  calendar_->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
  calendar_->setGridVisible(false);
  // The day names in a slightly smaller type, so that "Wed" fits its narrow column whole.
  QTextCharFormat header = calendar_->headerTextFormat();
  header.setFontPointSize(QFontInfo(font()).pointSizeF() * kHeaderScale);
  calendar_->setHeaderTextFormat(header);
  if (first_.isValid()) calendar_->setDateRange(first_, last_);
  if (selected_.isValid()) calendar_->setSelectedDate(selected_);
  // Made when first shown, after the widgets around it: Tab reaches it where the box is, and
  // a screen reader hears the box's name.
  QWidget::setTabOrder(this, calendar_);
  setFocusProxy(calendar_);
  for (QWidget* part = calendar_; part != nullptr; part = part->focusProxy()) {
    part->setAccessibleName(accessibleName());
    part->setAccessibleDescription(accessibleDescription());
  }
  today_->setObjectName(name_ + "Today");
  today_->setText(tr("Today"));
  today_->setFocusPolicy(Qt::NoFocus);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(2, 2, 2, 2);
  layout->setSpacing(2);
  layout->addWidget(calendar_, 1);
  layout->addWidget(today_, 0, Qt::AlignRight);
  setFocusProxy(calendar_);
  // Made while the box is being shown, after its children were: they show themselves.
  calendar_->show();
  today_->show();
  connect(calendar_, &QCalendarWidget::clicked, this, &CalendarBox::datePicked);
  connect(calendar_, &QCalendarWidget::activated, this, &CalendarBox::datePicked);
  connect(today_, &QPushButton::clicked, this, [this] {
    calendar_->setSelectedDate(QDate::currentDate());
    emit datePicked(QDate::currentDate());
  });
}

QCalendarWidget* CalendarBox::Calendar() {
  Build();
  return calendar_;
}

QPushButton* CalendarBox::TodayButton() {
  Build();
  return today_;
}

void CalendarBox::SetDateRange(const QDate& first, const QDate& last) {
  first_ = first;
  last_ = last;
  if (calendar_ != nullptr) calendar_->setDateRange(first, last);
}

void CalendarBox::SetSelectedDate(const QDate& date) {
  selected_ = date;
  if (calendar_ != nullptr) calendar_->setSelectedDate(date);
}

void CalendarBox::showEvent(QShowEvent* event) {
  Build();
  QFrame::showEvent(event);
}

}  // namespace pelkor::desktop
