#pragma once
// The desktop host on a seeded demo database of its own, for the GUI tests.
#include <QDateEdit>
#include <QTemporaryDir>
#include <QtTest>
#include <deque>
#include <memory>
#include <vector>

#include "app/editor_environment.h"
#include "app/host_window.h"
#include "app/window_keys.h"
#include "control/tab_strips.h"
#include "data/demo_seed.h"
#include "record/ibo_properties.h"

namespace host_fixture {

using namespace pelkedit;
using pelkor::desktop::EditorEnvironment;
using pelkor::desktop::HostWindow;
using pelkor::desktop::QtPlatform;

constexpr std::int32_t kExpertIbo = 1001;  // started 2026-02-09, expected 2026-09-30, WIH High
constexpr std::int32_t kBasicIbo = 1002;   // WIH Medium
constexpr std::int32_t kMainView = pelkedit::view::kMain;
constexpr std::int32_t kWihLow = 0;
constexpr std::int32_t kWihHigh = 2;
inline const char* const kSavePromptTitle = "IBO modified";

// The host on a seeded database of its own, with message boxes answered by the test.
struct Host {
  QTemporaryDir folder;
  std::string dbPath = folder.filePath("test.pelkdb").toStdString();
  std::unique_ptr<EditorEnvironment> environment;
  std::unique_ptr<HostWindow> window;
  std::vector<QtPlatform::Message> messages;
  std::deque<MsgAnswer> answers;

  Host() {
    pelkor::SeedDemoData(*pelkor::OpenIboStore(dbPath));
    environment = std::make_unique<EditorEnvironment>(pelkor::desktop::EnvironmentOptions{
        dbPath, folder.filePath("trace.log").toStdString(), pelkor::StoreOpening::kCreateIfMissing,
        folder.filePath("state").toStdString()});
    environment->Platform().SetMessageHook([this](const QtPlatform::Message& message) {
      messages.push_back(message);
      if (answers.empty())
        return message.buttons == MsgButtons::kOk ? MsgAnswer::kOk : MsgAnswer::kCancel;
      const MsgAnswer answer = answers.front();
      answers.pop_front();
      return answer;
    });
    window = std::make_unique<HostWindow>(*environment);
  }
  ~Host() {
    window.reset();
    environment.reset();
  }

  bool Open(std::int32_t id) {
    if (!window->OpenIbo(id, kMainView)) return false;
    window->show();
    return QTest::qWaitForWindowActive(window.get());
  }
  template <typename W>
  W* Qt(const char* name) {
    return window->findChild<W*>(name);
  }
  IRecord& Rec() { return *window->Component()->Record(); }
  // The record as the database holds it now.
  std::shared_ptr<IRecord> Stored(std::int32_t id) {
    auto record = pelkor::CreateIboProperties();
    record->SetIboData(pelkor::OpenIboStore(dbPath)->Read(pelkor::IboTable::kMain, id));
    return record;
  }
};

// Every page in turn, as the user steps through them: the tabs of the strip shown, each Sales
// Environment phase on its own; `visit` is told where it is ("tab 1", "phase 2").
template <typename Visit>
void ForEveryPage(HostWindow& window, Visit visit) {
  for (int main = 0; main < tab::kMainCount; ++main) {
    if (window.Component()->State().mainTab == tab::kSalesEnvironment) {
      for (int phase = 0; phase < tab::kPhaseCount; ++phase) {
        visit(QString("phase %1").arg(window.Component()->State().sEnvTab));
        pelkor::desktop::StepPhase(window, 1);
      }
    } else {
      visit(QString("tab %1").arg(window.Component()->State().mainTab));
    }
    pelkor::desktop::StepMainTab(window, 1);
  }
}

inline QDate QDateOf(const Date& date) {
  return QDate(date.Year(), date.Month(), date.Day());
}

// Types a date into the field as the user would, over each section in its display order.
inline void TypeDate(QDateEdit* edit, const QDate& date) {
  edit->setFocus();
  for (int i = 0; i < edit->sectionCount(); ++i) {
    const QDateTimeEdit::Section section = edit->sectionAt(i);
    edit->setSelectedSection(section);
    const char* format = section == QDateTimeEdit::DaySection     ? "dd"
                         : section == QDateTimeEdit::MonthSection ? "MM"
                                                                  : "yyyy";
    QTest::keyClicks(edit, date.toString(format));
  }
}

}  // namespace host_fixture
