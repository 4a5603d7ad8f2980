# Runs pelkor-db seed (twice) and list on a new file, list on a file that is not a database, and
# import-contacts.
# Variables: TOOL (the executable), WORK (a scratch folder), SAMPLES (the contact exports).
file(REMOVE_RECURSE "${WORK}")
file(MAKE_DIRECTORY "${WORK}")
set(db "${WORK}/demo.db")

include(${CMAKE_CURRENT_LIST_DIR}/pelkor_db_test_support.cmake)

run(0 seed "${db}")
expect_match("${out}" "9 IBOs added, 9 in the database")
run(0 seed "${db}")
expect_match("${out}" "0 IBOs added, 9 in the database")

run(0 list "${db}")
expect_match("${out}" "^id +number +company +contact +status +mode +priority +wwih_date +value +owner\n")
expect_match("${out}" "1001 +1001  Harbor Freight Logistics +Dana Whitfield +Open +expert +2  2026-09-30 +72980.00 +[a-z]")
string(REGEX MATCHALL "\n" lines "${out}")
list(LENGTH lines count)
if(NOT count EQUAL 9)
  message(FATAL_ERROR "expected a header and the 8 deals of the main table, got ${count} lines:\n${out}")
endif()
run(0 list "${db}" --archive --status lost)
expect_match("${out}" "9001 +9001  Old Mill Hardware +Eleanor Voss +Lost")

# A deal made from the command line, found again by its customer in any case, and exported as a
# spreadsheet reads it: a text that looks like a formula cannot run as one.
run(0 new "${db}" --company "=SUM(A1:A9),\"x\"" --first "Jürgen" --last "Öz" --wwih 2027-02-01 --format json)
expect_match("${out}" "^{\"id\": 9002, \"number\": 9002}\n$")
run(1 new "${db}" --company "Late" --wwih 2027-02-30)
expect_match("${err}" "is not a date")
run(0 list "${db}" --search "sum( JURGEN" --format csv)
string(SUBSTRING "${out}" 0 3 bom)
string(HEX "${bom}" bom)
if(NOT bom STREQUAL "efbbbf")
  message(FATAL_ERROR "the CSV does not start with UTF-8's byte-order mark: ${bom}")
endif()
expect_match("${out}" "^...id,number,company,contact,")
expect_match("${out}" "\n9002,9002,\"'=SUM\\(A1:A9\\),\"\"x\"\"\",Jürgen Öz,Open,basic,3,")
run(0 list "${db}" --sort value:desc --limit 2 --format json)
expect_match("${out}" "^\\[\n  {\"id\":1003,.*\"value\":200500.0,.*\n  {\"id\":1004,")
run(1 list "${db}" --sort colour)
expect_match("${err}" "cannot sort by 'colour'")

# Archive, restore and delete: only from the archive, and only when asked twice.
run(1 delete "${db}" 1002 --yes)
expect_match("${err}" "it is in the main table. Only archived IBOs can be deleted")
run(0 archive "${db}" 1002)
run(1 delete "${db}" 1002)
expect_match("${err}" "deleting IBO 1002 \\(Cascade Valley Medical Group\\) cannot be undone")
run(0 list "${db}" --archive --search cascade)
expect_match("${out}" "1002")
run(0 restore "${db}" 1002)
run(0 archive "${db}" 1002)
run(0 delete "${db}" 1002 --yes)
run(0 list "${db}" --archive --search cascade)
expect_match("${out}" "no IBOs in the archive table match")

# History lists what the editor's saves replaced; moves between the tables are no saves.
run(0 history "${db}" 1003)
expect_match("${out}" "no saved versions of IBO 1003 in the main table")
run(0 history "${db}" 1002 --archive)
expect_match("${out}" "no saved versions of IBO 1002 in the archive table")

run(0 init "${WORK}/empty.db")
expect_match("${out}" "ready for work: 0 IBOs in it")

file(WRITE "${WORK}/junk.db" "this is a shopping list, not a database\n")
run(1 list "${WORK}/junk.db")
expect_match("${err}" "junk.db': the file is not an IBO database")
run(1 list "${WORK}/missing.db")
expect_match("${err}" "missing.db' does not exist")
if(EXISTS "${WORK}/missing.db")
  message(FATAL_ERROR "list created a database")
endif()

# Contacts from an address book's export: the skipped ones by line, nobody twice.
# Two of the three are demo people already in the book.
run(0 import-contacts "${db}" "${SAMPLES}/sample.csv")
expect_match("${out}" "Imported 1 new contact .*2 already in the book, 2 skipped")
expect_match("${err}" "sample.csv:5: skipped: a contact without a name")
run(0 import-contacts "${db}" "${SAMPLES}/sample.csv")
expect_match("${out}" "Imported 0 new contacts .*3 already in the book, 2 skipped")
run(1 import-contacts "${WORK}/missing.db" "${SAMPLES}/sample.csv")
