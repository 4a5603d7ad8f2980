#pragma once

#include <string>
#include <vector>

#include "widgets/widget_registry.h"

namespace pelkedit {

// A dialog model the host shows modally: its widgets, and whether it is still open.
class ModalDialog {
 public:
  virtual ~ModalDialog() = default;
  virtual std::string Name() const = 0;
  // Window title and client size in pixels, for the host that shows the dialog.
  virtual std::string Caption() const = 0;
  virtual int WidthPixels() const = 0;
  virtual int HeightPixels() const = 0;
  // The button that Enter presses ("" for none); Escape works as the window's close box.
  virtual std::string DefaultButton() const { return ""; }
  // The button that dismisses the dialog without accepting ("" for none).
  virtual std::string CancelButton() const { return ""; }
  // The widgets the user fills in, in the order a person would fill them; hosts that drive a
  // dialog without knowing it (the scenario runner) fill them by position.
  virtual std::vector<std::string> InputFields() const { return {}; }
  WidgetRegistry& Widgets() { return widgets_; }
  bool IsOpen() const { return open_; }
  // The host calls this as it shows the dialog (the form's load event).
  void Open() {
    open_ = true;
    OnLoad();
  }
  // The dialog closes itself (its buttons) or the user closes it with the window's close box.
  void Close() { open_ = false; }
  void CloseBox() { Close(); }

 protected:
  virtual void OnLoad() {}

 private:
  WidgetRegistry widgets_;
  bool open_ = false;
};

}  // namespace pelkedit
