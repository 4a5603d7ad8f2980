#pragma once

#include <string>
#include <vector>

#include "platform/object_factory.h"
#include "platform/platform.h"

namespace pelkor::testing {

// A platform that records message boxes, answers OK, tells a fixed time and creates objects
// through a factory.
class FakePlatform : public pelkedit::IPlatform {
 public:
  struct Box {
    std::string text;
    pelkedit::MsgIcon icon;
    pelkedit::MsgButtons buttons;
    std::string title;
  };

  static constexpr std::int32_t kHostWindow = 4242;

  pelkedit::MsgAnswer MsgBox(const std::string& text, pelkedit::MsgIcon icon,
                             pelkedit::MsgButtons buttons, const std::string& title) override {
    boxes.push_back({text, icon, buttons, title});
    return pelkedit::MsgAnswer::kOk;
  }
  void PostMessage(std::int32_t, std::uint32_t, std::int32_t, std::int32_t) override {}
  std::int32_t HostWindowHandle() override { return kHostWindow; }
  pelkedit::MousePointer ScreenPointer() override { return pointer; }
  void SetScreenPointer(pelkedit::MousePointer p) override { pointer = p; }
  pelkedit::Date Now() override { return now; }
  pelkedit::Date Today() override { return pelkedit::Date::FromDayNumber(now.DayNumber()); }
  std::string ShortDateFormat() override { return "M/d/yyyy"; }
  std::int32_t GetLocaleInfoA(std::int32_t, std::int32_t, std::string& buffer,
                              std::int32_t) override {
    buffer = "0";
    return 2;
  }
  void StartProcess(const std::string&) override {}
  void ShowModal(pelkedit::ModalDialog&) override {}
  pelkedit::ObjectPtr CreateObject(const std::string& progId) override {
    return factory.Create(progId);
  }

  pelkedit::ObjectFactory factory;
  std::vector<Box> boxes;
  pelkedit::Date now = pelkedit::Date::FromCivil(2024, 3, 5, 14, 7, 9);
  pelkedit::MousePointer pointer = pelkedit::MousePointer::kDefault;
};

}  // namespace pelkor::testing
