#pragma once

#include <array>
#include <cstdint>

#include "contracts/record.h"
#include "record/record_schema.h"

namespace pelkor::detail {

// The storage form: the signature "PIBO", the format version as a little-endian uint16, then
// every stored value in schema order (indexed properties slot 0 to 9). Booleans are one byte
// (0 or 1), Longs four bytes, Doubles their eight IEEE-754 bytes, Dates the signed seconds
// since 1900-01-01 in eight bytes, strings a uint32 byte length and the UTF-8 bytes. All
// integers are little-endian.
inline constexpr std::array<std::uint8_t, 4> kIboDataSignature = {'P', 'I', 'B', 'O'};
inline constexpr std::uint16_t kIboDataVersion = 1;

pelkedit::Blob EncodeRecord(const RecordValues& values);
// Error 5 (source "PelkComn.IboProperties") for bytes that are not a whole, well-formed record
// of a known version; never reads outside `data`.
RecordValues DecodeRecord(const pelkedit::Blob& data);

}  // namespace pelkor::detail
