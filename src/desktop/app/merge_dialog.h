#pragma once

#include <QDialog>
#include <vector>

#include "contracts/record.h"
#include "record/record_merge.h"

class QComboBox;

namespace pelkor::desktop {

// The answers both people changed since the user opened the IBO: for each, the user keeps
// theirs or the stored one.
class MergeDialog : public QDialog {
  Q_OBJECT
 public:
  MergeDialog(const std::vector<MergeConflict>& conflicts, pelkedit::IRecord& mine,
              pelkedit::IRecord& theirs, QWidget* parent = nullptr);

  // Whether the user keeps their own answer, conflict by conflict.
  std::vector<bool> KeepMine() const;

 private:
  std::vector<QComboBox*> choices_;
};

}  // namespace pelkor::desktop
