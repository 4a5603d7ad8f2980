#pragma once

#include <QDialog>
#include <memory>
#include <optional>
#include <vector>

#include "data/ibo_store.h"

class QLabel;
class QLineEdit;
class QTableView;

namespace pelkor::desktop {

class ContactPageModel;

// The contact picker: a search box that filters as you type, the matching contacts in a
// sortable list, their count, and a way to add someone who is not there yet. Enter or a
// double-click chooses, Escape cancels, the arrows move through the list from the search box.
class ContactLookupDialog : public QDialog {
  Q_OBJECT

 public:
  ContactLookupDialog(std::shared_ptr<IIboStore> store, QWidget* parent = nullptr);
  // The contact chosen, once the dialog has been accepted.
  const std::optional<Contact>& Chosen() const { return chosen_; }
  QLineEdit* Search() const { return search_; }
  QTableView* List() const { return list_; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Load(std::int64_t select = 0);
  void Refilter();
  void Choose();
  void AddContact();

  std::shared_ptr<IIboStore> store_;
  ContactPageModel* model_;
  QLineEdit* search_;
  QTableView* list_;
  QLabel* count_;
  std::optional<Contact> chosen_;
};

}  // namespace pelkor::desktop
