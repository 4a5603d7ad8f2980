#include "app/screenshots.h"

#include <QApplication>
#include <QDir>
#include <QMenu>
#include <QMenuBar>
#include <QPalette>
#include <QTimer>
#include <algorithm>
#include <cctype>
#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "app/help_sentences.h"
#include "app/host_window.h"
#include "app/merge_dialog.h"
#include "app/saved_versions_dialog.h"
#include "app/stored_version_dialog.h"
#include "contracts/names.h"
#include "control/tab_strips.h"
#include "help_viewer/help_window.h"
#include "record/ibo_properties.h"
#include "widgets/controls.h"

namespace pelkor::desktop {
namespace {

// How much larger the grown window is than the designed one.
constexpr double kGrownScale = 1.5;

// One picture per tab: the centre of its band on the main strip, and of its phase's band.
struct TabShot {
  std::string name;
  float mainX;
  std::optional<float> phaseX;
  std::int32_t phase = pelkedit::tab::kNoPhase;
};

float Centre(const pelkedit::TabBand& band) {
  return static_cast<float>(band.first + band.last) / 2.0F;
}

// "Sales Advisor" -> "sales-advisor".
std::string FileName(const std::string& caption) {
  std::string name;
  for (const char c : caption) {
    name += c == ' ' ? '-' : static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  }
  return name;
}

// Every tab the strip shows, each Sales Environment phase on its own, named by its page.
std::vector<TabShot> TabsOf(const pelkedit::PelkIboEdit& component,
                            const pelkedit::TabStrip& strip) {
  std::vector<TabShot> shots;
  for (const pelkedit::TabBand& band : strip.bands) {
    if (band.tab != pelkedit::tab::kSalesEnvironment) {
      shots.push_back(
          {FileName(component.TabCaption(strip, band.tab)), Centre(band), std::nullopt});
      continue;
    }
    for (const pelkedit::TabBand& phase : pelkedit::PhaseStrip().bands) {
      shots.push_back({FileName(component.TabCaption(strip, band.tab) + " " +
                                component.TabCaption(pelkedit::PhaseStrip(), phase.tab)),
                       Centre(band), Centre(phase), phase.tab});
    }
  }
  return shots;
}

void Press(pelkedit::PelkIboEdit& component, const char* strip, float x) {
  component.Widgets().Get<pelkedit::PictureBox>(strip).UserMouseDown(0, 0, x, 0);
  QApplication::processEvents();
}

// A press on the tab's band, and on its phase's band unless that phase is already the one
// shown: the pictures show what a user sees, so nothing is pressed that a user would not press.
void PressTab(pelkedit::PelkIboEdit& component, const TabShot& tab) {
  Press(component, pelkedit::widget::picMainTab, tab.mainX);
  if (tab.phaseX && tab.phase != component.State().sEnvTab) {
    Press(component, pelkedit::widget::picSEnvTab, *tab.phaseX);
  }
}

// Writes FOLDER/iboID-NAME.png of what the widget shows; returns its path.
QString Save(QWidget& widget, const QDir& folder, std::int32_t iboId, const std::string& name) {
  const QString path =
      folder.filePath(QString("ibo%1-%2.png").arg(iboId).arg(QString::fromStdString(name)));
  if (!widget.grab().save(path)) throw std::runtime_error("cannot write " + path.toStdString());
  return path;
}

void Open(HostWindow& window, std::int32_t iboId, std::int32_t view) {
  if (!window.OpenIbo(iboId, view)) {
    throw std::runtime_error("IBO " + std::to_string(iboId) + " cannot be shown");
  }
  QApplication::processEvents();
}

// Each tab's page, then back where the user starts.
QStringList ShootPages(HostWindow& window, const std::vector<TabShot>& tabs, const QDir& folder,
                       std::int32_t iboId) {
  QStringList written;
  pelkedit::PelkIboEdit& component = *window.Component();
  for (const TabShot& tab : tabs) {
    PressTab(component, tab);
    written << Save(*window.Form(), folder, iboId, tab.name);
  }
  Press(component, pelkedit::widget::picMainTab, tabs.front().mainX);
  return written;
}

// The whole window, its pages, the window grown (as maximised), and the dialogs it opens.
QStringList ShootTabs(HostWindow& window, const std::vector<TabShot>& tabs, const QDir& folder,
                      std::int32_t iboId) {
  QStringList written;
  written << Save(window, folder, iboId, "window");
  written << ShootPages(window, tabs, folder, iboId);
  pelkedit::PelkIboEdit& component = *window.Component();
  const QSize designed = window.size();
  window.resize(designed * kGrownScale);
  QApplication::processEvents();
  written << Save(window, folder, iboId, "window-grown");
  // The pages whose fields take the extra room.
  for (const TabShot& tab : tabs) {
    if (tab.name != "sales-advisor" && tab.name != "ibo-info") continue;
    PressTab(component, tab);
    written << Save(window, folder, iboId, tab.name + "-grown");
    Press(component, pelkedit::widget::picMainTab, tabs.front().mainX);
  }
  window.resize(designed);
  // A menu, opened under its title.
  const auto shootMenu = [&](const QString& titleText, const char* name) {
    for (QAction* title : window.menuBar()->actions()) {
      if (title->menu() == nullptr || title->text() != titleText) continue;
      title->menu()->popup(
          window.mapToGlobal(window.menuBar()->actionGeometry(title).bottomLeft()));
      QApplication::processEvents();
      written << Save(*title->menu(), folder, iboId, name);
      title->menu()->close();
    }
  };
  // The IBO menu with the host's commands on this IBO.
  shootMenu(QObject::tr("&IBO"), "ibo-menu");
  // The Edit menu after an answer, naming the step Undo takes back; then taken back.
  window.Binding()->Run(
      [&] { component.Widgets().Get<pelkedit::Widget>("optWihLow").UserClick(); });
  shootMenu(QObject::tr("&Edit"), "edit-menu");
  window.Undo();
  // A dialog as it opens: photographed, then closed with its close box.
  const auto shootDialog = [&](const char* name, const std::function<void()>& open) {
    QTimer::singleShot(0, &window, [&, name] {
      QWidget* dialog = QApplication::activeModalWidget();
      if (dialog == nullptr) return;
      written << Save(*dialog, folder, iboId, name);
      dialog->close();
    });
    open();
  };
  shootDialog("start-date-dialog", [&] { window.ChangeStartDate(); });
  // Cancelled by the photograph: the record is not changed.
  shootDialog("contact-lookup", [&] {
    window.Binding()->Run(
        [&] { component.Widgets().Get<pelkedit::Button>("cmdContactLookup").UserClick(); });
  });
  // The comparison a refused save leads to, as if a colleague had changed the company and the
  // expected date meanwhile.
  // The IBO open with a colleague's changes: a later expected date, and the company renamed.
  const auto colleagues = [&](bool renamed) {
    const auto theirs = CreateIboProperties();
    theirs->SetIboData(component.Record()->GetIboData());
    theirs->Set(pelkedit::prop::WwihDate, pelkedit::Date::FromCivil(2026, 12, 18));
    if (renamed) {
      theirs->Set(pelkedit::prop::ContactCompany,
                  component.Record()->Get(pelkedit::prop::ContactCompany).AsString() + " West");
    }
    return theirs;
  };
  shootDialog("stored-version", [&] {
    const auto theirs = colleagues(true);
    StoredVersionDialog dialog(iboId, DifferencesBetween(*component.Record(), *theirs), &window);
    dialog.exec();
  });
  // The history, as if the IBO had been saved twice before with another company and date.
  shootDialog("history", [&] {
    std::vector<SavedVersion> versions;
    versions.push_back({7, "2026-11-23 16:42:10", "jdoe", colleagues(false)->GetIboData()});
    versions.push_back({6, "2026-11-20 09:05:33", "asmith", colleagues(true)->GetIboData()});
    SavedVersionsDialog dialog(iboId, std::move(versions), *component.Record(), &window);
    dialog.exec();
  });
  // The merge after a refused save, as if both had changed the company.
  shootDialog("merge", [&] {
    const auto theirs = colleagues(true);
    MergeDialog dialog({{pelkedit::prop::ContactCompany, std::nullopt}}, *component.Record(),
                       *theirs, &window);
    dialog.exec();
  });
  if (component.State().expertView) {
    const auto probe = std::find_if(tabs.begin(), tabs.end(),
                                    [](const TabShot& tab) { return tab.phaseX.has_value(); });
    if (probe != tabs.end()) PressTab(component, *probe);
    shootDialog("competitors-dialog", [&] {
      window.Binding()->Run(
          [&] { component.Widgets().Get<pelkedit::Button>("cmdSenvCompetitors").UserClick(); });
    });
    Press(component, pelkedit::widget::picMainTab, tabs.front().mainX);
  }
  return written;
}

QStringList ShootIbo(HostWindow& window, const QDir& folder, std::int32_t iboId,
                     std::int32_t view) {
  Open(window, iboId, view);
  return ShootTabs(
      window,
      TabsOf(*window.Component(), pelkedit::MainStrip(window.Component()->State().expertView)),
      folder, iboId);
}

// The Sales Environment's phases of one expert IBO.
QStringList ShootPhases(HostWindow& window, const QDir& folder, std::int32_t iboId) {
  Open(window, iboId, pelkedit::view::kMain);
  std::vector<TabShot> phases;
  for (const TabShot& tab : TabsOf(*window.Component(), pelkedit::ExpertMainStrip())) {
    if (tab.phaseX) phases.push_back(tab);
  }
  return ShootPages(window, phases, folder, iboId);
}

// A dark desktop theme, as dark themes colour their windows.
QPalette DarkPalette() {
  const QColor window(45, 47, 51);
  const QColor base(30, 31, 34);
  const QColor text(232, 233, 235);
  const QColor disabled(120, 122, 126);
  QPalette dark(window);
  dark.setColor(QPalette::WindowText, text);
  dark.setColor(QPalette::Base, base);
  dark.setColor(QPalette::AlternateBase, window);
  dark.setColor(QPalette::Text, text);
  dark.setColor(QPalette::Button, QColor(58, 61, 66));
  dark.setColor(QPalette::ButtonText, text);
  dark.setColor(QPalette::Highlight, QColor(61, 126, 210));
  dark.setColor(QPalette::HighlightedText, Qt::white);
  dark.setColor(QPalette::ToolTipBase, base);
  dark.setColor(QPalette::ToolTipText, text);
  dark.setColor(QPalette::PlaceholderText, disabled);
  for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText}) {
    dark.setColor(QPalette::Disabled, role, disabled);
  }
  return dark;
}

