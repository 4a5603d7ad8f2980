#include "help_viewer/help_window.h"

#include <QAction>
#include <QKeySequence>
#include <QLabel>
#include <QLineEdit>
#include <QStatusBar>
#include <QTextBrowser>
#include <QToolBar>
#include <QUrl>

#include "help_viewer/help_request.h"

namespace pelkor::help {
namespace {
constexpr int kWidth = 760;
constexpr int kHeight = 620;
constexpr int kFindWidth = 220;
const char* const kIndexAnchor = "index";
}  // namespace

HelpWindow::HelpWindow(QWidget* parent)
    : QMainWindow(parent), browser_(new QTextBrowser(this)), find_(new QLineEdit(this)) {
  setWindowTitle(tr("Pelkor Help"));
  resize(kWidth, kHeight);
  browser_->setOpenExternalLinks(true);
  setCentralWidget(browser_);

  QToolBar* bar = addToolBar(tr("Navigation"));
  bar->setMovable(false);
  QAction* back = bar->addAction(tr("Back"), browser_, &QTextBrowser::backward);
  back->setShortcut(QKeySequence::Back);
  back->setToolTip(tr("Back (Alt+Left)"));
  QAction* forward = bar->addAction(tr("Forward"), browser_, &QTextBrowser::forward);
  forward->setShortcut(QKeySequence::Forward);
  forward->setToolTip(tr("Forward (Alt+Right)"));
  QAction* index =
      bar->addAction(tr("Index"), this, [this] { browser_->scrollToAnchor(kIndexAnchor); });
  index->setShortcut(QKeySequence(Qt::ALT | Qt::Key_Home));
  index->setToolTip(tr("The list of topics (Alt+Home)"));
  back->setEnabled(false);
  forward->setEnabled(false);
  connect(browser_, &QTextBrowser::backwardAvailable, back, &QAction::setEnabled);
  connect(browser_, &QTextBrowser::forwardAvailable, forward, &QAction::setEnabled);

  bar->addSeparator();
  auto* findLabel = new QLabel(tr("&Find:"), bar);
  findLabel->setBuddy(find_);
  bar->addWidget(findLabel);
  find_->setMaximumWidth(kFindWidth);
  find_->setClearButtonEnabled(true);
  find_->setPlaceholderText(tr("Find in this page"));
  bar->addWidget(find_);
  QAction* focusFind = new QAction(this);
  focusFind->setShortcut(QKeySequence::Find);
  connect(focusFind, &QAction::triggered, this, [this] {
    find_->setFocus();
    find_->selectAll();
  });
  addAction(focusFind);
  QAction* next = new QAction(this);
  next->setShortcut(QKeySequence::FindNext);
  connect(next, &QAction::triggered, this, [this] { FindNext(false); });
  addAction(next);
  QAction* previous = new QAction(this);
  previous->setShortcut(QKeySequence::FindPrevious);
  connect(previous, &QAction::triggered, this, [this] { FindNext(true); });
  addAction(previous);
  connect(find_, &QLineEdit::returnPressed, this, [this] { FindNext(false); });
  connect(find_, &QLineEdit::textChanged, this, [this] { statusBar()->clearMessage(); });
}

void HelpWindow::ShowTopic(const QString& file, int mapId) {
  const QUrl url = QUrl::fromLocalFile(file);
  if (file != file_) {
    browser_->setSource(url);
    file_ = file;
  }
  QUrl topic = url;
  topic.setFragment(AnchorOf(mapId));
  browser_->setSource(topic);
  topic_ = mapId;
  const QString title = browser_->documentTitle();
  setWindowTitle(title.isEmpty() ? tr("Pelkor Help") : title);
}

void HelpWindow::FindNext(bool backwards) {
  const QString text = find_->text();
  if (text.isEmpty()) return;
  QTextDocument::FindFlags flags;
  if (backwards) flags |= QTextDocument::FindBackward;
  if (browser_->find(text, flags)) return;
  // From the other end of the page once.
  QTextCursor cursor = browser_->textCursor();
  cursor.movePosition(backwards ? QTextCursor::End : QTextCursor::Start);
  browser_->setTextCursor(cursor);
  if (!browser_->find(text, flags))
    statusBar()->showMessage(tr("\"%1\" is not on this page").arg(text));
}

}  // namespace pelkor::help
