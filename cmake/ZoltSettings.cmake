# What every target shares: the language, the warnings, ccache, sanitizers, moc.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

# The build folder mirrors an installation: programs in bin/, their files in share/zolt/.
include(GNUInstallDirs)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)
set(ZOLT_DATA_DIR ${PROJECT_BINARY_DIR}/share/zolt)
# From the programs' folder to that of what they load at run time.
file(RELATIVE_PATH ZOLT_MODULE_DIR ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBDIR}/zolt)

find_program(CCACHE ccache)
if(CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE})
endif()

# The presets make errors of them; another compiler or level may warn of what is none.
add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual)

if(ZOLT_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()
if(ZOLT_FUZZ)
  add_compile_options(-fsanitize=fuzzer-no-link)
endif()

# zolt_library(NAME SOURCES... ) makes a static library whose headers are
# included by their path below src/.
function(zolt_library name)
  add_library(${name} STATIC ${ARGN})
  target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
endfunction()

# zolt_use_qt(TARGET) lets moc run on a target's headers. The operations of the
# windows have Portuguese names with accents, which moc reads with a little help.
function(zolt_use_qt target)
  get_target_property(real_moc Qt6::moc IMPORTED_LOCATION)
  if(NOT real_moc)
    get_target_property(real_moc Qt6::moc IMPORTED_LOCATION_NONE)
  endif()
  set(wrapper ${PROJECT_BINARY_DIR}/moc_utf8)
  if(NOT EXISTS ${wrapper})
    file(CONFIGURE OUTPUT ${wrapper}.in CONTENT
      "#!/bin/sh\nexec '${Python3_EXECUTABLE}' '${PROJECT_SOURCE_DIR}/cmake/moc_utf8.py' '${real_moc}' \"$@\"\n")
    file(COPY_FILE ${wrapper}.in ${wrapper})
    file(CHMOD ${wrapper} PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE)
  endif()
  set_target_properties(${target} PROPERTIES
    AUTOMOC ON AUTORCC ON AUTOMOC_EXECUTABLE ${wrapper} AUTOGEN_PARALLEL 2)
endfunction()
