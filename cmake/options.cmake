# What every target is compiled with.
add_library(tarnwell_options INTERFACE)
target_compile_options(tarnwell_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Wimplicit-fallthrough -Werror
  # Formulas run operation by operation, so that every build gives the same bytes.
  -ffp-contract=off)

if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # GCC 12 sees overlapping copies in plain string concatenations when it optimises fully.
  target_compile_options(tarnwell_options INTERFACE -Wno-restrict)
endif()

if(CMAKE_SYSTEM_PROCESSOR MATCHES "i686")
  # The x87 unit would round differently from every other build.
  target_compile_options(tarnwell_options INTERFACE -msse2 -mfpmath=sse)
endif()

if(TARNWELL_SANITIZE)
  target_compile_options(tarnwell_options INTERFACE
    -fsanitize=${TARNWELL_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(tarnwell_options INTERFACE -fsanitize=${TARNWELL_SANITIZE})
endif()

if(WIN32)
  target_compile_definitions(tarnwell_options INTERFACE UNICODE _UNICODE WIN32_LEAN_AND_MEAN
    NOMINMAX _WIN32_WINNT=0x0A00)
  # Nothing but the system's own libraries beside the program.
  target_link_options(tarnwell_options INTERFACE -static)
endif()

# CLI11 is headers only; the cross compiler has no /usr/include, so a copy of the Debian package's
# headers is put where only they are found.
add_library(tarnwell_cli11 INTERFACE)
find_path(CLI11_INCLUDE_DIR CLI/CLI.hpp PATHS /usr/include REQUIRED NO_DEFAULT_PATH
          NO_CMAKE_FIND_ROOT_PATH)
file(COPY ${CLI11_INCLUDE_DIR}/CLI DESTINATION ${PROJECT_BINARY_DIR}/cli11)
target_include_directories(tarnwell_cli11 SYSTEM INTERFACE ${PROJECT_BINARY_DIR}/cli11)