// Every page of an expert IBO again on a dark desktop: the pictures take their colours from
// the palette. A window of its own, so that no picture drawn light is reused.
QStringList ShootDark(EditorEnvironment& environment, const QDir& folder, std::int32_t iboId) {
  const QPalette light = QApplication::palette();
  QApplication::setPalette(DarkPalette());
  QStringList written;
  {
    HostWindow dark(environment);
    dark.show();
    Open(dark, iboId, pelkedit::view::kMain);
    std::vector<TabShot> tabs = TabsOf(*dark.Component(), pelkedit::ExpertMainStrip());
    for (TabShot& tab : tabs) tab.name = "dark-" + tab.name;
    written << Save(dark, folder, iboId, "dark-window");
    written << ShootPages(dark, tabs, folder, iboId);
  }
  QApplication::setPalette(light);
  return written;
}

}  // namespace

// The help viewer on the index and on a few topics, as a user opens them from the editor.
QStringList ShootHelp(const QDir& folder) {
  QStringList written;
  const QString helpFile = ConfiguredHelpFile();
  help::HelpWindow viewer;
  viewer.show();
  for (const int mapId : {10, 16, 39, 44}) {
    viewer.ShowTopic(helpFile, mapId);
    QApplication::processEvents();
    const QString path = folder.filePath(QString("help-topic-%1.png").arg(mapId));
    if (viewer.grab().save(path)) written << path;
  }
  return written;
}

