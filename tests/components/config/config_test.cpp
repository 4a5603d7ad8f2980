// The configuration and the help file it points at: the user's settings win over the system's,
// a missing key or a broken file says which, a relative folder is read from its file's folder,
// paths join with one separator, and the build tree's settings find the help file.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "config/ini_config.h"
#include "config/local_file_system.h"
#include "values/error.h"

namespace pelkor {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;

struct Files {
  std::filesystem::path folder = std::filesystem::temp_directory_path() / "pelkor-config-test";
  Files() { std::filesystem::create_directories(folder); }
  ~Files() { std::filesystem::remove_all(folder); }
  std::string Write(const std::string& name, const std::string& text) const {
    const auto path = folder / name;
    std::ofstream(path) << text;
    return path.string();
  }
};

std::string ErrorOf(const std::function<void()>& body) {
  try {
    body();
  } catch (const pelkedit::PelkError& error) {
    return error.Description();
  }
  return "";
}

TEST(IniConfig, TheUsersValueWinsAndAMissingKeyNamesTheFilesRead) {
  const Files files;
  const std::string system = files.Write(
      "system.ini", "[Pelkor]\nInstallPath = /opt/pelkor/help\nPLKHelpName = help.html\n");
  const std::string user = files.Write("user.ini", "[Pelkor]\nPLKHelpName = mine.html\n");
  IniConfig config({system, user, (files.folder / "absent.ini").string()});
  EXPECT_EQ(config.GetValue("InstallPath"), "/opt/pelkor/help");
  EXPECT_EQ(config.GetValue("PLKHelpName"), "mine.html");
  EXPECT_THAT(ErrorOf([&] { config.GetValue("Language"); }),
              AllOf(HasSubstr("\"Language\""), HasSubstr("system.ini"), HasSubstr("user.ini")));
}

TEST(IniConfig, ARelativeFolderIsReadFromItsFilesFolder) {
  // An installed tree unpacked anywhere: its settings name the help beside it.
  const Files files;
  std::filesystem::create_directories(files.folder / "etc" / "pelkor");
  const std::string system = files.Write(
      "etc/pelkor/pelkor.ini",
      "[Pelkor]\nInstallPath = ../../usr/share/pelkor/help\nPLKHelpName = ../help.html\n");
  IniConfig config({system});
  EXPECT_EQ(config.GetValue("InstallPath"),
            (files.folder / "usr" / "share" / "pelkor" / "help").string());
  // Only folders are: a file's name stays as written.
  EXPECT_EQ(config.GetValue("PLKHelpName"), "../help.html");
}

TEST(IniConfig, AFileThatIsNotIniSaysWhereItBreaks) {
  const Files files;
  const std::string broken =
      files.Write("broken.ini", "[Pelkor]\nInstallPath = /x\nthis is not a setting\n");
  EXPECT_THAT(ErrorOf([&] { IniConfig config({broken}); }),
              AllOf(HasSubstr("broken.ini"), HasSubstr("line 3")));
  // A value longer than the reader's line is named by its own line, not a neighbour's.
  const std::string longValue = files.Write(
      "long.ini", "[Pelkor]\nPLKHelpName = x\nInstallPath = /" + std::string(250, 'p') + "\n");
  EXPECT_THAT(ErrorOf([&] { IniConfig config({longValue}); }),
              AllOf(HasSubstr("long.ini"), HasSubstr("line 3 is longer than 199 characters")));
}

TEST(LocalFileSystem, PathsJoinWithOneSeparator) {
  LocalFileSystem files;
  EXPECT_EQ(files.BuildPath("/opt/help", "pelkor.html"), "/opt/help/pelkor.html");
  EXPECT_EQ(files.BuildPath("/opt/help/", "pelkor.html"), "/opt/help/pelkor.html");
  EXPECT_EQ(files.BuildPath("", "pelkor.html"), "pelkor.html");
  EXPECT_TRUE(files.FileExists(PELK_HELP_FILE));
  EXPECT_FALSE(files.FileExists(std::string(PELK_HELP_FILE) + ".missing"));
}

TEST(HelpFile, TheBuildTreesSettingsPointAtIt) {
  // No user's own settings: only the installed defaults count.
  const Files empty;
  setenv("XDG_CONFIG_HOME", empty.folder.c_str(), 1);
  IniConfig config(ConfigFiles());
  LocalFileSystem files;
  EXPECT_TRUE(files.FileExists(
      files.BuildPath(config.GetValue("InstallPath"), config.GetValue("PLKHelpName"))));
}

}  // namespace
}  // namespace pelkor
