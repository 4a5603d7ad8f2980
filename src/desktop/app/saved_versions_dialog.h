#pragma once

#include <QDialog>
#include <cstdint>
#include <vector>

#include "contracts/record.h"
#include "data/ibo_store.h"

class QTableWidget;
class QPushButton;

namespace pelkor::desktop {

// IBO > History: the versions the IBO's saves replaced, newest first; what differs between the
// one picked and the IBO open; and that version taken back as unsaved changes to look at and
// save.
class SavedVersionsDialog : public QDialog {
  Q_OBJECT
 public:
  SavedVersionsDialog(std::int32_t iboId, std::vector<SavedVersion> versions,
                      pelkedit::IRecord& open, QWidget* parent = nullptr);

  // The version picked when the dialog was accepted (Restore), or nullptr.
  const SavedVersion* Chosen() const;

 private:
  void ShowDifferences();

  std::vector<SavedVersion> versions_;
  pelkedit::IRecord& open_;
  QTableWidget* list_ = nullptr;
  QTableWidget* differences_ = nullptr;
  QPushButton* restore_ = nullptr;
};

}  // namespace pelkor::desktop
