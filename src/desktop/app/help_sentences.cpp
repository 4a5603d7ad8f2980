#include "app/help_sentences.h"

#include <QDir>
#include <QFile>
#include <QTextDocumentFragment>

#include "config/ini_config.h"
#include "help_viewer/help_request.h"
#include "values/error.h"

namespace pelkor::desktop {
namespace {

// A topic is a heading with the topic's anchor followed by its first paragraph. Found by plain
// searching: this runs while a window opens.
QString FirstParagraph(const QString& html, int mapId) {
  const qsizetype anchor = html.indexOf(QString(R"(id="%1")").arg(help::AnchorOf(mapId)));
  if (anchor < 0) return {};
  const qsizetype headingEnd = html.indexOf("</h", anchor);
  const qsizetype afterHeading = headingEnd < 0 ? -1 : html.indexOf('>', headingEnd);
  if (afterHeading < 0) return {};
  qsizetype start = afterHeading + 1;
  while (start < html.size() && html.at(start).isSpace()) ++start;
  if (!QStringView(html).sliced(start).startsWith(u"<p>")) return {};
  start += 3;
  const qsizetype end = html.indexOf("</p>", start);
  return end < 0 ? QString() : html.sliced(start, end - start);
}

// Up to the first full stop, question or exclamation mark that ends a sentence.
QString FirstSentence(const QString& html) {
  const QString text = QTextDocumentFragment::fromHtml(html).toPlainText().simplified();
  for (qsizetype at = 0; at < text.size(); ++at) {
    const QChar mark = text.at(at);
    const bool ends = mark == '.' || mark == '!' || mark == '?';
    if (ends && (at + 1 == text.size() || text.at(at + 1).isSpace())) return text.left(at + 1);
  }
  return text;
}

}  // namespace

HelpSentences::HelpSentences(QString helpFile) : file_(std::move(helpFile)) {}

QString HelpSentences::ForTopic(int mapId) const {
  if (const auto known = byTopic_.find(mapId); known != byTopic_.end()) return known->second;
  if (!html_) {
    QFile file(file_);
    html_ = file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
  }
  const QString paragraph = FirstParagraph(*html_, mapId);
  return byTopic_[mapId] = paragraph.isEmpty() ? QString() : FirstSentence(paragraph);
}

QString ConfiguredHelpFile() {
  try {
    const auto config = CreateConfig();
    return QDir(QString::fromStdString(config->GetValue("InstallPath")))
        .filePath(QString::fromStdString(config->GetValue("PLKHelpName")));
  } catch (const pelkedit::PelkError&) {
    // Help itself reports a missing setting when the user asks for it.
    return {};
  }
}

}  // namespace pelkor::desktop
