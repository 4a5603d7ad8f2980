#pragma once

#include <QString>
#include <map>
#include <optional>
#include <string>

namespace pelkor::desktop {

// The first sentence of each help topic, from the help file the settings name: what a screen
// reader says about a question's input. The file is read at the first question and each topic
// when it is first asked for: a window names only the inputs it has made.
class HelpSentences {
 public:
  // An unreadable file gives no sentences; the questions are still named.
  explicit HelpSentences(QString helpFile);
  // The sentence of a topic; empty for a topic the file lacks.
  QString ForTopic(int mapId) const;

 private:
  QString file_;
  mutable std::optional<QString> html_;
  mutable std::map<int, QString> byTopic_;
};

// The help file the settings name, or empty when they name none.
QString ConfiguredHelpFile();

}  // namespace pelkor::desktop
