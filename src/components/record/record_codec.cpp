#include "record/record_codec.h"

#include <algorithm>
#include <bit>
#include <limits>
#include <string>
#include <string_view>

#include "values/error.h"

namespace pelkor::detail {
namespace {

using pelkedit::Blob;
using pelkedit::Variant;
using pelkedit::VariantType;

constexpr int kBitsPerByte = 8;
constexpr std::uint8_t kTrueByte = 1;
constexpr std::uint8_t kFalseByte = 0;

class Writer {
 public:
  explicit Writer(Blob& out) : out_(out) {}

  template <typename T>
  void Unsigned(T value) {
    for (std::size_t i = 0; i < sizeof(T); ++i) {
      out_.push_back(static_cast<std::uint8_t>(value >> (i * kBitsPerByte)));
    }
  }

  void Value(const Variant& value) {
    switch (value.Type()) {
      case VariantType::kBoolean:
        out_.push_back(value.AsBool() ? kTrueByte : kFalseByte);
        return;
      case VariantType::kLong:
        Unsigned(static_cast<std::uint32_t>(value.AsLong()));
        return;
      case VariantType::kDouble:
        Unsigned(std::bit_cast<std::uint64_t>(value.AsDouble()));
        return;
      case VariantType::kDate:
        Unsigned(static_cast<std::uint64_t>(value.AsDate().SecondsSinceEpoch()));
        return;
      case VariantType::kString: {
        const std::string& text = value.AsString();
        if (text.size() > std::numeric_limits<std::uint32_t>::max()) {
          pelkedit::Raise(
              pelkedit::errnum::kInvalidProcedureCall, kRecordSource,
              "IboData cannot hold a text of " + std::to_string(text.size()) + " bytes");
        }
        Unsigned(static_cast<std::uint32_t>(text.size()));
        out_.insert(out_.end(), text.begin(), text.end());
        return;
      }
      case VariantType::kEmpty:
        break;
    }
    // A record never stores Empty; reaching here is a broken invariant, not bad input.
    pelkedit::Raise(pelkedit::errnum::kInvalidProcedureCall, kRecordSource,
                    "IboData cannot hold an empty value");
  }

 private:
  Blob& out_;
};

class Reader {
 public:
  explicit Reader(const Blob& data) : data_(data) {}

  std::size_t Position() const { return pos_; }
  std::size_t Remaining() const { return data_.size() - pos_; }

  template <typename T>
  T Unsigned(std::string_view what, std::string_view detail = {}) {
    Need(sizeof(T), what, detail);
    T value = 0;
    for (std::size_t i = 0; i < sizeof(T); ++i) {
      value |= static_cast<T>(T{data_[pos_ + i]} << (i * kBitsPerByte));
    }
    pos_ += sizeof(T);
    return value;
  }

  std::string Bytes(std::size_t count, std::string_view what) {
    Need(count, what, {});
    const auto begin = data_.begin() + static_cast<std::ptrdiff_t>(pos_);
    std::string text(begin, begin + static_cast<std::ptrdiff_t>(count));
    pos_ += count;
    return text;
  }

  [[noreturn]] void Malformed(std::size_t at, const std::string& why) const {
    pelkedit::Raise(pelkedit::errnum::kInvalidProcedureCall, kRecordSource,
                    "IboData is malformed at byte " + std::to_string(at) + ": " + why);
  }

 private:
  // The description is built only on failure: decoding a valid record allocates no messages.
  void Need(std::size_t count, std::string_view what, std::string_view detail) const {
    if (count <= Remaining()) return;
    pelkedit::Raise(pelkedit::errnum::kInvalidProcedureCall, kRecordSource,
                    "IboData is truncated at byte " + std::to_string(pos_) + ": " +
                        std::string(what) + std::string(detail) + " needs " +
                        std::to_string(count) + " bytes, " + std::to_string(Remaining()) +
                        " remain");
  }

  const Blob& data_;
  std::size_t pos_ = 0;
};

Variant ReadValue(Reader& in, const PropertyDef& def) {
  const std::string& name = def.info.name;
  switch (def.info.type) {
    case VariantType::kBoolean: {
      const std::size_t at = in.Position();
      const auto byte = in.Unsigned<std::uint8_t>(name);
      if (byte != kTrueByte && byte != kFalseByte) {
        in.Malformed(at, name + " holds " + std::to_string(byte) + ", not a Boolean");
      }
      return Variant(byte == kTrueByte);
    }
    case VariantType::kLong:
      return Variant(static_cast<std::int32_t>(in.Unsigned<std::uint32_t>(name)));
    case VariantType::kDouble:
      return Variant(std::bit_cast<double>(in.Unsigned<std::uint64_t>(name)));
    case VariantType::kDate:
      return Variant(
          pelkedit::Date::FromSeconds(static_cast<std::int64_t>(in.Unsigned<std::uint64_t>(name))));
    case VariantType::kString: {
      const auto length = in.Unsigned<std::uint32_t>(name, "'s length");
      return Variant(in.Bytes(length, name));
    }
    case VariantType::kEmpty:
      break;
  }
  in.Malformed(in.Position(), name + " has no storable type");
}

void ReadHeader(Reader& in) {
  for (const std::uint8_t expected : kIboDataSignature) {
    const std::size_t at = in.Position();
    if (in.Unsigned<std::uint8_t>("the signature") != expected) {
      in.Malformed(at, "not an IBO record (wrong signature)");
    }
  }
  const std::size_t at = in.Position();
  const auto version = in.Unsigned<std::uint16_t>("the format version");
  if (version != kIboDataVersion) {
    in.Malformed(at, "format version " + std::to_string(version) +
                         " is not supported (this build reads version " +
                         std::to_string(kIboDataVersion) + ")");
  }
}

// The exact size of the storage form, so that encoding allocates once.
std::size_t EncodedSize(const RecordValues& values) {
  std::size_t size = kIboDataSignature.size() + sizeof(kIboDataVersion);
  for (const Variant& value : values) {
    switch (value.Type()) {
      case VariantType::kBoolean:
        size += sizeof(std::uint8_t);
        break;
      case VariantType::kLong:
        size += sizeof(std::uint32_t);
        break;
      case VariantType::kDouble:
      case VariantType::kDate:
        size += sizeof(std::uint64_t);
        break;
      case VariantType::kString:
        size += sizeof(std::uint32_t) + value.AsString().size();
        break;
      case VariantType::kEmpty:
        break;
    }
  }
  return size;
}

}  // namespace

Blob EncodeRecord(const RecordValues& values) {
  Blob out;
  out.reserve(EncodedSize(values));
  for (const std::uint8_t byte : kIboDataSignature) out.push_back(byte);
  Writer w(out);
  w.Unsigned(kIboDataVersion);
  for (const Variant& value : values) w.Value(value);
  return out;
}

RecordValues DecodeRecord(const Blob& data) {
  Reader in(data);
  ReadHeader(in);
  RecordValues values;
  values.reserve(DefaultValues().size());
  for (const PropertyDef& def : PropertyDefs()) {
    for (std::size_t slot = 0; slot < def.SlotCount(); ++slot) {
      const std::size_t at = in.Position();
      Variant value = ReadValue(in, def);
      if (auto refusal = CheckValue(def, value)) in.Malformed(at, refusal->description);
      values.push_back(std::move(value));
    }
  }
  if (in.Remaining() != 0) {
    in.Malformed(in.Position(), std::to_string(in.Remaining()) + " bytes follow the last property");
  }
  return values;
}

}  // namespace pelkor::detail
