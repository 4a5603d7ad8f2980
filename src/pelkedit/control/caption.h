#pragma once

#include <cstdint>
#include <string>

namespace pelkedit {

// The host window's caption: "IBO#<number>", five blanks, "Status:", three blanks, the text.
std::string FormCaption(std::int32_t iboNumber, const std::string& statusText);

class IRecord;
// The caption for the record's own number and status.
std::string FormCaptionOf(IRecord& record);

}  // namespace pelkedit
