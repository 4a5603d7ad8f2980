#include "widget_observation.h"

#include <functional>
#include <map>

#include "script_error.h"
#include "scripted_product_view.h"
#include "values/error.h"
#include "widgets/controls.h"
#include "widgets/product_view_box.h"

namespace pelkscript {
namespace {

using pelkedit::Variant;
using pelkedit::Widget;

template <typename W>
const W* As(const Widget& widget) {
  return dynamic_cast<const W*>(&widget);
}

[[noreturn]] void NoSuch(const Widget& widget, const std::string& property) {
  throw ScriptError(widget.Name() + " (" + pelkedit::WidgetKindName(widget.Kind()) +
                    ") has no property " + property);
}

void RequireIndex(const Widget& widget, const std::string& property, int index, bool wanted) {
  if ((index >= 0) != wanted) {
    throw ScriptError(widget.Name() + "." + property +
                      (wanted ? " needs an index, as in " + property + "(0)" : " takes no index"));
  }
}

Variant Text(const Widget& w, const std::string& p) {
  if (const auto* box = As<pelkedit::TextBox>(w)) return box->Text();
  if (const auto* list = As<pelkedit::ListBox>(w)) return list->Text();
  if (const auto* rich = As<pelkedit::RichTextBox>(w)) return rich->Text();
  if (const auto* view = As<pelkedit::ProductViewBox>(w)) {
    // What the view holds, read without recording or failing the way the editor's reads do.
    const auto scripted = std::dynamic_pointer_cast<ScriptedProductView>(view->Shared());
    return scripted ? scripted->Text() : std::string();
  }
  NoSuch(w, p);
}

Variant SelStart(const Widget& w, const std::string& p) {
  if (const auto* box = As<pelkedit::TextBox>(w)) return box->SelStart();
  if (const auto* rich = As<pelkedit::RichTextBox>(w)) return rich->SelStart();
  NoSuch(w, p);
}

Variant SelLength(const Widget& w, const std::string& p) {
  if (const auto* box = As<pelkedit::TextBox>(w)) return box->SelLength();
  if (const auto* rich = As<pelkedit::RichTextBox>(w)) return rich->SelLength();
  NoSuch(w, p);
}

template <typename W, typename Read>
Variant Typed(const Widget& w, const std::string& p, Read read) {
  const auto* typed = As<W>(w);
  if (typed == nullptr) NoSuch(w, p);
  return read(*typed);
}

using Reader = std::function<Variant(const Widget&, const std::string&)>;

// Properties read without an index.
const std::map<std::string, Reader>& PlainReaders() {
  using pelkedit::DateEdit;
  using pelkedit::DayValued;
  using pelkedit::ListBox;
  using pelkedit::TextBox;
  static const std::map<std::string, Reader> readers{
      {"text", Text},
      {"caption", [](const Widget& w, const std::string&) { return Variant(w.Caption()); }},
      {"visible", [](const Widget& w, const std::string&) { return Variant(w.Visible()); }},
      {"enabled", [](const Widget& w, const std::string&) { return Variant(w.Enabled()); }},
      {"left",
       [](const Widget& w, const std::string&) { return Variant(PositionValue(w.Left())); }},
      {"top", [](const Widget& w, const std::string&) { return Variant(PositionValue(w.Top())); }},
      {"width",
       [](const Widget& w, const std::string&) { return Variant(PositionValue(w.Width())); }},
      {"height",
       [](const Widget& w, const std::string&) { return Variant(PositionValue(w.Height())); }},
      {"tooltip", [](const Widget& w, const std::string&) { return Variant(w.Tooltip()); }},
      {"description", [](const Widget& w, const std::string&) { return Variant(w.Description()); }},
      {"pointer", [](const Widget& w, const std::string&) { return Variant(w.Pointer()); }},
      {"font", [](const Widget& w, const std::string&) { return Variant(w.FontName()); }},
      {"value",
       [](const Widget& w, const std::string& p) {
         return Typed<pelkedit::OptionButton>(w, p,
                                              [](const auto& o) { return Variant(o.Value()); });
       }},
      {"listindex",
       [](const Widget& w, const std::string& p) {
         return Typed<ListBox>(w, p, [](const ListBox& l) { return Variant(l.ListIndex()); });
       }},
      {"listcount",
       [](const Widget& w, const std::string& p) {
         return Typed<ListBox>(w, p, [](const ListBox& l) { return Variant(l.ListCount()); });
       }},
      {"maxlength",
       [](const Widget& w, const std::string& p) {
         return Typed<TextBox>(w, p, [](const TextBox& t) { return Variant(t.MaxLength()); });
       }},
      {"day",
       [](const Widget& w, const std::string& p) {
         return Typed<DayValued>(w, p, [](const DayValued& d) { return Variant(d.Day()); });
       }},
      {"min",
       [](const Widget& w, const std::string& p) {
         return Typed<DayValued>(w, p, [](const DayValued& d) { return Variant(d.MinDay()); });
       }},
      {"max",
       [](const Widget& w, const std::string& p) {
         return Typed<DayValued>(w, p, [](const DayValued& d) { return Variant(d.MaxDay()); });
       }},
      {"dateorder",
       [](const Widget& w, const std::string& p) {
         return Typed<DateEdit>(w, p, [](const DateEdit& d) { return Variant(d.DateOrder()); });
       }},
      {"picture",
       [](const Widget& w, const std::string& p) {
         return Typed<pelkedit::PictureBox>(w, p,
                                            [](const auto& b) { return Variant(b.Picture()); });
       }},
      {"selstart", SelStart},
      {"sellength", SelLength},
  };
  return readers;
}

using FormatReader = std::function<Variant(const pelkedit::CharFormat&)>;

// Rich-text formats at one character.
const std::map<std::string, FormatReader>& FormatReaders() {
  static const std::map<std::string, FormatReader> readers{
      {"bold", [](const pelkedit::CharFormat& f) { return Variant(f.bold); }},
      {"emphasis", [](const pelkedit::CharFormat& f) { return Variant(f.emphasis); }},
      {"color", [](const pelkedit::CharFormat& f) { return Variant(f.color); }},
      {"bullet", [](const pelkedit::CharFormat& f) { return Variant(f.bullet); }},
      {"indent", [](const pelkedit::CharFormat& f) { return Variant(f.indent); }},
  };
  return readers;
}

}  // namespace

Observed ReadWidgetProperty(const Widget& widget, const std::string& property, int index) {
  if (const auto plain = PlainReaders().find(property); plain != PlainReaders().end()) {
    RequireIndex(widget, property, index, false);
    return plain->second(widget, property);
  }
  if (property == "list") {
    RequireIndex(widget, property, index, true);
    const auto* list = As<pelkedit::ListBox>(widget);
    if (list == nullptr) NoSuch(widget, property);
    if (index >= list->ListCount()) {
      throw ScriptError(widget.Name() + " has no item " + std::to_string(index));
    }
    return Variant(list->List(index));
  }
  if (const auto format = FormatReaders().find(property); format != FormatReaders().end()) {
    RequireIndex(widget, property, index, true);
    const auto* rich = As<pelkedit::RichTextBox>(widget);
    if (rich == nullptr) NoSuch(widget, property);
    if (index >= rich->Length()) {
      throw ScriptError(widget.Name() + " has no character " + std::to_string(index));
    }
    return format->second(rich->FormatAt(index));
  }
  NoSuch(widget, property);
}

}  // namespace pelkscript
