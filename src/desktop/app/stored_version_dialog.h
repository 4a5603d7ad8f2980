#pragma once

#include <QDialog>
#include <QString>
#include <cstdint>
#include <vector>

#include "contracts/record.h"

class QTableWidget;

namespace pelkor::desktop {

// One answer whose value in the editor differs from the stored record's, in the editor's
// words: the question ("Will It Happen?", "Barriers? (trial close 3)") and the values as shown
// ("High", a date in the user's format); a product list gives a line per product added,
// removed or changed.
struct PropertyDifference {
  QString property;
  QString yours;
  QString stored;
};

// The stored properties (every trial-close slot of the indexed ones) whose values differ, in
// the record's order; what the editor keeps up to date by itself (the dirty flag, the modified
// date, the advisor's results) is left out.
std::vector<PropertyDifference> DifferencesBetween(pelkedit::IRecord& yours,
                                                   pelkedit::IRecord& stored);

// Fills a three-column table (question, one side, the other) with the differences.
void ListDifferences(QTableWidget& table, const std::vector<PropertyDifference>& differences);

// After a save was refused because someone else saved the IBO: what differs between the
// editor and the stored version, to copy or note before reopening the newer record.
class StoredVersionDialog : public QDialog {
  Q_OBJECT
 public:
  // exec() returns this when the user chose to discard the editor's changes and reopen.
  static constexpr int kReopen = 2;
  // ...and this when the user chose to merge their changes into the stored version.
  static constexpr int kMerge = 3;

  StoredVersionDialog(std::int32_t iboId, std::vector<PropertyDifference> differences,
                      QWidget* parent = nullptr);

  // The differences as tab-separated lines with a heading, as Copy puts them on the clipboard.
  QString AsText() const;

 private:
  void ConfirmReopen();

  std::int32_t iboId_;
  std::vector<PropertyDifference> differences_;
};

}  // namespace pelkor::desktop
