#include "tabs/environment/scales.h"

#include <limits>

#include "control/editor_context.h"
#include "trace/error_paths.h"
#include "widgets/controls.h"

namespace pelkedit {

namespace scale {
const Scale& Level() {
  static const Scale items{"Unknown", "Low", "Medium", "High"};
  return items;
}
const Scale& Urgency() {
  static const Scale items{"Unknown", "Low", "Normal", "Urgent"};
  return items;
}
const Scale& Budget() {
  static const Scale items{"Unknown", "Matches", "Higher", "Much higher"};
  return items;
}
const Scale& Funding() {
  static const Scale items{"Unknown", "Low chance", "Fair chance", "Very high"};
  return items;
}
const Scale& Familiarity() {
  static const Scale items{"Low", "Medium", "High"};
  return items;
}
const Scale& Relationship() {
  static const Scale items{"Bad", "Ok", "Good"};
  return items;
}
const Scale& Proof() {
  static const Scale items{"None", "Very low", "Low", "Medium", "High", "Very high"};
  return items;
}
}  // namespace scale

void FillCombo(ListBox& list, const Scale& items) {
  RunMethod(EditorContext::Proc("FillCombo"), [&] {
    list.Clear();
    for (const std::string& item : items) list.AddItem(item);
  });
}

void SelectStoredCode(ListBox& list, std::int32_t code) {
  // Narrowed to a list position first: a code beyond 16 bits is never wrapped into range.
  const bool position = code >= std::numeric_limits<std::int16_t>::min() &&
                        code <= std::numeric_limits<std::int16_t>::max();
  if (!position || code < -1 || code >= list.ListCount()) {
    Raise(errnum::kInvalidPropertyValue, list.Name(),
          "The stored answer " + std::to_string(code) + " cannot be shown in " + list.Name() +
              ", which holds " + std::to_string(list.ListCount()) + " items.");
  }
  list.SetListIndex(code);
}

}  // namespace pelkedit
