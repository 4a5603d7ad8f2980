#include <gtest/gtest.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>

#include "journal/file_journal.h"

namespace {

namespace fs = std::filesystem;
using pelkedit::Blob;
using pelkedit::KeptChanges;

constexpr const char* kMain = "GetIboFromMainByIboID";

struct TempFolder {
  fs::path path = fs::temp_directory_path() / ("pelk-journal-" + std::to_string(::getpid()) + "-" +
                                               std::to_string(std::random_device{}()));
  ~TempFolder() {
    std::error_code ignored;
    fs::remove_all(path, ignored);
  }
};

// Step n's record: a size and bytes that tell which step wrote them.
Blob RecordOfStep(std::uint32_t step) {
  constexpr std::uint32_t kLargest = 65000;
  Blob record((step * 7919U) % kLargest + 1);
  for (std::size_t i = 0; i < record.size(); ++i) {
    record[i] = static_cast<std::uint8_t>((step + i) & 0xFFU);
  }
  return record;
}

TEST(FileJournal, KeepsReplacesAndRemovesOneEntryPerRecordAndDatabase) {
  TempFolder folder;
  const auto journal = pelkor::OpenFileJournal(folder.path / "state" / "pelkor", "a.pelkdb");
  const auto other = pelkor::OpenFileJournal(folder.path / "state" / "pelkor", "b.pelkdb");
  EXPECT_FALSE(journal->Find(7, kMain));
  journal->Keep(7, kMain, KeptChanges{"3", RecordOfStep(1)});
  journal->Keep(7, kMain, KeptChanges{"4", RecordOfStep(2)});
  const auto kept = journal->Find(7, kMain);
  ASSERT_TRUE(kept);
  EXPECT_EQ(kept->version, "4");
  EXPECT_EQ(kept->record, RecordOfStep(2));
  // Another database's IBO 7, and the archive's, are other records.
  EXPECT_FALSE(other->Find(7, kMain));
  EXPECT_FALSE(journal->Find(7, "GetIboFromArchiveByIboID"));
  // Deal data is the owner's alone.
  EXPECT_EQ(fs::status(folder.path / "state" / "pelkor").permissions() & fs::perms::all,
            fs::perms::owner_all);
  for (const auto& entry : fs::directory_iterator(folder.path / "state" / "pelkor")) {
    EXPECT_EQ(entry.status().permissions() & fs::perms::all,
              fs::perms::owner_read | fs::perms::owner_write);
  }
  journal->Remove(7, kMain);
  EXPECT_FALSE(journal->Find(7, kMain));
  journal->Remove(7, kMain);  // nothing kept: nothing to do
}

TEST(FileJournal, AnEntryThatDoesNotReadBackWholeIsNotOffered) {
  TempFolder folder;
  const auto journal = pelkor::OpenFileJournal(folder.path, "a.pelkdb");
  journal->Keep(7, kMain, KeptChanges{"3", RecordOfStep(5)});
  const fs::path file = fs::directory_iterator(folder.path)->path();
  const auto size = fs::file_size(file);
  fs::resize_file(file, size - 10);
  EXPECT_FALSE(journal->Find(7, kMain));
  journal->Keep(7, kMain, KeptChanges{"3", RecordOfStep(5)});
  std::fstream flip(file, std::ios::in | std::ios::out | std::ios::binary);
  flip.seekp(40);
  flip.put('\x7F');
  flip.close();
  EXPECT_FALSE(journal->Find(7, kMain));
}

TEST(FileJournal, AKillAtAnyInstantLeavesTheLastAcknowledgedStepOrALaterOne) {
  constexpr int kKills = 300;
  TempFolder folder;
  std::mt19937 random(20261124);
  for (int kill = 0; kill < kKills; ++kill) {
    int acks[2];
    ASSERT_EQ(::pipe(acks), 0);
    const pid_t editor = ::fork();
    ASSERT_GE(editor, 0);
    if (editor == 0) {
      // The editing process: each step is kept, then acknowledged, as the editor does.
      ::close(acks[0]);
      const auto journal = pelkor::OpenFileJournal(folder.path, "team.pelkdb");
      for (std::uint32_t step = 1;; ++step) {
        journal->Keep(7, kMain, KeptChanges{std::to_string(step), RecordOfStep(step)});
        if (::write(acks[1], &step, sizeof step) != sizeof step) ::_exit(1);
      }
    }
    ::close(acks[1]);
    std::uint32_t acknowledged = 0;
    const int stepsBeforeKill = static_cast<int>(random() % 20);
    for (int i = 0; i < stepsBeforeKill; ++i) {
      ASSERT_EQ(::read(acks[0], &acknowledged, sizeof acknowledged), sizeof acknowledged);
    }
    ::usleep(static_cast<useconds_t>(random() % 2000));
    ::kill(editor, SIGKILL);
    int status = 0;
    ::waitpid(editor, &status, 0);
    ASSERT_TRUE(WIFSIGNALED(status));
    for (std::uint32_t step = 0; ::read(acks[0], &step, sizeof step) == sizeof step;) {
      acknowledged = step;
    }
    ::close(acks[0]);

    const auto kept = pelkor::OpenFileJournal(folder.path, "team.pelkdb")->Find(7, kMain);
    if (acknowledged == 0 && !kept) continue;  // killed before its first entry
    ASSERT_TRUE(kept) << "kill " << kill << " after step " << acknowledged;
    const auto step = static_cast<std::uint32_t>(std::stoul(kept->version));
    EXPECT_GE(step, acknowledged) << "kill " << kill;
    EXPECT_LE(step, acknowledged + 1) << "kill " << kill;
    EXPECT_EQ(kept->record, RecordOfStep(step)) << "kill " << kill << " left a torn entry";
    pelkor::OpenFileJournal(folder.path, "team.pelkdb")->Remove(7, kMain);
  }
}

}  // namespace
