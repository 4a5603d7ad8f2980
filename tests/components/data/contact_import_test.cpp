// Address-book exports into the contact book: vCard 2.1, 3.0 and 4.0 and CSV as real address
// books write them; entries that cannot be read are reported by line and skipped; importing the
// same file twice adds nobody twice.
#include "data/contact_import.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>

#include "data/ibo_store.h"
#include "data_test_support.h"
#include "values/error.h"

namespace pelkor {
namespace {

using ::testing::ElementsAre;
using testing::ErrorOf;
using ::testing::Field;
using ::testing::HasSubstr;
using testing::TempFolder;

const std::string kSamples = PELK_CONTACT_SAMPLES;

TEST(ContactImport, VCardsWithFoldingQuotedPrintableAndAMarkAreRead) {
  const ContactImport read = ReadContactFile(kSamples + "/sample.vcf");
  ASSERT_EQ(read.contacts.size(), 3u);
  EXPECT_EQ(read.contacts[0], (Contact{0, "Zoë", "Brännström", "Nordic Timber Imports",
                                       "88 Harbor Blvd, Seattle WA 98121 USA", "(206) 555-0178",
                                       "zoe.brannstrom@nordictimber.example"}));
  EXPECT_EQ(read.contacts[1].first, "Jörg");
  EXPECT_EQ(read.contacts[1].last, "Müller");
  EXPECT_EQ(read.contacts[1].email, "joerg@rhein-logistik.example");
  // A version 4 card with only a formatted name.
  EXPECT_EQ(read.contacts[2].first, "Amara");
  EXPECT_EQ(read.contacts[2].last, "Okonkwo");
  EXPECT_THAT(read.skipped,
              ElementsAre(Field(&ImportProblem::line, 25), Field(&ImportProblem::line, 29)));
  EXPECT_EQ(read.skipped[0].why, "a contact without a name");
  EXPECT_EQ(read.skipped[1].why, "a contact without END:VCARD");
}

TEST(ContactImport, CsvWithQuotedCommasAndLineBreaksIsRead) {
  const ContactImport read = ReadContactFile(kSamples + "/sample.csv");
  ASSERT_EQ(read.contacts.size(), 3u);
  EXPECT_EQ(read.contacts[0].company, "Emerald Print Works, Ltd.");
  EXPECT_EQ(read.contacts[0].address, "6 Canal St\r\nBoston MA 02114");
  EXPECT_EQ(read.contacts[0].phone, "(617) 555-0121");
  EXPECT_EQ(read.contacts[2].first, "Chloé");
  EXPECT_EQ(read.contacts[2].address, "31 \"Rue\" Market St");
  ASSERT_EQ(read.skipped.size(), 2u);
  EXPECT_EQ(read.skipped[0].line, 5);
  EXPECT_EQ(read.skipped[0].why, "a contact without a name");
  EXPECT_EQ(read.skipped[1].line, 6);
  EXPECT_EQ(read.skipped[1].why, "3 fields where the header has 6");
}

TEST(ContactImport, AHeaderWithoutANameAndAMissingFileAreErrors) {
  EXPECT_THROW(ReadCsvContacts("Company,Phone\r\nAcme,555\r\n"), pelkedit::PelkError);
  EXPECT_THROW(ReadContactFile(kSamples + "/no-such-file.vcf"), pelkedit::PelkError);
  // Google's column names.
  const ContactImport google = ReadCsvContacts(
      "Name,Given Name,Family Name,E-mail 1 - Value,Organization 1 - Name\n"
      "Ann Lee,Ann,Lee,ann@lee.example,Lee & Co\n");
  ASSERT_EQ(google.contacts.size(), 1u);
  EXPECT_EQ(google.contacts[0].email, "ann@lee.example");
  EXPECT_EQ(google.contacts[0].company, "Lee & Co");
}

TEST(ContactImport, ASecondImportOfTheSameFileAddsNobody) {
  const auto store = OpenIboStore(":memory:");
  const ContactImport read = ReadContactFile(kSamples + "/sample.vcf");
  EXPECT_EQ(store->AddContacts(read.contacts), 3);
  EXPECT_EQ(store->AddContacts(read.contacts), 0);
  EXPECT_EQ(store->AddContacts(ReadContactFile(kSamples + "/sample.csv").contacts), 3);
  EXPECT_EQ(store->ListContacts().size(), 6u);
  EXPECT_EQ(store->ListContacts().front().last, "Brännström");
}

// UTF-16 as `text` (ASCII and two-byte UTF-8 plus one four-byte character, which is all the
// tests need) would be written by a Windows address book, with its byte order mark.
std::string Utf16(const std::u16string& text, bool bigEndian) {
  std::string bytes = bigEndian ? "\xFE\xFF" : "\xFF\xFE";
  for (const char16_t unit : text) {
    const char high = static_cast<char>(unit >> 8);
    const char low = static_cast<char>(unit & 0xFF);
    bytes += bigEndian ? std::string{high, low} : std::string{low, high};
  }
  return bytes;
}

std::string Written(const TempFolder& folder, const std::string& name, const std::string& bytes) {
  const std::string path = folder.File(name);
  std::ofstream(path, std::ios::binary) << bytes;
  return path;
}

// Windows exports UTF-16; anything that is neither UTF-8 nor UTF-16 with its mark is refused
// whole, naming the line, so no backend stores a garbled or cut name.
TEST(ContactImport, Utf8AndUtf16AreReadAndOtherTextIsRefusedByLine) {
  TempFolder folder;
  const auto csv = ReadContactFile(
      Written(folder, "le.csv",
              Utf16(u"First Name,Last Name\r\nJ\u00F6rg,M\u00FCller \U0001F600\r\n", false)));
  ASSERT_EQ(csv.contacts.size(), 1u);
  EXPECT_EQ(csv.contacts[0].first, "Jörg");
  EXPECT_EQ(csv.contacts[0].last, "Müller 😀");
  const auto vcf = ReadContactFile(
      Written(folder, "be.vcf",
              Utf16(u"BEGIN:VCARD\r\nN:Br\u00E4nnstr\u00F6m;Zo\u00EB\r\nEND:VCARD\r\n", true)));
  ASSERT_EQ(vcf.contacts.size(), 1u);
  EXPECT_EQ(vcf.contacts[0].last, "Brännström");

  const auto refusal = [&](const std::string& name, const std::string& bytes) {
    return ErrorOf([&] { ReadContactFile(Written(folder, name, bytes)); }).Description();
  };
  // UTF-16 without its mark reads as text full of NUL characters.
  std::string unmarked = Utf16(u"First Name,Last Name\r\nAnn,Lee\r\n", false).substr(2);
  EXPECT_THAT(refusal("unmarked.csv", unmarked), HasSubstr("line 1 holds a NUL character"));
  EXPECT_THAT(refusal("latin1.csv", "First Name,Last Name\nAnn,Lee\nJ\xF6rg,M\xFCller\n"),
              HasSubstr("line 3 is not UTF-8 text"));
  EXPECT_THAT(refusal("nul.vcf", std::string("BEGIN:VCARD\nN:Lee;A\0nn\nEND:VCARD\n", 31)),
              HasSubstr("line 2 holds a NUL character"));
  EXPECT_THAT(refusal("broken.csv", Utf16(u"First Name\r\n\xD800x\r\n", false)),
              HasSubstr("line 2 holds a broken UTF-16 character"));
}

// A file of many bad entries reports a few of each kind by line and counts the rest.
TEST(ContactImport, RepeatedSkipsAreSummedUp) {
  std::string csv = "First Name,Last Name,Company\n";
  for (int i = 0; i < 25; ++i) csv += ",,Acme\n";
  for (int i = 0; i < 30; ++i) csv += "Ann\n";
  csv += "Ann,Lee,Acme\n";
  const ContactImport read = ReadCsvContacts(csv);
  EXPECT_EQ(read.contacts.size(), 1u);
  ASSERT_EQ(read.skipped.size(), 2 * ContactImport::kKeptPerReason);
  EXPECT_EQ(read.skipped[0].line, 2);
  EXPECT_EQ(read.skipped[10].why, "1 fields where the header has 3");
  EXPECT_EQ(read.skipped[10].line, 27);
  EXPECT_THAT(read.moreSkipped,
              ElementsAre(std::pair<std::string, std::size_t>{"a contact without a name", 15},
                          std::pair<std::string, std::size_t>{
                              "a number of fields other than the header's", 20}));
  EXPECT_EQ(read.SkippedCount(), 55u);
}

// Only the parts of a structured value that are used are kept: a card with millions of
// separators does not turn into millions of strings.
TEST(ContactImport, LongStructuredValuesAndFoldsAreReadWhole) {
  std::string card = "BEGIN:VCARD\nN;CHARSET=UTF-8;ENCODING=QUOTED-PRINTABLE:Lee;Ann" +
                     std::string(100000, ';') + "=\n";
  for (int i = 0; i < 1000; ++i) card += " folded=\n";
  card += "\nADR:;;1 Main St;Springfield;;12345;USA" + std::string(100000, ';') + "\nEND:VCARD\n";
  const ContactImport read = ReadVCards(card);
  ASSERT_EQ(read.contacts.size(), 1u);
  EXPECT_EQ(read.contacts[0].first, "Ann");
  EXPECT_EQ(read.contacts[0].address, "1 Main St, Springfield 12345 USA");
}

}  // namespace
}  // namespace pelkor
