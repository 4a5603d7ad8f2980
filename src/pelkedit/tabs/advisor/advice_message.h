#pragma once

#include <cstdint>
#include <string>

namespace pelkedit {

// One part of the advice message: where it starts (characters, CR LF counting two) and
// how long it is.
struct MessagePart {
  std::int32_t start = 0;
  std::int32_t length = 0;
};

// The advice text as composed from the engine's parts, with the positions the formatting
// needs. The list runs from the character after the first star to the line break after the
// last star (or the end of the message).
struct ComposedAdvice {
  std::string text;
  MessagePart title;
  MessagePart alert;
  MessagePart heading;
  MessagePart body;
  bool hasList = false;
  MessagePart list;
};

ComposedAdvice ComposeExpertAdvice(const std::string& title, const std::string& alert,
                                   const std::string& heading, const std::string& body);
ComposedAdvice ComposeBasicAdvice(const std::string& title, const std::string& body);

}  // namespace pelkedit
