#pragma once

#include <QMainWindow>
#include <QPointer>
#include <QTimer>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "app/editor_environment.h"
#include "app/host_window.h"
#include "pipeline/pipeline_model.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QTabBar;
class QTableView;

namespace pelkor::desktop {

class MatrixPicture;
class ForecastPicture;

// The home of pelkor-edit: the deals of the main table (or the archive), searched as the user
// types, filtered by status and owner, sorted by any column, with the matrix and the forecast
// beside them. A deal opens in the editor's own window; the pipeline stays.
class PipelineWindow : public QMainWindow {
  Q_OBJECT
 public:
  explicit PipelineWindow(EditorEnvironment& environment, QWidget* parent = nullptr);
  ~PipelineWindow() override;

  // Opens a deal in an editor window of its own (raising the one it is open in already).
  void OpenDeal(std::int32_t id, bool archived);
  // The editor window last opened or raised, while it is open.
  HostWindow* Editor() const { return last_; }
  // The editor window a deal is open in, or null.
  HostWindow* EditorOf(std::int32_t id) const;

  // The commands of the menus.
  void NewDeal();
  void OpenSelected();
  void ArchiveSelected();
  void RestoreSelected();
  void DeleteSelected();
  void ExportShown();
  void OpenDatabase();
  void NewDatabase();
  void Refresh();

  // The window's parts, built when first shown or asked for.
  QTableView* Table() {
    Build();
    return table_;
  }
  PipelineModel* Model() const { return model_; }
  QLineEdit* Search() {
    Build();
    return search_;
  }
  QTabBar* Tables() {
    Build();
    return tables_;
  }
  MatrixPicture* Matrix() {
    Build();
    return matrix_;
  }
  ForecastPicture* Forecast() {
    Build();
    return forecast_;
  }
  // Shows the archive (true) or the main table.
  void ShowArchive(bool archive);
  // Reads the rows for the filters as they are now (the search waits for a pause in typing).
  void ApplyFilters();
  EditorEnvironment& Environment() { return environment_; }
  // Selects the row of a deal among those fetched.
  void SelectDeal(std::int32_t id);

 protected:
  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void setVisible(bool visible) override;
  void showEvent(QShowEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  // Makes the widgets and menus (once).
  void Build();
  void BuildMenus();
  QWidget* BuildFilters();
  void UpdateCounts();
  // Reads the matrix's and the forecast's deals again: when `reread`, else only when the owner
  // filter has changed since they were read.
  void UpdatePictures(bool reread);
  const IboSummary* Selected() const;
  // Runs a store call; a failure is shown. Returns whether it ran.
  bool StoreCall(const std::function<void()>& call);
  void SwitchDatabase(const QString& name, StoreOpening opening);

  EditorEnvironment& environment_;
  PipelineModel* model_;
  QTableView* table_ = nullptr;
  QTabBar* tables_ = nullptr;
  QLineEdit* search_ = nullptr;
  QComboBox* status_ = nullptr;
  QCheckBox* mine_ = nullptr;
  QLabel* count_ = nullptr;
  // Said over the empty table: how to make the first deal, or that nothing matches.
  QLabel* empty_ = nullptr;
  MatrixPicture* matrix_ = nullptr;
  ForecastPicture* forecast_ = nullptr;
  QTimer typing_;
  std::vector<QPointer<HostWindow>> editors_;
  QPointer<HostWindow> last_;
  // Saves the editor has made when the pipeline last read its rows.
  int writesSeen_ = 0;
  // The owner filter the pictures were read for; nullopt before they are read.
  std::optional<std::string> picturesOwner_;
  // Whether the rows were read: not before the window is first shown.
  bool loaded_ = false;
};

}  // namespace pelkor::desktop
