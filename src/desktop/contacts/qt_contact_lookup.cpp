#include "contacts/qt_contact_lookup.h"

#include <QApplication>

#include "contacts/contact_lookup_dialog.h"

namespace pelkor::desktop {

void QtContactLookup::ShowDialog() {
  ContactLookupDialog dialog(store_, QApplication::activeWindow());
  chosen_.reset();
  if (dialog.exec() == QDialog::Accepted) chosen_ = dialog.Chosen();
}

}  // namespace pelkor::desktop
