#include <gtest/gtest.h>

#include <bit>
#include <limits>

#include "record/ibo_properties.h"
#include "record_test_support.h"
#include "values/date.h"

namespace pelkor {
namespace {

using pelkedit::Blob;
using pelkedit::Variant;
using pelkedit::VariantType;
using testing::CaptureError;
using testing::Describe;
namespace errnum = pelkedit::errnum;

constexpr int kSlots = 10;
constexpr std::size_t kSignatureBytes = 4;

// Offset in the storage form of the first byte that changes when `change` is applied to a new
// record: finds a field without knowing the layout.
std::size_t OffsetOfChange(const std::function<void(pelkedit::IRecord&)>& change) {
  auto plain = CreateIboProperties();
  auto changed = CreateIboProperties();
  change(*changed);
  const Blob a = plain->GetIboData();
  const Blob b = changed->GetIboData();
  const auto diff = std::mismatch(a.begin(), a.end(), b.begin(), b.end());
  EXPECT_NE(diff.first, a.end()) << "the change did not show in the storage form";
  return static_cast<std::size_t>(diff.first - a.begin());
}

void ExpectRefused(pelkedit::IRecord& record, const Blob& bytes, const std::string& fault) {
  const Blob before = record.GetIboData();
  const auto error = CaptureError([&] { record.SetIboData(bytes); });
  EXPECT_EQ(error.Number(), errnum::kInvalidProcedureCall) << fault;
  EXPECT_EQ(error.Source(), kRecordSource) << fault;
  EXPECT_NE(error.Description().find(fault), std::string::npos)
      << "expected '" << fault << "' in: " << error.Description();
  EXPECT_EQ(record.GetIboData(), before) << "a refused storage form changed the record";
}

TEST(RecordStorageTest, EveryPropertyAndSlotSurvivesTheStorageForm) {
  auto source = testing::FullyFilledRecord();
  auto fresh = CreateIboProperties();
  auto copy = CreateIboProperties();
  copy->SetIboData(source->GetIboData());

  for (const PropertyInfo& info : RecordSchema()) {
    for (int slot = info.indexed ? 0 : -1; slot < (info.indexed ? kSlots : 0); ++slot) {
      const Variant want = slot < 0 ? source->Get(info.name) : source->GetAt(info.name, slot);
      const Variant got = slot < 0 ? copy->Get(info.name) : copy->GetAt(info.name, slot);
      const Variant initial = slot < 0 ? fresh->Get(info.name) : fresh->GetAt(info.name, slot);
      EXPECT_EQ(got, want) << Describe(info.name, slot, got);
      if (!info.readOnly) {
        EXPECT_NE(want, initial) << Describe(info.name, slot, want) << " tests nothing";
      }
    }
  }
  EXPECT_EQ(copy->GetIboData(), source->GetIboData());
}

TEST(RecordStorageTest, DoublesKeepEveryBitAndDatesEverySecond) {
  auto record = CreateIboProperties();
  const double quietNanWithPayload = std::bit_cast<double>(std::uint64_t{0x7FF800000000BEEF});
  const double values[] = {-0.0, quietNanWithPayload, std::numeric_limits<double>::denorm_min(),
                           -std::numeric_limits<double>::infinity(), 0.1 + 0.2};
  const auto stamp = pelkedit::Date::FromCivil(2031, 12, 31, 23, 59, 59);
  for (const double value : values) {
    record->Set("TotalValueHundredths", value);
    record->SetAt("TrialCloseDate", 7, stamp);
    auto copy = CreateIboProperties();
    copy->SetIboData(record->GetIboData());
    EXPECT_EQ(std::bit_cast<std::uint64_t>(copy->Get("TotalValueHundredths").AsDouble()),
              std::bit_cast<std::uint64_t>(value));
    EXPECT_EQ(copy->GetAt("TrialCloseDate", 7).AsDate().SecondsSinceEpoch(),
              stamp.SecondsSinceEpoch());
  }
}

TEST(RecordStorageTest, EachAsciiCharacterOfATextAddsExactlyOneByte) {
  auto record = CreateIboProperties();
  auto size = CreateIboSizeCalculator();
  const auto measure = [&] { return size->GetPhysicalSize(record->GetIboData()).AsLong(); };
  const std::int32_t base = measure();
  for (const PropertyInfo& info : RecordSchema()) {
    if (info.type != VariantType::kString || info.readOnly) continue;
    for (const std::int32_t length : {1, 2, 1000}) {
      const Variant text = std::string(static_cast<std::size_t>(length), 'x');
      info.indexed ? record->SetAt(info.name, 4, text) : record->Set(info.name, text);
      EXPECT_EQ(measure(), base + length) << info.name;
    }
    info.indexed ? record->SetAt(info.name, 4, "") : record->Set(info.name, "");
  }
  EXPECT_EQ(measure(), base);
}

TEST(RecordStorageTest, EveryTruncationIsRefusedAndLeavesTheRecordAlone) {
  const Blob whole = testing::FullyFilledRecord()->GetIboData();
  auto record = testing::FullyFilledRecord();
  record->Set("IboNote", "kept through every refusal");
  for (std::size_t length = 0; length < whole.size(); ++length) {
    ExpectRefused(*record, Blob(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length)),
                  "truncated at byte");
  }
  Blob longer = whole;
  longer.push_back(0);
  ExpectRefused(*record, longer, "1 bytes follow the last property");
  EXPECT_EQ(record->Get("IboNote"), Variant("kept through every refusal"));
}

TEST(RecordStorageTest, ForeignOrFutureOrCorruptBytesAreRefused) {
  auto record = testing::FullyFilledRecord();
  const Blob good = CreateIboProperties()->GetIboData();

  Blob foreign = good;
  foreign[0] ^= 0xFF;
  ExpectRefused(*record, foreign, "wrong signature");
  Blob future = good;
  future[kSignatureBytes] += 1;
  ExpectRefused(*record, future, "format version 2 is not supported");

  const std::string marker = "find-me";
  const std::size_t lengthAt = OffsetOfChange([&](auto& r) { r.Set("ContactCompany", marker); });
  Blob huge = good;
  std::fill_n(huge.begin() + static_cast<std::ptrdiff_t>(lengthAt), 4, std::uint8_t{0xFF});
  ExpectRefused(*record, huge, "ContactCompany needs 4294967295 bytes");

  // A one-byte text whose byte is not UTF-8.
  Blob badText = CreateIboProperties()->GetIboData();
  {
    auto withByte = CreateIboProperties();
    withByte->Set("ContactCompany", "a");
    badText = withByte->GetIboData();
    badText[lengthAt + 4] = 0xFE;
  }
  ExpectRefused(*record, badText, "'ContactCompany' is not valid UTF-8");

  const std::size_t flagAt = OffsetOfChange([](auto& r) { r.Set("CloseDecided", true); });
  Blob notBoolean = good;
  notBoolean[flagAt] = 2;
  ExpectRefused(*record, notBoolean, "CloseDecided holds 2, not a Boolean");

  const std::size_t ringAt = OffsetOfChange([](auto& r) { r.Set("TrialCloseFirst", 5); });
  Blob outsideRing = good;
  outsideRing[ringAt] = 10;
  ExpectRefused(*record, outsideRing, "'TrialCloseFirst' takes 0 to 9, not 10");

  // Dates the editor's arithmetic cannot hold, at both ends of the 64-bit count.
  const std::size_t dateAt =
      OffsetOfChange([](auto& r) { r.Set("WwihDate", pelkedit::Date::FromDayNumber(1)); });
  for (const std::uint8_t fill : {std::uint8_t{0x7F}, std::uint8_t{0x80}}) {
    Blob farDate = good;
    std::fill_n(farDate.begin() + static_cast<std::ptrdiff_t>(dateAt), 8, fill);
    ExpectRefused(*record, farDate, "'WwihDate' holds a date outside 0100-01-01 to 9999-12-31");
  }

  ExpectRefused(*record, Blob{}, "truncated at byte 0");
}

// Every byte of a filled record overwritten with a few values: the bytes are either refused
// with the record left alone, or accepted exactly as they are (the form is canonical).
TEST(RecordStorageTest, ACorruptByteAnywhereIsRefusedOrReadBackExactly) {
  const Blob whole = testing::FullyFilledRecord()->GetIboData();
  auto record = CreateIboProperties();
  const Blob untouched = record->GetIboData();
  for (std::size_t at = 0; at < whole.size(); ++at) {
    for (const std::uint8_t byte : {0x00, 0x02, 0x80, 0xFF}) {
      Blob bytes = whole;
      bytes[at] = byte;
      try {
        record->SetIboData(bytes);
      } catch (const pelkedit::PelkError& error) {
        EXPECT_EQ(error.Source(), kRecordSource);
        ASSERT_EQ(record->GetIboData(), untouched) << "byte " << at;
        continue;
      }
      ASSERT_EQ(record->GetIboData(), bytes) << "byte " << at;
      record->SetIboData(untouched);
    }
  }
}

TEST(RecordStorageTest, TheFirstVersionLayoutStaysFixed) {
  // Stored records outlive builds: a change to this layout needs a new format version. The
  // filled record's fingerprint also catches two properties of one type trading places.
  const Blob empty = CreateIboProperties()->GetIboData();
  ASSERT_GE(empty.size(), kSignatureBytes + 2);
  EXPECT_EQ(std::string(empty.begin(), empty.begin() + kSignatureBytes), "PIBO");
  EXPECT_EQ(empty[kSignatureBytes], 1);
  EXPECT_EQ(empty[kSignatureBytes + 1], 0);
  EXPECT_EQ(empty.size(), 407u);

  std::uint64_t fnv1a = 14695981039346656037ULL;
  for (const std::uint8_t byte : testing::FullyFilledRecord()->GetIboData()) {
    fnv1a = (fnv1a ^ byte) * 1099511628211ULL;
  }
  EXPECT_EQ(fnv1a, 16203294134107259977ULL);
}

}  // namespace
}  // namespace pelkor
