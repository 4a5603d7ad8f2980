#pragma once

#include <memory>
#include <optional>

#include "contracts/contact_lookup.h"
#include "data/ibo_store.h"

namespace pelkor::desktop {

// The look-up dialog component over the contact book of the IBO database.
class QtContactLookup : public pelkedit::IContactLookup {
 public:
  explicit QtContactLookup(std::shared_ptr<IIboStore> store) : store_(std::move(store)) {}
  std::string FirstName() override { return chosen_ ? chosen_->first : ""; }
  std::string LastName() override { return chosen_ ? chosen_->last : ""; }
  std::string Address() override { return chosen_ ? chosen_->address : ""; }
  std::string Company() override { return chosen_ ? chosen_->company : ""; }
  std::string Phone() override { return chosen_ ? chosen_->phone : ""; }
  std::string Email() override { return chosen_ ? chosen_->email : ""; }
  void ShowDialog() override;
  bool Cancelled() override { return !chosen_.has_value(); }

 private:
  std::shared_ptr<IIboStore> store_;
  std::optional<Contact> chosen_;
};

}  // namespace pelkor::desktop
