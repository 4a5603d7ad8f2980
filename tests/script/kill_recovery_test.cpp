// The editor killed (SIGKILL) in the middle of editing, hundreds of times: every step it had
// acknowledged is offered back when the IBO is opened again, and nothing kept is torn.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <random>
#include <sstream>
#include <string>

#include "contracts/names.h"
#include "control/pelk_ibo_edit.h"
#include "session.h"

namespace pelkscript {
namespace {

namespace fs = std::filesystem;

constexpr int kKills = 150;

std::string NoteOfStep(std::uint32_t step) {
  return "Visit " + std::to_string(step);
}

// Opens IBO 1 again, answers the question with Yes, and gives the note it then shows.
std::string RecoveredNote(const WorldOptions& options) {
  std::ostringstream out;
  Session session(options, out, "recover");
  session.RunLine("create");
  session.RunLine("answer Yes");
  session.RunLine("show 1 0");
  const std::string note =
      session.GetWorld().component->Record()->Get(pelkedit::prop::IboNote).AsString();
  // Given up, so that the next round starts with nothing kept.
  session.RunLine("answer No");
  session.RunLine("click cmdCancel");
  return note;
}

TEST(KillRecovery, EveryAcknowledgedStepIsRecoverable) {
  const fs::path folder =
      fs::temp_directory_path() /
      ("pelk-kill-" + std::to_string(::getpid()) + "-" + std::to_string(std::random_device{}()));
  fs::create_directories(folder);
  WorldOptions options;
  options.dbPath = (folder / "ibos.pelkdb").string();
  options.journalDir = (folder / "journal").string();
  {
    std::ostringstream out;
    Session seed(options, out, "seed");
    seed.RunLine("ibo 1 0 IboNumber=101 StartDate=2026-01-05 WwihDate=2026-06-30");
  }
  std::mt19937 random(20261124);
  for (int kill = 0; kill < kKills; ++kill) {
    int acks[2];
    ASSERT_EQ(::pipe(acks), 0);
    const pid_t editor = ::fork();
    ASSERT_GE(editor, 0);
    if (editor == 0) {
      ::close(acks[0]);
      std::ostringstream out;
      Session session(options, out, "edit");
      session.RunLine("create");
      session.RunLine("show 1 0");
      for (std::uint32_t step = 1;; ++step) {
        session.RunLine("type txtIboNote \"" + NoteOfStep(step) + "\"");
        session.RunLine("blur");
        if (::write(acks[1], &step, sizeof step) != sizeof step) ::_exit(1);
      }
    }
    ::close(acks[1]);
    std::uint32_t acknowledged = 0;
    const int stepsBeforeKill = 1 + static_cast<int>(random() % 12);
    for (int i = 0; i < stepsBeforeKill; ++i) {
      ASSERT_EQ(::read(acks[0], &acknowledged, sizeof acknowledged), sizeof acknowledged);
    }
    ::usleep(static_cast<useconds_t>(random() % 3000));
    ::kill(editor, SIGKILL);
    int status = 0;
    ::waitpid(editor, &status, 0);
    ASSERT_TRUE(WIFSIGNALED(status)) << "kill " << kill;
    for (std::uint32_t step = 0; ::read(acks[0], &step, sizeof step) == sizeof step;) {
      acknowledged = step;
    }
    ::close(acks[0]);

    const std::string note = RecoveredNote(options);
    // The last step acknowledged, or the one after it when the kill came between its keeping
    // and its acknowledgement.
    EXPECT_TRUE(note == NoteOfStep(acknowledged) || note == NoteOfStep(acknowledged + 1))
        << "kill " << kill << " after step " << acknowledged << " recovered \"" << note << "\"";
  }
  std::error_code ignored;
  fs::remove_all(folder, ignored);
}

}  // namespace
}  // namespace pelkscript
