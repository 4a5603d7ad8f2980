// The component and its host: creation, destruction, the public methods, direct record fills.
#include "control/pelk_ibo_edit.h"
#include "record/ibo_properties.h"
#include "session.h"
#include "trace/mod_init.h"

namespace pelkscript {
namespace {

const pelkor::PropertyInfo& StringProperty(const std::string& name) {
  for (const auto& info : pelkor::RecordSchema()) {
    if (info.name != name) continue;
    if (info.type != pelkedit::VariantType::kString || info.indexed || info.readOnly) {
      throw ScriptError("record." + name + " is not a plain string property");
    }
    return info;
  }
  throw ScriptError("unknown record property " + name);
}

}  // namespace

void Session::Create(const Words& w) {
  RequireWords(w, 1, 1, "create");
  if (world_.component) throw ScriptError("the component already exists (destroy it first)");
  if (!pelkedit::LibraryStarted()) {
    bool started = false;
    Guard([&] {
      pelkedit::Main(world_.platform);
      started = true;
    });
    if (!started) return;
  }
  Guard([&] {
    world_.component = std::make_unique<pelkedit::PelkIboEdit>(world_.platform, world_.events);
    if (auto journal = world_.Journal()) world_.component->SetJournal(std::move(journal));
  });
}

void Session::Crash(const Words& w) {
  RequireWords(w, 1, 1, "crash");
  crashed_ = true;
  // A killed process cleans nothing up: the component is never terminated, only kept where
  // the rest of the run cannot reach it.
  static auto* const killed = new std::vector<std::unique_ptr<pelkedit::PelkIboEdit>>;
  if (world_.component) killed->push_back(std::move(world_.component));
}

void Session::Destroy(const Words& w) {
  RequireWords(w, 1, 1, "destroy");
  Component();
  world_.component.reset();
}

void Session::Show(const Words& w) {
  RequireWords(w, 3, 3, "show ID VIEW");
  const std::int32_t id = ParseInt(w[1].raw);
  const std::int32_t view = ParseInt(w[2].raw);
  auto& component = Component();
  Guard([&] { component.ShowIbo(id, view); });
}

void Session::Call(const Words& w) {
  RequireWords(w, 2, 3, "call METHOD [ARG]");
  const std::string& method = Bare(w[1]);
  auto& component = Component();
  const auto noArgument = [&] {
    if (w.size() != 2) throw ScriptError(method + " takes no argument");
  };
  if (method == "IboChangeStatus") {
    if (w.size() != 3) throw ScriptError("usage: call IboChangeStatus N");
    const std::int32_t status = ParseInt(w[2].raw);
    Guard([&] { component.IboChangeStatus(status); });
  } else if (method == "IboChangeStartDate") {
    noArgument();
    Guard([&] { component.IboChangeStartDate(); });
  } else if (method == "IboUpgradeToExpert") {
    noArgument();
    Guard([&] { component.IboUpgradeToExpert(); });
  } else if (method == "InitIBOInfo") {
    noArgument();
    Guard([&] { component.InitIBOInfo(); });
  } else if (method == "FormClose") {
    noArgument();
    Guard([&] { component.FormClose(); });
  } else {
    throw ScriptError("unknown method " + method);
  }
}

namespace {
// Far beyond the save limit, yet small enough to build at once.
constexpr std::int32_t kLargestFill = 16 * 1024 * 1024;
}  // namespace

void Session::Fill(const Words& w) {
  RequireWords(w, 3, 3, "fill record.PROP N");
  const std::string& target = Bare(w[1]);
  const std::string prefix = "record.";
  if (target.rfind(prefix, 0) != 0) throw ScriptError("usage: fill record.PROP N");
  const std::string name = StringProperty(target.substr(prefix.size())).name;
  const std::int32_t wanted = ParseInt(w[2].raw);
  if (wanted < 0) throw ScriptError("fill: a size cannot be negative");
  if (wanted > kLargestFill) {
    throw ScriptError("fill: " + std::to_string(wanted) +
                      " bytes is more than a record can hold (" + std::to_string(kLargestFill) +
                      " at most)");
  }
  auto& record = RealRecord();
  const pelkedit::Variant original = record.Get(name);
  const auto sizer = pelkor::CreateIboSizeCalculator();
  // The storage size only grows with the text, so the shortest fill reaching the wanted size
  // is found by bisection; it fits exactly or no fill does.
  const auto sizeWith = [&](std::int32_t count) {
    try {
      record.Set(name, std::string(static_cast<std::size_t>(count), 'x'));
      return sizer->GetPhysicalSize(record.GetIboData()).AsLong();
    } catch (const pelkedit::PelkError& error) {
      record.Set(name, original);
      throw ScriptError("fill " + target + ": " + error.Description());
    }
  };
  std::int32_t low = 0;
  std::int32_t high = wanted;
  while (low < high) {
    const std::int32_t middle = low + (high - low) / 2;
    if (sizeWith(middle) < wanted) {
      low = middle + 1;
    } else {
      high = middle;
    }
  }
  if (sizeWith(low) != wanted) {
    record.Set(name, original);
    throw ScriptError("fill " + target + ": no text makes the record measure exactly " +
                      std::to_string(wanted) + " bytes");
  }
}

}  // namespace pelkscript
