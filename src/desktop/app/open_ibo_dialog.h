#pragma once

#include <QDialog>
#include <cstdint>
#include <optional>
#include <vector>

#include "data/ibo_store.h"

class QTableWidget;

namespace pelkor::desktop {

// Lists the database's IBOs (id, number, company, status, mode) for the user to pick one.
class OpenIboDialog : public QDialog {
  Q_OBJECT
 public:
  // `source` names the database the list comes from.
  OpenIboDialog(std::vector<IboSummary> ibos, const QString& source, QWidget* parent = nullptr);
  // The IBO picked, once the dialog was accepted with a row selected.
  std::optional<IboSummary> Chosen() const;
  QTableWidget* Table() const { return table_; }

 private:
  std::vector<IboSummary> ibos_;
  QTableWidget* table_;
};

}  // namespace pelkor::desktop