QStringList WriteScreenshots(HostWindow& window, EditorEnvironment& environment,
                             const QString& folder, std::optional<std::int32_t> iboId,
                             std::int32_t view) {
  QDir dir(folder);
  if (!dir.mkpath(".")) throw std::runtime_error("cannot create " + folder.toStdString());
  if (iboId) return ShootIbo(window, dir, *iboId, view);
  std::vector<std::int32_t> experts;
  std::optional<std::int32_t> basic;
  IboQuery first;
  first.table = IboTable::kMain;
  for (const IboSummary& ibo : environment.Db()->QueryIbos(first).rows) {
    if (ibo.expert) experts.push_back(ibo.id);
    if (!ibo.expert && !basic) basic = ibo.id;
  }
  if (experts.empty() && !basic) throw std::runtime_error("the database holds no IBO to show");
  QStringList written;
  // Every page of one expert and one basic IBO; the Sales Environment of every other expert
  // IBO, whose answers differ most from one to the next.
  if (!experts.empty()) written << ShootIbo(window, dir, experts.front(), pelkedit::view::kMain);
  if (!experts.empty()) written << ShootDark(environment, dir, experts.front());
  if (basic) written << ShootIbo(window, dir, *basic, pelkedit::view::kMain);
  for (std::size_t i = 1; i < experts.size(); ++i) {
    written << ShootPhases(window, dir, experts[i]);
  }
  written << ShootHelp(dir);
  return written;
}

}  // namespace pelkor::desktop
