#include "tabs/info/info_tab.h"

#include "contracts/contact_lookup.h"
#include "contracts/names.h"
#include "control/editor_context.h"
#include "control/page_layout.h"
#include "control/record_saving.h"
#include "trace/error_paths.h"
#include "values/text.h"
#include "widgets/product_view_box.h"

namespace pelkedit {

struct ContactField {
  const char* label;
  const char* box;
  const char* caption;
  const char* property;
  std::int32_t maxLength;
};

namespace {

constexpr const char* kProductsStep = "Products";

// The boxes as the page shows them, top to bottom.
const ContactField kFirstName{"lblConFirstName", "txtConFirstName", "First Name",
                              prop::ContactFirstName, 63};
const ContactField kLastName{"lblConLastName", "txtConLastName", "Last Name", prop::ContactLastName,
                             63};
const ContactField kCompany{"lblConCompany", "txtConCompany", "Company", prop::ContactCompany, 127};
const ContactField kAddress{"lblConAddress", "txtConAddress", "Address", prop::ContactAddress, 255};
const ContactField kPhone{"lblConPhone", "txtConPhone", "Phone", prop::ContactPhone, 63};
const ContactField kEmail{"lblConEmail", "txtConEmail", "E-mail", prop::ContactEmail, 127};
// Reading order on the page: two columns, left to right.
const ContactField* const kShown[] = {&kFirstName, &kLastName, &kCompany,
                                      &kPhone,     &kAddress,  &kEmail};
// The orders the procedures take them in.
const ContactField* const kLimitOrder[] = {&kFirstName, &kLastName, &kCompany,
                                           &kAddress,   &kEmail,    &kPhone};
const ContactField* const kFillOrder[] = {&kFirstName, &kLastName, &kAddress,
                                          &kCompany,   &kPhone,    &kEmail};
const ContactField* const kLookupCommitOrder[] = {&kFirstName, &kLastName, &kCompany,
                                                  &kAddress,   &kEmail,    &kPhone};
// By property name, alphabetically.
const ContactField* const kSaveOrder[] = {&kAddress,   &kCompany,  &kEmail,
                                          &kFirstName, &kLastName, &kPhone};

constexpr const char* kContactFrame = "fraContactInfo";
constexpr const char* kContactLookup = "cmdContactLookup";
constexpr const char* kContactDescription =
    "The person at the customer this deal is with; Look Up... fills it from the contact book.";
constexpr float kLookupButtonWidth = 84;
constexpr const char* kProductFrame = "fraProductInfo";
constexpr const char* kProductTooltip =
    "Right click last two columns to specify the information to be displayed in the view.";

// Layout in pixels: the contact in two columns of three rows, the product list below it.
constexpr float kMargin = 10;
constexpr float kGroupWidth = 580;
constexpr float kGroupTitle = 20;
constexpr float kContactTop = 6;
constexpr float kContactHeight = 144;
constexpr int kContactColumns = 2;
constexpr float kColumnLeft[kContactColumns] = {10, 296};
constexpr float kCaptionWidth = 70;
constexpr float kBoxOffset = 72;
constexpr float kBoxWidth = 200;
constexpr float kRowPitch = 30;
constexpr float kProductTop = 156;
constexpr float kProductHeight = 174;
constexpr float kViewInset = 8;
// Under the fields, at the right: the contact book fills them all.
constexpr float kLookupButtonTop = kGroupTitle + 3 * kRowPitch;

}  // namespace

void InfoTab::Build(WidgetRegistry& widgets, Frame& frame) {
  PageLayout page(widgets, frame);
  auto& contact =
      page.Place<Frame>(kContactFrame, kMargin, kContactTop, kGroupWidth, kContactHeight);
  contact.SetCaption("Contact Information");
  // The contact keeps its rows in a larger window; names, addresses and e-mails are long, so
  // both columns take half the extra width. The product list takes the rest of the room.
  contact.SetAnchors(anchor::kGrowWidth);
  PageLayout contactLayout(widgets, contact);
  int slot = 0;
  for (const ContactField* field : kShown) {
    const float left = kColumnLeft[slot % kContactColumns];
    const float top = kGroupTitle + static_cast<float>(slot / kContactColumns) * kRowPitch;
    const bool rightColumn = slot % kContactColumns != 0;
    contactLayout.FieldCaption(field->label, left, top, kCaptionWidth, field->caption)
        .SetAnchors(rightColumn ? anchor::kFollowHalfRight : anchor::kNone);
    auto& box = contactLayout.Place<TextBox>(field->box, left + kBoxOffset, top, kBoxWidth,
                                             layout::kFieldHeight);
    box.SetDescription(kContactDescription);
    box.SetAnchors(rightColumn ? anchor::kFollowHalfRight | anchor::kGrowHalfWidth
                               : anchor::kGrowHalfWidth);
    ++slot;
  }
  auto& lookup =
      contactLayout.Place<Button>(kContactLookup, kGroupWidth - kLookupButtonWidth - kMargin,
                                  kLookupButtonTop, kLookupButtonWidth, layout::kFieldHeight);
  lookup.SetCaption("Look Up...");
  lookup.SetDescription("Fills the contact from the contact book.");
  lookup.SetAnchors(anchor::kFollowRight);
  auto& products =
      page.Place<Frame>(kProductFrame, kMargin, kProductTop, kGroupWidth, kProductHeight);
  products.SetCaption("Product Information");
  products.SetAnchors(anchor::kFill);
  auto& view = PageLayout(widgets, products)
                   .Place<ProductViewBox>(widget::ProductView1, kViewInset, kGroupTitle,
                                          kGroupWidth - 2 * kViewInset,
                                          kProductHeight - kGroupTitle - kViewInset);
  view.SetTooltip(kProductTooltip);
  view.SetDescription("Products");
  view.SetAnchors(anchor::kFill);
  // The view is another component of the product; a creation that fails is kept and raised
  // by the first call the editor makes of it, on the error path of that call.
  try {
    view.Attach(CreateObjectAs<IProductView>(ctx_.platform, kProductViewProgId));
  } catch (const PelkError& error) {
    view.CreationFailed(error);
  }
}

void InfoTab::Wire() {
  ctx_.Get<Button>(kContactLookup).onClick = [this] { CmdContactLookupClick(); };
  for (const ContactField* field : kShown) {
    ctx_.Get<TextBox>(field->box).onLostFocus = [this, field] {
      RunHandler(EditorContext::Proc(std::string(field->box) + "_LostFocus"), ctx_.platform, [&] {
        if (!ctx_.state.loading) IBOInfoSaveContactField(*field);
      });
    };
  }
}

void InfoTab::LookupContact(bool& cancelled, ContactFields& contact) {
  RunMethod(EditorContext::Proc("LookupContact"), [&] {
    const auto dialog = CreateObjectAs<IContactLookup>(ctx_.platform, kContactLookupProgId);
    dialog->ShowDialog();
    cancelled = dialog->Cancelled();
    contact.first = dialog->FirstName();
    contact.last = dialog->LastName();
    contact.address = dialog->Address();
    contact.company = dialog->Company();
    contact.phone = dialog->Phone();
    contact.email = dialog->Email();
  });
}

void InfoTab::CmdContactLookupClick() {
  RunHandler(EditorContext::Proc("cmdContactLookup_Click"), ctx_.platform, [&] {
    bool cancelled = true;
    ContactFields contact;
    LookupContact(cancelled, contact);
    if (cancelled) return;
    const std::pair<const ContactField*, const std::string*> filled[] = {
        {&kFirstName, &contact.first}, {&kLastName, &contact.last}, {&kAddress, &contact.address},
        {&kCompany, &contact.company}, {&kPhone, &contact.phone},   {&kEmail, &contact.email}};
    for (const auto& [field, text] : filled) {
      ctx_.Get<TextBox>(field->box)
          .SetText(CharLeft(*text, static_cast<std::size_t>(field->maxLength)));
    }
    ctx_.OneStep("Contact", [&] {
      for (const ContactField* field : kLookupCommitOrder) IBOInfoSaveContactField(*field);
    });
  });
}

void InfoTab::InitIBOInfo() {
  RunMethod(EditorContext::Proc("InitIBOInfo"), [&] {
    for (const ContactField* field : kLimitOrder) {
      ctx_.Get<TextBox>(field->box).SetMaxLength(field->maxLength);
    }
    InitContactInfo();
    InitProducts();
  });
}

void InfoTab::InitProducts() {
  RunMethod(EditorContext::Proc("InitProducts"),
            [&] { View().SetProducts(ctx_.Rec().Get(prop::Products).AsString()); });
}

void InfoTab::IBOInfoSaveProduct() {
  RunMethod(EditorContext::Proc("IBOInfoSaveProduct"), [&] {
    IProductView& view = View();
    ctx_.EditRecord({kProductsStep, kNotWhileLoading, [&] { return !view.ProductsChanged(); }},
                    [&] { ctx_.Rec().Set(prop::Products, view.ProductText()); });
  });
}

void InfoTab::IBOInfoSaveProductValue() {
  RunMethod(EditorContext::Proc("IBOInfoSaveProductValue"), [&] {
    ctx_.EditRecord({kProductsStep}, [&] {
      const Currency total = View().TotalValue();
      const auto units = static_cast<double>(total.WholeUnits());
      const auto hundredths = static_cast<double>(total.Hundredths());
      IRecord& rec = ctx_.Rec();
      bool written = false;
      if (rec.Get(prop::TotalValueUnits).AsDouble() != units) {
        rec.Set(prop::TotalValueUnits, units);
        written = true;
      }
      if (rec.Get(prop::TotalValueHundredths).AsDouble() != hundredths) {
        rec.Set(prop::TotalValueHundredths, hundredths);
        written = true;
      }
      return written;
    });
  });
}

IProductView& InfoTab::View() const {
  return ctx_.Get<ProductViewBox>(widget::ProductView1).View();
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

void InfoTab::IBOInfoSaveContactField(const ContactField& field) {
  RunMethod(EditorContext::Proc("IBOInfoSaveContactField"), [&] {
    const TextBox& box = ctx_.Get<TextBox>(field.box);
    IRecord& rec = ctx_.Rec();
    ctx_.EditRecord({field.caption, kNotWhileLoading,
                     [&] { return box.Text() == rec.Get(field.property).AsString(); }},
                    [&] { rec.Set(field.property, box.Text()); });
  });
}

void InfoTab::SaveIBOInfoTab() {
  RunMethod(EditorContext::Proc("SaveIBOInfoTab"), [&] {
    if (ctx_.state.loading) return;
    // The list and its total are one change of the user's.
    ctx_.OneStep(kProductsStep, [&] {
      IBOInfoSaveProduct();
      IBOInfoSaveProductValue();
    });
    for (const ContactField* field : kSaveOrder) IBOInfoSaveContactField(*field);
  });
}

}  // namespace pelkedit
