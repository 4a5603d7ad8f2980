#pragma once

#include <QString>
#include <map>
#include <string>

namespace pelkor::desktop {

// The first sentence of each help topic the questions' labels open, read once from the help
// file the settings name: what a screen reader says about a question's input.
class HelpSentences {
 public:
  // An unreadable file gives no sentences; the questions are still named.
  explicit HelpSentences(const QString& helpFile);
  // The sentence for the topic the label opens; empty when it opens none.
  QString ForLabel(const std::string& label) const;

 private:
  std::map<int, QString> byTopic_;
};

// The help file the settings name, or empty when they name none.
QString ConfiguredHelpFile();

}  // namespace pelkor::desktop
