# The one strict target that everything links, and the functions that make libraries and tests.

include(DecantPrecompiled)

add_library(decant_strict INTERFACE)
target_compile_features(decant_strict INTERFACE cxx_std_20)
target_compile_definitions(decant_strict INTERFACE
  QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_CAST_FROM_BYTEARRAY QT_NO_URL_CAST_FROM_STRING
  QT_NO_NARROWING_CONVERSIONS_IN_CONNECT QT_NO_KEYWORDS QT_NO_FOREACH QT_NO_JAVA_STYLE_ITERATORS
  QT_USE_QSTRINGBUILDER QT_DISABLE_DEPRECATED_BEFORE=0x060400)
target_compile_options(decant_strict INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wold-style-cast -Wnon-virtual-dtor -Woverloaded-virtual
  -Wcast-qual $<$<CXX_COMPILER_ID:GNU>:-Wsuggest-override> $<$<BOOL:${DECANT_WERROR}>:-Werror>)
# The tests are two hundred programs, some as large as the whole; this linker takes a third of the time for them.
include(CheckLinkerFlag)
check_linker_flag(CXX -fuse-ld=gold DECANT_HAS_GOLD)
if(DECANT_HAS_GOLD AND CMAKE_BUILD_TYPE STREQUAL "Debug")
  target_link_options(decant_strict INTERFACE -fuse-ld=gold)
endif()
if(DECANT_SANITIZE)
  target_compile_options(decant_strict INTERFACE -fsanitize=${DECANT_SANITIZE} -fno-omit-frame-pointer
    -fno-sanitize-recover=undefined)
  target_link_options(decant_strict INTERFACE -fsanitize=${DECANT_SANITIZE})
endif()
if(DECANT_COVERAGE)
  # A child shares its memory with the program until it becomes the tool (vfork). What the compiler
  # would put before execve, writing the counters down, would count as the end of the program's counting.
  target_compile_options(decant_strict INTERFACE --coverage -fno-builtin-execve)
  target_link_options(decant_strict INTERFACE --coverage)
endif()

# decant_library(NAME [INCLUDE folder…] [LINK target…] [PRECOMPILED kind]) makes a static library of the sources and
# headers in the current folder and in each INCLUDE folder: a file that lies there is part of it. The
# headers of a library are seen only by those that link it, which is how the arrows between the
# layers are held.
function(decant_library name)
  cmake_parse_arguments(ARG "" "PRECOMPILED" "INCLUDE;LINK" ${ARGN})
  set(sources "")
  foreach(folder . ${ARG_INCLUDE})
    file(GLOB found CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/${folder}/*.cpp
         ${CMAKE_CURRENT_SOURCE_DIR}/${folder}/*.h)
    list(APPEND sources ${found})
  endforeach()
  list(REMOVE_DUPLICATES sources)
  add_library(${name} STATIC ${sources})
  set_target_properties(${name} PROPERTIES LINKER_LANGUAGE CXX)
  target_include_directories(${name} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR})
  foreach(folder ${ARG_INCLUDE})
    target_include_directories(${name} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR}/${folder})
  endforeach()
  target_link_libraries(${name} PUBLIC decant_strict ${ARG_LINK})
  if(NOT ARG_PRECOMPILED)
    set(ARG_PRECOMPILED core)
  endif()
  decant_precompile(${name} ${ARG_PRECOMPILED})
endfunction()

# decant_on_demand(NAME [LINK target…]) makes a library of the sources in the current folder that the
# program loads when it is first wanted: lib/libNAME.so in the bundle. It sees the interfaces of the
# desktop room and links nothing of it.
function(decant_on_demand name)
  cmake_parse_arguments(ARG "" "" "LINK" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS *.cpp *.h)
  add_library(${name} MODULE ${sources})
  set_target_properties(${name} PROPERTIES LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bundle/lib
    CXX_VISIBILITY_PRESET hidden)
  target_include_directories(${name} PRIVATE ${CMAKE_SOURCE_DIR}/Ostrak/Desktop)
  target_link_libraries(${name} PRIVATE decant_strict ${ARG_LINK})
endfunction()

# Makes the NAME.moc that the test includes at its end. AUTOMOC would make it, too, but for each of two
# hundred tests also runs a program of its own and compiles a file with nothing in it, which together
# is a third of the whole build.
function(decant_moc_of_test name source)
  set_target_properties(${name} PROPERTIES AUTOMOC OFF)
  file(STRINGS ${source} included REGEX "^#include \"${name}\\.moc\"$")
  if(included)
    set(moc ${CMAKE_CURRENT_BINARY_DIR}/moc/${name}.moc)
    qt6_generate_moc(${source} ${moc} TARGET ${name})
    target_sources(${name} PRIVATE ${moc})
    target_include_directories(${name} PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/moc)
  endif()
endfunction()

# decant_tests(LABEL unit|integration|gui [TIMEOUT seconds] [LINK target…] [PRECOMPILED kind]) makes one
# test of every tst_*.cpp in the current folder; the folder's name is a label, too. The other sources of that
# folder are the tests' own helpers.
function(decant_tests)
  cmake_parse_arguments(ARG "" "LABEL;TIMEOUT;PRECOMPILED" "LINK" ${ARGN})
  if(NOT ARG_PRECOMPILED)
    set(ARG_PRECOMPILED test)
  endif()
  if(NOT ARG_TIMEOUT)
    set(ARG_TIMEOUT 120)
  endif()
  # Sanitizers are slow, and slower where others use the machine.
  if(DECANT_SANITIZE)
    math(EXPR ARG_TIMEOUT "4 * ${ARG_TIMEOUT}")
  endif()
  get_filename_component(module ${CMAKE_CURRENT_SOURCE_DIR} NAME)
  file(GLOB tests CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/tst_*.cpp)
  file(GLOB helpers CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
  list(REMOVE_ITEM helpers ${tests} "")
  if(helpers)
    set(shared ${ARG_LABEL}_${module}_helpers)
    add_library(${shared} STATIC ${helpers})
    target_link_libraries(${shared} PUBLIC ${ARG_LINK} decant_test_support)
    decant_precompile(${shared} ${ARG_PRECOMPILED})
    list(PREPEND ARG_LINK ${shared})
  endif()
  foreach(test ${tests})
    get_filename_component(name ${test} NAME_WE)
    add_executable(${name} ${test})
    decant_moc_of_test(${name} ${test})
    target_link_libraries(${name} PRIVATE ${ARG_LINK} decant_test_support Qt6::Test decant_strict)
    decant_precompile(${name} ${ARG_PRECOMPILED})
    add_test(NAME ${name} COMMAND ${name})
    set_tests_properties(${name} PROPERTIES LABELS "${ARG_LABEL};${module}" TIMEOUT ${ARG_TIMEOUT})
  endforeach()
endfunction()
