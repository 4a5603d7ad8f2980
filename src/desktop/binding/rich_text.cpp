#include "binding/rich_text.h"

#include <QFontDatabase>
#include <QGuiApplication>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextList>

#include "platform/platform.h"

namespace pelkor::desktop {

namespace {

// Colours are stored as 0x00BBGGRR.
constexpr std::int32_t kBlack = 0;
QColor ColorOf(std::int32_t value) {
  const auto v = static_cast<std::uint32_t>(value);
  return QColor(static_cast<int>(v & 0xFF), static_cast<int>((v >> 8) & 0xFF),
                static_cast<int>((v >> 16) & 0xFF));
}

QTextCharFormat CharFormatOf(const pelkedit::CharFormat& format) {
  QTextCharFormat result;
  result.setFontWeight(format.bold ? QFont::Bold : QFont::Normal);
  result.setFontItalic(format.emphasis);
  // Black is the text's own colour: the palette's, so that advice stays legible on a dark
  // desktop. Other colours (the red of an alert) are the advisor's.
  if (format.color != kBlack) result.setForeground(ColorOf(format.color));
  return result;
}

qreal PixelsOfTwips(std::int32_t twips) {
  return static_cast<qreal>(twips) / pelkedit::kTwipsPerPixel;
}

// Splits UTF-8 into code points, so that positions match the model's character positions.
std::u32string CodePoints(const std::string& utf8) {
  return QString::fromStdString(utf8).toStdU32String();
}

}  // namespace

QString AvailableFamily(const std::string& fontName) {
  const QString wanted = QString::fromStdString(fontName);
  if (!wanted.isEmpty() && QFontDatabase::families().contains(wanted, Qt::CaseInsensitive)) {
    return wanted;
  }
  return QGuiApplication::font().family();
}

void RenderRichText(const pelkedit::RichTextBox& box, QTextDocument& document) {
  document.clear();
  QFont font = document.defaultFont();
  font.setFamily(AvailableFamily(box.FontName()));
  document.setDefaultFont(font);

  const std::u32string text = CodePoints(box.Text());
  const auto& formats = box.Formats();
  QTextCursor cursor(&document);
  QTextList* list = nullptr;
  bool firstParagraph = true;
  std::size_t index = 0;
  while (index <= text.size()) {
    // One paragraph: up to and including its line feed; a carriage return before it is dropped.
    std::size_t end = index;
    while (end < text.size() && text[end] != U'\n') ++end;
    const pelkedit::CharFormat lead =
        index < formats.size() ? formats[index]
                               : (formats.empty() ? pelkedit::CharFormat{} : formats.back());
    QTextBlockFormat block;
    if (!lead.bullet) block.setLeftMargin(PixelsOfTwips(lead.indent));
    if (firstParagraph) {
      cursor.setBlockFormat(block);
      firstParagraph = false;
    } else {
      cursor.insertBlock(block);
    }
    if (lead.bullet) {
      if (list == nullptr) {
        QTextListFormat listFormat;
        listFormat.setStyle(QTextListFormat::ListDisc);
        listFormat.setIndent(1);
        document.setIndentWidth(PixelsOfTwips(lead.indent));
        list = cursor.createList(listFormat);
      } else {
        list->add(cursor.block());
      }
    } else {
      list = nullptr;
    }
    for (std::size_t i = index; i < end; ++i) {
      if (text[i] == U'\r') continue;
      const pelkedit::CharFormat format = i < formats.size() ? formats[i] : pelkedit::CharFormat{};
      cursor.insertText(QString::fromUcs4(&text[i], 1), CharFormatOf(format));
    }
    if (end >= text.size()) break;
    index = end + 1;
  }
}

}  // namespace pelkor::desktop
