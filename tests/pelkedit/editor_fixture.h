#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <ostream>
#include <string>

#include "control/pelk_ibo_edit.h"
#include "fakes.h"
#include "trace/mod_init.h"
#include "widgets/controls.h"

namespace pelkedit {

// Readable values in assertion messages.
inline void PrintTo(const Variant& value, std::ostream* os) {
  *os << value.ToDisplay();
}
inline void PrintTo(const CharFormat& f, std::ostream* os) {
  *os << "{bold " << f.bold << ", emphasis " << f.emphasis << ", color " << f.color << ", bullet "
      << f.bullet << ", indent " << f.indent << "}";
}

}  // namespace pelkedit

namespace pelkedit::testing {

inline std::string Proc(const std::string& procedure) {
  return "PelkEdit.PelkIboEdit::" + procedure;
}

// A started library with fake collaborators; the editor is created by each test.
class EditorTest : public ::testing::Test {
 protected:
  static constexpr std::int32_t kIboId = 42;

  void SetUp() override {
    world.Register(platform.factory);
    Main(platform);
  }
  void TearDown() override {
    edit.reset();
    UnloadLibrary();
  }

  PelkIboEdit& Create() {
    edit = std::make_unique<PelkIboEdit>(platform, events);
    return *edit;
  }
  // Creates the editor and loads the record from the main view; forgets what that logged.
  PelkIboEdit& Load(std::int32_t view = 0) {
    if (!edit) Create();
    edit->ShowIbo(kIboId, view);
    Forget();
    return *edit;
  }
  void Forget() {
    world.journal.clear();
    world.trace->calls.clear();
    events.raised.clear();
    platform.boxes.clear();
  }

  template <typename W>
  W& Widget(const std::string& name) {
    return edit->Widgets().Get<W>(name);
  }
  void PressMainTab(float x) { Widget<PictureBox>("picMainTab").UserMouseDown(1, 0, x, 5); }
  bool Visible(const std::string& name) { return edit->Widgets().Find(name)->Visible(); }
  Variant Rec(const std::string& name) { return world.record->props.at(name); }
  long Count(const std::string& journalLine) const {
    return std::count(world.journal.begin(), world.journal.end(), journalLine);
  }

  FakePlatform platform;
  FakeWorld world;
  FakeEvents events;
  std::unique_ptr<PelkIboEdit> edit;
};

}  // namespace pelkedit::testing
