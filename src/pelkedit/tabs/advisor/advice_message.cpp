#include "tabs/advisor/advice_message.h"

#include "values/text.h"

namespace pelkedit {
namespace {

const std::string kLineBreak = "\r\n";
constexpr std::int32_t kLineBreakLength = 2;

std::int32_t Length(const std::string& text) {
  return static_cast<std::int32_t>(CharCount(text));
}

// 1-based character position of `needle` at or after 1-based `from`, 0 when absent.
std::int32_t InStr(const std::string& text, std::int32_t from, const std::string& needle) {
  const std::size_t byteFrom = ByteOffsetOfChar(text, static_cast<std::size_t>(from - 1));
  const std::size_t found = text.find(needle, byteFrom);
  if (found == std::string::npos) return 0;
  return Length(text.substr(0, found)) + 1;
}

void FindList(ComposedAdvice& advice) {
  const std::string& text = advice.text;
  const std::int32_t listStart = InStr(text, 1, "*");
  if (listStart == 0) return;
  std::int32_t listEnd = 0;
  for (std::int32_t star = listStart; star != 0; star = InStr(text, star + 1, "*")) {
    const std::int32_t lineEnd = InStr(text, star, kLineBreak);
    // A starred last line without a line break runs the list to the end of the message.
    listEnd = lineEnd != 0 ? lineEnd : Length(text);
  }
  advice.hasList = true;
  advice.list = {listStart, listEnd - listStart};
}

void BlankStars(std::string& text) {
  for (char& c : text) {
    if (c == '*') c = ' ';
  }
}

}  // namespace

ComposedAdvice ComposeExpertAdvice(const std::string& title, const std::string& alert,
                                   const std::string& heading, const std::string& body) {
  ComposedAdvice advice;
  const std::int32_t gap = 2 * kLineBreakLength;
  advice.text = title + kLineBreak + kLineBreak + alert;
  if (!alert.empty()) advice.text += kLineBreak + kLineBreak;
  if (!body.empty()) advice.text += heading + kLineBreak + kLineBreak + body;
  advice.title = {0, Length(title)};
  advice.alert = {Length(title) + gap, Length(alert)};
  const std::int32_t headingStart = advice.alert.start + (alert.empty() ? 0 : Length(alert) + gap);
  advice.heading = {headingStart, Length(heading)};
  advice.body = {headingStart + Length(heading) + gap, Length(body)};
  FindList(advice);
  BlankStars(advice.text);
  return advice;
}

ComposedAdvice ComposeBasicAdvice(const std::string& title, const std::string& body) {
  ComposedAdvice advice;
  advice.text = title + kLineBreak + body;
  advice.title = {0, Length(title)};
  advice.body = {Length(title) + kLineBreakLength, Length(body)};
  return advice;
}

}  // namespace pelkedit
