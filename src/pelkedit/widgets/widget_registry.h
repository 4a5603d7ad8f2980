#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "values/error.h"
#include "widgets/widget.h"

namespace pelkedit {

// Owns the widget models of one form and finds them by name; tracks the input focus.
class WidgetRegistry {
 public:
  template <typename W, typename... Args>
  W& Make(const std::string& name, Args&&... args) {
    auto widget = std::make_unique<W>(name, std::forward<Args>(args)...);
    W& ref = *widget;
    Adopt(std::move(widget));
    return ref;
  }

  Widget* Find(const std::string& name) const;
  // Error 438 when there is no widget of that name and kind.
  template <typename W>
  W& Get(const std::string& name) const {
    auto* widget = dynamic_cast<W*>(Find(name));
    if (widget == nullptr) Raise(errnum::kNotSupported, name, "No widget named " + name);
    return *widget;
  }
  const std::vector<Widget*>& All() const { return order_; }

  Widget* Focused() const { return focused_; }
  // Moves the focus; the widget that had it raises lost focus. A widget that cannot take the
  // focus is ignored. nullptr moves the focus away from every widget.
  void MoveFocus(Widget* target);
  int NextZOrder() { return ++zCounter_; }

 private:
  void Adopt(std::unique_ptr<Widget> widget);
  std::map<std::string, std::unique_ptr<Widget>> widgets_;
  std::vector<Widget*> order_;
  Widget* focused_ = nullptr;
  int zCounter_ = 0;
};

}  // namespace pelkedit
