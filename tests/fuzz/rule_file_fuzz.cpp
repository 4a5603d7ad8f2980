// Fuzz target for the advisor's rule file: any text is either refused with a message saying
// what is wrong with it, or gives an engine whose results stay in their ranges.
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "advisor/rule_engine.h"
#include "advisor/rule_file.h"
#include "values/error.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  // A file of its own for every input: engines are cached by path, size and time.
  static int run = 0;
  const auto path =
      std::filesystem::temp_directory_path() /
      ("pelkor-rule-fuzz-" + std::to_string(::getpid()) + "-" + std::to_string(run++) + ".rules");
  std::ofstream(path, std::ios::binary)
      .write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
  try {
    const auto engine = pelkor::CreateRuleEngine(
        path.string(), [] { return pelkedit::Date::FromCivil(2026, 3, 10); });
    const std::int32_t priority = engine->Get("AdvisorPriority").AsLong();
    const std::int32_t wih = engine->Get("AdvisorWih").AsLong();
    if (priority < 1 || priority > 5 || wih < 0 || wih > 2) std::abort();
  } catch (const pelkor::RuleFileError& error) {
    if (std::string(error.what()).find(path.string()) == std::string::npos) std::abort();
  } catch (const pelkedit::PelkError&) {
  }
  std::filesystem::remove(path);
  return 0;
}
