#include "tabs/info/info_tab.h"

#include "control/editor_context.h"
#include "control/page_layout.h"
#include "trace/error_paths.h"

namespace pelkedit {
namespace {

struct ContactField {
  const char* label;
  const char* box;
  const char* caption;
  std::int32_t maxLength;
};

const ContactField kContactFields[] = {
    {"lblConFirstName", "txtConFirstName", "First Name", 63},
    {"lblConLastName", "txtConLastName", "Last Name", 63},
    {"lblConCompany", "txtConCompany", "Company", 127},
    {"lblConAddress", "txtConAddress", "Address", 255},
    {"lblConPhone", "txtConPhone", "Phone", 63},
    {"lblConEmail", "txtConEmail", "E-mail", 127},
};

}  // namespace

void InfoTab::Build(WidgetRegistry& widgets, Frame& frame) {
  PageLayout page(widgets, frame);
  constexpr float kRowGap = 8;
  float top = 12;
  for (const ContactField& field : kContactFields) {
    page.Caption(field.label, 12, top + 3, 90, field.caption);
    page.Place<TextBox>(field.box, 108, top, 300, layout::kFieldHeight);
    top += layout::kFieldHeight + kRowGap;
  }
}

void InfoTab::InitIBOInfo() {
  RunMethod(EditorContext::Proc("InitIBOInfo"), [&] {
    for (const ContactField& field : kContactFields) {
      ctx_.Get<TextBox>(field.box).SetMaxLength(field.maxLength);
    }
  });
}

}  // namespace pelkedit
