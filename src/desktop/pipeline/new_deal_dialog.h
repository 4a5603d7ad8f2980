#pragma once

#include <QDialog>
#include <memory>

#include "data/ibo_store.h"

class QCheckBox;
class QDateEdit;
class QLineEdit;
class QPushButton;

namespace pelkor::desktop {

// File > New IBO: the customer's company (completed from the contact book as it is typed), the
// contact (picked in the look-up, or typed), expert mode, and when the deal will happen.
class NewDealDialog : public QDialog {
  Q_OBJECT
 public:
  NewDealDialog(std::shared_ptr<IIboStore> store, QWidget* parent = nullptr);
  // What the user gave, once accepted.
  NewIbo Deal() const;
  QLineEdit* Company() const { return company_; }

 private:
  void PickContact();
  void CompleteCompany(const QString& typed);
  void UpdateOk();

  std::shared_ptr<IIboStore> store_;
  QLineEdit* company_;
  QLineEdit* first_;
  QLineEdit* last_;
  QCheckBox* expert_;
  QCheckBox* dated_;
  QDateEdit* wwih_;
  QPushButton* ok_;
};

}  // namespace pelkor::desktop
