// pelkedit-script: runs the editor component headless from scenario files.
#include <CLI/CLI.hpp>
#include <iostream>

#include "data/ibo_store.h"
#include "runner.h"

int main(int argc, char** argv) {
  CLI::App app{"Runs PelkEdit scenarios headless and prints what can be observed."};
  pelkscript::WorldOptions options;
  std::vector<std::string> files;
  app.add_option("--db", options.dbPath,
                 "database file or postgresql:// URI to use instead of an in-memory one")
      ->envname(pelkor::kDatabaseVariable);
  app.add_option("--trace-log", options.traceLogPath, "file the trace component writes to");
  app.add_option("--journal", options.journalDir,
                 "folder the component keeps unsaved changes in, as the desktop does");
  app.add_option("files", files, "scenario files ('-' or none: standard input)");
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    const int status = app.exit(error);
    return status == 0 ? 0 : pelkscript::kScriptUnrunnable;
  }
  return pelkscript::RunScenarios(files, options, std::cin, std::cout);
}
