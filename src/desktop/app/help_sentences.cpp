#include "app/help_sentences.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTextDocumentFragment>

#include "config/ini_config.h"
#include "values/error.h"

namespace pelkor::desktop {
namespace {

// A topic is a heading with the topic's anchor followed by its first paragraph.
const QRegularExpression kTopic(R"re(<h\d id="mapid-(\d+)">.*?</h\d>\s*<p>(.*?)</p>)re",
                                QRegularExpression::DotMatchesEverythingOption);
const QRegularExpression kSentenceEnd(R"([.!?](\s|$))");

QString FirstSentence(const QString& html) {
  const QString text = QTextDocumentFragment::fromHtml(html).toPlainText().simplified();
  const QRegularExpressionMatch end = kSentenceEnd.match(text);
  return end.hasMatch() ? text.left(end.capturedStart() + 1) : text;
}

}  // namespace

HelpSentences::HelpSentences(const QString& helpFile) {
  QFile file(helpFile);
  if (!file.open(QIODevice::ReadOnly)) return;
  const QString html = QString::fromUtf8(file.readAll());
  for (auto it = kTopic.globalMatch(html); it.hasNext();) {
    const QRegularExpressionMatch topic = it.next();
    byTopic_[topic.captured(1).toInt()] = FirstSentence(topic.captured(2));
  }
}

QString HelpSentences::ForTopic(int mapId) const {
  const auto it = byTopic_.find(mapId);
  return it == byTopic_.end() ? QString() : it->second;
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
