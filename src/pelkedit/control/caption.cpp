#include "control/caption.h"

#include "contracts/names.h"
#include "contracts/record.h"

namespace pelkedit {

std::string FormCaption(std::int32_t iboNumber, const std::string& statusText) {
  return "IBO#" + std::to_string(iboNumber) + "     Status:   " + statusText;
}

std::string FormCaptionOf(IRecord& record) {
  return FormCaption(record.Get(prop::IboNumber).AsLong(), record.StatusText(-1));
}

}  // namespace pelkedit
