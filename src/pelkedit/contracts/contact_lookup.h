#pragma once

#include <string>

#include "platform/com_object.h"

namespace pelkedit {

inline constexpr const char* kContactLookupProgId = "PelkContactLkpLib.ContactLkpDlg";

// The contact book's modal look-up dialog. The members are read after ShowDialog has returned;
// Cancelled says whether a contact was chosen.
class IContactLookup : public ComObject {
 public:
  virtual std::string FirstName() = 0;
  virtual std::string LastName() = 0;
  virtual std::string Address() = 0;
  virtual std::string Company() = 0;
  virtual std::string Phone() = 0;
  virtual std::string Email() = 0;
  virtual void ShowDialog() = 0;
  virtual bool Cancelled() = 0;
};

}  // namespace pelkedit
