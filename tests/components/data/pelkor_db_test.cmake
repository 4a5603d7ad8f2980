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
expect_match("${out}" "1001  main +IBO#1001 +Harbor Freight Logistics +Open +expert")
expect_match("${out}" "9001  archive +IBO#9001 +Old Mill Hardware +Lost +expert")
string(REGEX MATCHALL "\n" lines "${out}")
list(LENGTH lines count)
if(NOT count EQUAL 9)
  message(FATAL_ERROR "expected 9 lines, got ${count}:\n${out}")
endif()

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
