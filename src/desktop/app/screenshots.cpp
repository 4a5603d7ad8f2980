#include "app/screenshots.h"

#include <QApplication>
#include <QDir>
#include <stdexcept>
#include <vector>

#include "app/host_window.h"
#include "app/open_ibo_dialog.h"
#include "widgets/controls.h"

namespace pelkor::desktop {
namespace {

struct TabShot {
  const char* name;
  float mainX;  // the centre of the tab's band on the main strip
  float subX;   // the centre of a Sales Environment sub-tab's band, or a negative number
};

constexpr float kNoSubTab = -1;
constexpr TabShot kExpertTabs[] = {
    {"essentials", 40, kNoSubTab},         {"sales-advisor", 122, kNoSubTab},
    {"sales-environment-probe", 213, 20},  {"sales-environment-prove", 213, 66},
    {"sales-environment-close", 213, 110}, {"ibo-info", 305, kNoSubTab},
    {"ibo-note", 376, kNoSubTab}};
constexpr TabShot kBasicTabs[] = {{"essentials", 41, kNoSubTab},
                                  {"sales-advisor", 123, kNoSubTab},
                                  {"ibo-info", 205, kNoSubTab},
                                  {"ibo-note", 276, kNoSubTab}};

void Press(pelkedit::PelkIboEdit& component, const char* strip, float x) {
  component.Widgets().Get<pelkedit::PictureBox>(strip).UserMouseDown(0, 0, x, 0);
  QApplication::processEvents();
}

template <std::size_t N>
QStringList ShootTabs(HostWindow& window, const TabShot (&tabs)[N], const QDir& folder,
                      std::int32_t iboId) {
  QStringList written;
  const auto save = [&](QWidget* widget, const char* name) {
    const QString path = folder.filePath(QString("ibo%1-%2.png").arg(iboId).arg(name));
    if (!widget->grab().save(path)) throw std::runtime_error("cannot write " + path.toStdString());
    written << path;
  };
  // The whole window once, with its menu and status bar.
  save(&window, "window");
  pelkedit::PelkIboEdit& component = *window.Component();
  for (const TabShot& tab : tabs) {
    Press(component, "picMainTab", tab.mainX);
    if (tab.subX >= 0) Press(component, "picSEnvTab", tab.subX);
    save(window.Form(), tab.name);
  }
  // Back where the user starts.
  Press(component, "picMainTab", tabs[0].mainX);
  return written;
}

QStringList ShootIbo(HostWindow& window, const QDir& folder, std::int32_t iboId,
                     std::int32_t view) {
  if (!window.OpenIbo(iboId, view)) {
    throw std::runtime_error("IBO " + std::to_string(iboId) + " cannot be shown");
  }
  QApplication::processEvents();
  if (window.Component()->State().expertView) {
    return ShootTabs(window, kExpertTabs, folder, iboId);
  }
  return ShootTabs(window, kBasicTabs, folder, iboId);
}

}  // namespace

QStringList WriteScreenshots(HostWindow& window, EditorEnvironment& environment,
                             const QString& folder, std::optional<std::int32_t> iboId,
                             std::int32_t view) {
  QDir dir(folder);
  if (!dir.mkpath(".")) throw std::runtime_error("cannot create " + folder.toStdString());
  if (iboId) return ShootIbo(window, dir, *iboId, view);
  std::optional<std::int32_t> expert;
  std::optional<std::int32_t> basic;
  for (const IboSummary& ibo : environment.Db()->ListIbos(IboTable::kMain)) {
    if (ibo.expert && !expert) expert = ibo.id;
    if (!ibo.expert && !basic) basic = ibo.id;
  }
  if (!expert && !basic) throw std::runtime_error("the database holds no IBO to show");
  QStringList written;
  for (const auto& id : {expert, basic}) {
    if (id) written << ShootIbo(window, dir, *id, kMainView);
  }
  return written;
}

}  // namespace pelkor::desktop
