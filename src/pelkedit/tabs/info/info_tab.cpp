#include "tabs/info/info_tab.h"

#include "contracts/names.h"
#include "control/editor_context.h"
#include "control/page_layout.h"
#include "control/record_saving.h"
#include "trace/error_paths.h"

namespace pelkedit {
namespace {

struct ContactField {
  const char* label;
  const char* box;
  const char* caption;
  const char* property;
  std::int32_t maxLength;
};

// The boxes as the page shows them, top to bottom.
const ContactField kFirstName{"lblConFirstName", "txtConFirstName", "First Name",
                              prop::ContactFirstName, 63};
const ContactField kLastName{"lblConLastName", "txtConLastName", "Last Name", prop::ContactLastName,
                             63};
const ContactField kCompany{"lblConCompany", "txtConCompany", "Company", prop::ContactCompany, 127};
const ContactField kAddress{"lblConAddress", "txtConAddress", "Address", prop::ContactAddress, 255};
const ContactField kPhone{"lblConPhone", "txtConPhone", "Phone", prop::ContactPhone, 63};
const ContactField kEmail{"lblConEmail", "txtConEmail", "E-mail", prop::ContactEmail, 127};
const ContactField* const kShown[] = {&kFirstName, &kLastName, &kCompany,
                                      &kAddress,   &kPhone,    &kEmail};
// The orders the procedures take them in.
const ContactField* const kLimitOrder[] = {&kFirstName, &kLastName, &kCompany,
                                           &kAddress,   &kEmail,    &kPhone};
const ContactField* const kFillOrder[] = {&kFirstName, &kLastName, &kAddress,
                                          &kCompany,   &kPhone,    &kEmail};
// By property name, alphabetically.
const ContactField* const kSaveOrder[] = {&kAddress,   &kCompany,  &kEmail,
                                          &kFirstName, &kLastName, &kPhone};

constexpr float kMargin = 12;
constexpr float kCaptionWidth = 90;
constexpr float kBoxLeft = 108;
constexpr float kBoxWidth = 300;
constexpr float kRowGap = 8;

}  // namespace

void InfoTab::Build(WidgetRegistry& widgets, Frame& frame) {
  PageLayout page(widgets, frame);
  float top = kMargin;
  for (const ContactField* field : kShown) {
    page.FieldCaption(field->label, kMargin, top, kCaptionWidth, field->caption);
    page.Place<TextBox>(field->box, kBoxLeft, top, kBoxWidth, layout::kFieldHeight);
    top += layout::kFieldHeight + kRowGap;
  }
}

void InfoTab::Wire() {
  for (const ContactField* field : kShown) {
    auto& box = ctx_.Get<TextBox>(field->box);
    box.onLostFocus = [this, &box, field] {
      RunHandler(EditorContext::Proc(std::string(field->box) + "_LostFocus"), ctx_.platform, [&] {
        if (!ctx_.state.loading) IBOInfoSaveContactField(box, field->property);
      });
    };
  }
}

void InfoTab::InitIBOInfo() {
  RunMethod(EditorContext::Proc("InitIBOInfo"), [&] {
    for (const ContactField* field : kLimitOrder) {
      ctx_.Get<TextBox>(field->box).SetMaxLength(field->maxLength);
    }
    InitContactInfo();
  });
}

void InfoTab::InitContactInfo() {
  RunMethod(EditorContext::Proc("InitContactInfo"), [&] {
    IRecord& rec = ctx_.Rec();
    // A stored text longer than its box is shown shortened; the record keeps it until stored.
    for (const ContactField* field : kFillOrder) {
      ctx_.Get<TextBox>(field->box)
          .SetText(ValidateField(rec.Get(field->property).AsString(), field->maxLength));
    }
  });
}

void InfoTab::IBOInfoSaveContactField(TextBox& box, const std::string& property) {
  RunMethod(EditorContext::Proc("IBOInfoSaveContactField"), [&] {
    if (ctx_.state.loading) return;
    IRecord& rec = ctx_.Rec();
    if (box.Text() == rec.Get(property).AsString()) return;
    rec.Set(property, box.Text());
    ctx_.MarkIboAsDirty();
  });
}

void InfoTab::SaveIBOInfoTab() {
  RunMethod(EditorContext::Proc("SaveIBOInfoTab"), [&] {
    if (ctx_.state.loading) return;
    for (const ContactField* field : kSaveOrder) {
      IBOInfoSaveContactField(ctx_.Get<TextBox>(field->box), field->property);
    }
  });
}

}  // namespace pelkedit
