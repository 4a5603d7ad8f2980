#pragma once

#include <QCalendarWidget>
#include <QDate>
#include <QDateEdit>
#include <QFrame>
#include <QPushButton>
#include <QString>
#include <QToolButton>
#include <cstdint>

namespace pelkor::desktop {

// Day numbers count whole days from 1900-01-01 (day 0), as the date widgets exchange them.
QDate DateOfDay(std::int32_t day);
std::int32_t DayOfDate(const QDate& date);
// The nearest day number that a Qt date widget can show.
std::int32_t ClampToShowable(std::int32_t day);

// The display format of the masked date edits: the separator of the user's short-date format,
// two-digit day and month, four-digit year, in the given order (0 month-day-year,
// 1 day-month-year, 2 year-month-day).
QString MaskedDateFormat(const QString& shortDateFormat, int order);
// The order code a short-date format implies (0 when it names no day, month or year).
int DateOrderOf(const QString& shortDateFormat);

// A date edit with a drop-down button beside it; the button asks for the calendar.
class DateEditBox : public QWidget {
  Q_OBJECT
 public:
  explicit DateEditBox(const QString& name, QWidget* parent = nullptr);
  QDateEdit* Edit() const { return edit_; }
  QToolButton* DropButton() const { return drop_; }

 private:
  QDateEdit* edit_;
  QToolButton* drop_;
};

// A calendar on a raised panel with a "Today" button under it. The calendar is the costliest
// widget of the form and most users never open it, so it is made when first shown (or asked
// for); the range and date given before are kept for it.
class CalendarBox : public QFrame {
  Q_OBJECT
 public:
  explicit CalendarBox(const QString& name, QWidget* parent = nullptr);
  QCalendarWidget* Calendar();
  QPushButton* TodayButton();
  void SetDateRange(const QDate& first, const QDate& last);
  void SetSelectedDate(const QDate& date);

 signals:
  // The user picked a date: clicked or activated it, or pressed "Today".
  void datePicked(const QDate& date);

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void Build();

  QString name_;
  QDate first_;
  QDate last_;
  QDate selected_;
  QCalendarWidget* calendar_ = nullptr;
  QPushButton* today_ = nullptr;
};

}  // namespace pelkor::desktop
