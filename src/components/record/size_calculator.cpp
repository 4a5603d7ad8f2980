#include <limits>

#include "record/ibo_properties.h"
#include "values/error.h"

namespace pelkor {
namespace {

// The stored size of a record is the length of its storage form: the data component keeps
// the bytes as they are.
class IboSizeCalculator final : public pelkedit::ISizeHelper {
 public:
  pelkedit::Variant GetPhysicalSize(const pelkedit::Blob& data) override {
    if (data.size() > static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max())) {
      pelkedit::Raise(
          pelkedit::errnum::kInvalidProcedureCall, kRecordSource,
          "IboData of " + std::to_string(data.size()) + " bytes is too large to measure");
    }
    return pelkedit::Variant(static_cast<std::int32_t>(data.size()));
  }
};

}  // namespace

std::shared_ptr<pelkedit::ISizeHelper> CreateIboSizeCalculator() {
  return std::make_shared<IboSizeCalculator>();
}

}  // namespace pelkor
