#pragma once

#include <QMainWindow>

class QLineEdit;
class QTextBrowser;

namespace pelkor::help {

// The help viewer's one window: the help file with back, forward, the index, and find in the
// page. Requests for other topics arrive while it is open and bring it to the front.
class HelpWindow : public QMainWindow {
  Q_OBJECT

 public:
  explicit HelpWindow(QWidget* parent = nullptr);
  // Shows the topic of `mapId` in `file` (the whole file is loaded again only when it changes).
  void ShowTopic(const QString& file, int mapId);
  int CurrentTopic() const { return topic_; }
  QTextBrowser* Browser() const { return browser_; }

 private:
  void FindNext(bool backwards);
  QTextBrowser* browser_;
  QLineEdit* find_;
  QString file_;
  int topic_ = 0;
};

}  // namespace pelkor::help
