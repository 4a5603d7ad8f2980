#include "platform/qt_platform.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QGuiApplication>
#include <QLocale>
#include <QMessageBox>
#include <QProcess>
#include <QRegularExpression>

#include "binding/date_widgets.h"
#include "platform/modal_window.h"
#include "values/error.h"

namespace pelkor::desktop {

using pelkedit::MsgAnswer;
using pelkedit::MsgButtons;
using pelkedit::MsgIcon;

namespace {

// The classic runtime's number for a program that cannot be started.
constexpr std::int32_t kFileNotFound = 53;
constexpr std::int32_t kLocaleSystemDefault = 0x0800;

QMessageBox::Icon IconOf(MsgIcon icon) {
  switch (icon) {
    case MsgIcon::kCritical:
      return QMessageBox::Critical;
    case MsgIcon::kQuestion:
      return QMessageBox::Question;
    case MsgIcon::kExclamation:
      return QMessageBox::Warning;
    case MsgIcon::kInformation:
      return QMessageBox::Information;
    case MsgIcon::kNone:
      break;
  }
  return QMessageBox::NoIcon;
}

struct ButtonSet {
  std::vector<std::pair<QMessageBox::StandardButton, MsgAnswer>> buttons;
  QMessageBox::StandardButton escape;
};

ButtonSet ButtonsOf(MsgButtons buttons) {
  using B = QMessageBox::StandardButton;
  switch (buttons) {
    case MsgButtons::kOkCancel:
      return {{{B::Ok, MsgAnswer::kOk}, {B::Cancel, MsgAnswer::kCancel}}, B::Cancel};
    case MsgButtons::kAbortRetryIgnore:
      return {{{B::Abort, MsgAnswer::kAbort},
               {B::Retry, MsgAnswer::kRetry},
               {B::Ignore, MsgAnswer::kIgnore}},
              B::NoButton};
    case MsgButtons::kYesNoCancel:
      return {{{B::Yes, MsgAnswer::kYes}, {B::No, MsgAnswer::kNo}, {B::Cancel, MsgAnswer::kCancel}},
              B::Cancel};
    case MsgButtons::kYesNo:
      return {{{B::Yes, MsgAnswer::kYes}, {B::No, MsgAnswer::kNo}}, B::NoButton};
    case MsgButtons::kRetryCancel:
      return {{{B::Retry, MsgAnswer::kRetry}, {B::Cancel, MsgAnswer::kCancel}}, B::Cancel};
    case MsgButtons::kOk:
      break;
  }
  return {{{B::Ok, MsgAnswer::kOk}}, B::Ok};
}

// An error's text ends in a line naming its number and source ("Error 5 in PelkData.Ibo"):
// that line is for whoever looks into the error, so it goes into the box's details.
void SplitDetails(QMessageBox& box, const QString& text) {
  static const QRegularExpression kErrorLine("\\n(Error -?\\d+ in [^\\n]*)$");
  const QRegularExpressionMatch match = kErrorLine.match(text);
  if (!match.hasMatch()) {
    box.setText(text);
    return;
  }
  box.setText(text.left(match.capturedStart()));
  box.setDetailedText(match.captured(1));
}

pelkedit::Date DateOf(const QDateTime& moment) {
  const QDate d = moment.date();
  const QTime t = moment.time();
  return pelkedit::Date::FromCivil(d.year(), d.month(), d.day(), t.hour(), t.minute(), t.second());
}

}  // namespace

QtPlatform::QtPlatform(const pelkedit::ObjectFactory& factory) : factory_(factory) {
  dialogOptions_.shortDateFormat = QString::fromStdString(ShortDateFormat());
}

QtPlatform::~QtPlatform() {
  if (cursorOverridden_) QGuiApplication::restoreOverrideCursor();
}

MsgAnswer QtPlatform::MsgBox(const std::string& text, MsgIcon icon, MsgButtons buttons,
                             const std::string& title) {
  ++messagesShown_;
  if (messageHook_) return messageHook_({text, icon, buttons, title});
  QMessageBox box(IconOf(icon), QString::fromStdString(title), QString(), QMessageBox::NoButton,
                  host_);
  SplitDetails(box, QString::fromStdString(text));
  const ButtonSet set = ButtonsOf(buttons);
  for (const auto& [button, answer] : set.buttons) box.addButton(button);
  box.setDefaultButton(set.buttons.front().first);
  if (set.escape != QMessageBox::NoButton) box.setEscapeButton(set.escape);
  // A busy pointer must not hide the question being asked.
  if (cursorOverridden_) QGuiApplication::setOverrideCursor(Qt::ArrowCursor);
  const auto chosen = static_cast<QMessageBox::StandardButton>(box.exec());
  if (cursorOverridden_) QGuiApplication::restoreOverrideCursor();
  for (const auto& [button, answer] : set.buttons) {
    if (button == chosen) return answer;
  }
  // Closed without a button (possible only where Escape has no button of its own).
  return set.buttons.back().second;
}

void QtPlatform::PostMessage(std::int32_t hwnd, std::uint32_t message, std::int32_t, std::int32_t) {
  if (hwnd != kHostWindowHandle || message != pelkedit::kWmClose || host_.isNull()) return;
  // Queued: the window closes after the handler that asked for it has returned.
  if (closeRequestHandler_) {
    QMetaObject::invokeMethod(host_, closeRequestHandler_, Qt::QueuedConnection);
    return;
  }
  QMetaObject::invokeMethod(host_, "close", Qt::QueuedConnection);
}

void QtPlatform::SetScreenPointer(pelkedit::MousePointer pointer) {
  if (cursorOverridden_) {
    QGuiApplication::restoreOverrideCursor();
    cursorOverridden_ = false;
  }
  pointer_ = pointer;
  if (pointer == pelkedit::MousePointer::kDefault) return;
  QGuiApplication::setOverrideCursor(
      pointer == pelkedit::MousePointer::kHourglass ? Qt::WaitCursor : Qt::ArrowCursor);
  cursorOverridden_ = true;
}

pelkedit::Date QtPlatform::Now() {
  return DateOf(QDateTime::currentDateTime());
}

pelkedit::Date QtPlatform::Today() {
  const QDate today = QDate::currentDate();
  return pelkedit::Date::FromCivil(today.year(), today.month(), today.day());
}

std::string QtPlatform::ShortDateFormat() {
  return QLocale::system().dateFormat(QLocale::ShortFormat).toStdString();
}

std::int32_t QtPlatform::GetLocaleInfoA(std::int32_t locale, std::int32_t lctype,
                                        std::string& buffer, std::int32_t size) {
  if (lctype != pelkedit::kLocaleIDate) return 0;
  if (locale != pelkedit::kLocaleUserDefault && locale != kLocaleSystemDefault) return 0;
  std::string answer = std::to_string(DateOrderOf(QString::fromStdString(ShortDateFormat())));
  answer.push_back('\0');
  const auto written = static_cast<std::int32_t>(answer.size());
  if (written > size) return 0;
  if (buffer.size() < answer.size()) buffer.resize(answer.size());
  buffer.replace(0, answer.size(), answer);
  return written;
}

namespace {
const QString kHelpProgram = "keyhh.exe";
const QString kHelpViewer = "pelkor-help";
}  // namespace

void QtPlatform::StartProcess(const std::string& commandLine) {
  if (processHook_) return processHook_(commandLine);
  QStringList parts = QProcess::splitCommand(QString::fromStdString(commandLine));
  if (parts.isEmpty()) pelkedit::Raise(kFileNotFound, "Shell", "File not found");
  QString program = parts.takeFirst();
  if (program == kHelpProgram) {
    // The help viewer of this product stands in for the classic one. Its request ends with the
    // help file's path, unquoted, which may hold spaces: it is the rest of the line.
    constexpr int kRequestWords = 3;
    const QStringList words = QString::fromStdString(commandLine).split(' ');
    parts = words.mid(1, kRequestWords);
    parts << words.mid(1 + kRequestWords).join(' ');
    program = QCoreApplication::applicationDirPath() + "/" + kHelpViewer;
  }
  if (!QProcess::startDetached(program, parts)) {
    pelkedit::Raise(kFileNotFound, "Shell", "File not found: " + program.toStdString());
  }
}

void QtPlatform::ShowModal(pelkedit::ModalDialog& dialog) {
  ModalWindow window(dialog, dialogOptions_, host_);
  window.Run();
}

pelkedit::ObjectPtr QtPlatform::CreateObject(const std::string& progId) {
  return factory_.Create(progId);
}

}  // namespace pelkor::desktop
