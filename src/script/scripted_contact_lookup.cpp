#include "scripted_contact_lookup.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace pelkscript {

void ScriptedContactLookup::ShowDialog() {
  rec_.log.Add(WorldLog::Kind::kCalls, "dialog ContactLkpDlg shown");
  rec_.faults.Check("lookup", "ShowDialog", pelkedit::kContactLookupProgId);
  if (answers_->empty()) {
    shown_ = {};
    if (unanswered_) unanswered_("unanswered dialog ContactLkpDlg cancelled");
    return;
  }
  shown_ = answers_->front();
  answers_->pop_front();
}

bool ScriptedContactLookup::Cancelled() {
  rec_.faults.Check("lookup", "Cancelled", pelkedit::kContactLookupProgId);
  return !shown_.contact.has_value();
}

std::string ScriptedContactLookup::Field(const char* member, std::size_t index) {
  rec_.faults.Check("lookup", member, pelkedit::kContactLookupProgId);
  return shown_.contact ? (*shown_.contact)[index] : std::string();
}

bool ContactLookupOperation(const std::string& name) {
  constexpr std::array<std::string_view, 8> kMembers = {
      "FirstName", "LastName", "Address", "Company", "Phone", "Email", "ShowDialog", "Cancelled"};
  return std::find(kMembers.begin(), kMembers.end(), name) != kMembers.end();
}

}  // namespace pelkscript
