#pragma once

#include <array>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "contracts/contact_lookup.h"
#include "recording.h"

namespace pelkscript {

// The contact a scenario's user picks (`lookup FIRST LAST ADDRESS COMPANY PHONE EMAIL`), or
// none for `lookup cancel`.
struct LookupAnswer {
  std::optional<std::array<std::string, 6>> contact;
};

// The look-up dialog of a scenario: ShowDialog is recorded as `dialog ContactLkpDlg shown` and
// takes the next queued answer; with none queued the dialog is cancelled and the world is told.
// Every member can be made to fail with `fail lookup.NAME`.
class ScriptedContactLookup : public pelkedit::IContactLookup {
 public:
  ScriptedContactLookup(Recording recording, std::shared_ptr<std::deque<LookupAnswer>> answers,
                        std::function<void(const std::string&)> unanswered)
      : rec_(recording), answers_(std::move(answers)), unanswered_(std::move(unanswered)) {}

  std::string FirstName() override { return Field("FirstName", 0); }
  std::string LastName() override { return Field("LastName", 1); }
  std::string Address() override { return Field("Address", 2); }
  std::string Company() override { return Field("Company", 3); }
  std::string Phone() override { return Field("Phone", 4); }
  std::string Email() override { return Field("Email", 5); }
  void ShowDialog() override;
  bool Cancelled() override;

 private:
  std::string Field(const char* member, std::size_t index);
  Recording rec_;
  std::shared_ptr<std::deque<LookupAnswer>> answers_;
  std::function<void(const std::string&)> unanswered_;
  LookupAnswer shown_;
};

// The members `fail lookup.NAME` may name.
bool ContactLookupOperation(const std::string& name);

}  // namespace pelkscript
