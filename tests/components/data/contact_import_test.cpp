// Address-book exports into the contact book: vCard 2.1, 3.0 and 4.0 and CSV as real address
// books write them; entries that cannot be read are reported by line and skipped; importing the
// same file twice adds nobody twice.
#include "data/contact_import.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/ibo_store.h"
#include "values/error.h"

namespace pelkor {
namespace {

using ::testing::ElementsAre;
using ::testing::Field;

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

}  // namespace
}  // namespace pelkor
