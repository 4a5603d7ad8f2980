#include "record/ibo_properties.h"

#include <array>

#include "record/record_codec.h"
#include "record/record_schema.h"
#include "values/error.h"

namespace pelkor {
namespace {

using detail::PropertyDef;
using detail::RecordValues;
using pelkedit::Variant;
using pelkedit::errnum::kNotSupported;

// Display texts of EditIBOStatusEnum, by code.
constexpr std::array<const char*, 5> kStatusTexts = {"Unknown", "Open", "Won", "Lost", "Cancelled"};
constexpr std::int32_t kOwnStatus = -1;

[[noreturn]] void Refuse(std::int32_t number, const std::string& description) {
  pelkedit::Raise(number, kRecordSource, description);
}

const PropertyDef& Require(const std::string& name) {
  const PropertyDef* def = detail::FindProperty(name);
  if (def == nullptr) {
    Refuse(kNotSupported,
           "Object doesn't support this property or method: no property '" + name + "'");
  }
  return *def;
}

// Indexed properties are reached only with a slot, the others only without one.
const PropertyDef& RequireKind(const std::string& name, bool indexed) {
  const PropertyDef& def = Require(name);
  if (def.info.indexed == indexed) return def;
  Refuse(kNotSupported, indexed ? "Property '" + name + "' takes no trial-close index"
                                : "Property '" + name + "' needs a trial-close index (0 to 9)");
}

std::size_t SlotOf(const PropertyDef& def, std::int32_t index) {
  if (index < 0 || index >= detail::kTrialCloseSlots) {
    Refuse(pelkedit::errnum::kSubscriptOutOfRange, "Subscript out of range: '" + def.info.name +
                                                       "' has slots 0 to 9, not " +
                                                       std::to_string(index));
  }
  return def.firstSlot + static_cast<std::size_t>(index);
}

class IboProperties final : public pelkedit::IRecord {
 public:
  Variant Get(const std::string& name) override {
    const PropertyDef& def = RequireKind(name, false);
    if (def.derive != nullptr) return def.derive(values_);
    return values_[def.firstSlot];
  }

  void Set(const std::string& name, const Variant& value) override {
    const PropertyDef& def = RequireKind(name, false);
    if (def.info.readOnly) {
      Refuse(kNotSupported, "Property '" + name + "' is read-only: the record derives it");
    }
    values_[def.firstSlot] = detail::Accept(def, value);
  }

  Variant GetAt(const std::string& name, std::int32_t index) override {
    const PropertyDef& def = RequireKind(name, true);
    return values_[SlotOf(def, index)];
  }

  void SetAt(const std::string& name, std::int32_t index, const Variant& value) override {
    const PropertyDef& def = RequireKind(name, true);
    const std::size_t slot = SlotOf(def, index);
    values_[slot] = detail::Accept(def, value);
  }

  std::string StatusText(std::int32_t status) override {
    if (status == kOwnStatus) status = Get("Status").AsLong();
    return StatusTextOf(status);
  }

  pelkedit::Blob GetIboData() override { return detail::EncodeRecord(values_); }

  // Decoded in full before anything is replaced: bad bytes leave the record as it was.
  void SetIboData(const pelkedit::Blob& data) override { values_ = detail::DecodeRecord(data); }

 private:
  RecordValues values_ = detail::DefaultValues();
};

}  // namespace

std::string StatusTextOf(std::int32_t status) {
  if (status < 0 || static_cast<std::size_t>(status) >= kStatusTexts.size()) {
    return kStatusTexts[0];
  }
  return kStatusTexts[static_cast<std::size_t>(status)];
}

const std::vector<PropertyInfo>& RecordSchema() {
  static const std::vector<PropertyInfo> schema = [] {
    std::vector<PropertyInfo> infos;
    for (const auto& def : detail::PropertyDefs()) infos.push_back(def.info);
    return infos;
  }();
  return schema;
}

std::shared_ptr<pelkedit::IRecord> CreateIboProperties() {
  return std::make_shared<IboProperties>();
}

void RegisterRecordComponents(pelkedit::ObjectFactory& factory) {
  factory.Register(pelkedit::kRecordProgId, [] { return CreateIboProperties(); });
  factory.Register(pelkedit::kSizeHelperProgId, [] { return CreateIboSizeCalculator(); });
}

}  // namespace pelkor
