#include "control/record_tap.h"

#include "control/edit_history.h"

namespace pelkedit {

// A write that raised changed nothing, so only writes that returned are logged.
void RecordTap::Set(const std::string& name, const Variant& value) {
  record_->Set(name, value);
  history_.Written(RecordWrite{std::nullopt, name, std::nullopt, value});
}

void RecordTap::SetAt(const std::string& name, std::int32_t index, const Variant& value) {
  record_->SetAt(name, index, value);
  history_.Written(RecordWrite{std::nullopt, name, index, value});
}

void RecordTap::SetIboData(const Blob& data) {
  record_->SetIboData(data);
  history_.Written(RecordWrite{data, {}, std::nullopt, {}});
}

}  // namespace pelkedit
