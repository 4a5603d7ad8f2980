#pragma once

#include <QString>
#include <map>
#include <string>

namespace pelkor::desktop {

// The first sentence of each help topic, read once from the help file the settings name: what a
// screen reader says about a question's input.
class HelpSentences {
 public:
  // An unreadable file gives no sentences; the questions are still named.
  explicit HelpSentences(const QString& helpFile);
  // The sentence of a topic; empty for a topic the file lacks.
  QString ForTopic(int mapId) const;

 private:
  std::map<int, QString> byTopic_;
};

// The help file the settings name, or empty when they name none.
QString ConfiguredHelpFile();

}  // namespace pelkor::desktop
