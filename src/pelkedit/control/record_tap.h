#pragma once

#include <memory>
#include <string>

#include "contracts/record.h"

namespace pelkedit {

class EditHistory;

// The record as the component's procedures reach it: every call goes to the record object the
// component holds, and every write that object took is told to the edit history.
class RecordTap final : public IRecord {
 public:
  RecordTap(const std::shared_ptr<IRecord>& record, EditHistory& history)
      : record_(record), history_(history) {}

  Variant Get(const std::string& name) override { return record_->Get(name); }
  void Set(const std::string& name, const Variant& value) override;
  Variant GetAt(const std::string& name, std::int32_t index) override {
    return record_->GetAt(name, index);
  }
  void SetAt(const std::string& name, std::int32_t index, const Variant& value) override;
  std::string StatusText(std::int32_t status) override { return record_->StatusText(status); }
  Blob GetIboData() override { return record_->GetIboData(); }
  void SetIboData(const Blob& data) override;

 private:
  const std::shared_ptr<IRecord>& record_;
  EditHistory& history_;
};

}  // namespace pelkedit
