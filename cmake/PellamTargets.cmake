# Helpers that give every target of the house the same warnings, standard and layout.

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE_PROGRAM})
endif()

# Compiled-in files without their time of change, so that two builds give the same bytes.
set(CMAKE_AUTORCC_OPTIONS --format-version 1)

function(pellam_compile_options target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wshadow -Wconversion)
  if(PELLAM_SANITIZE)
    target_compile_options(${target} PRIVATE -fsanitize=address,undefined -fno-sanitize-recover=all
                                             -fno-omit-frame-pointer)
    target_link_options(${target} PRIVATE -fsanitize=address,undefined)
  endif()
  if(PELLAM_FUZZ)
    target_compile_options(${target} PRIVATE -fsanitize=fuzzer-no-link,address,undefined
                                             -fno-sanitize-recover=all)
  endif()
endfunction()

# pellam_precompiled(TARGET KIND HEADERS ... LIBS ...): the target shares one precompiled header with all
# others of its kind. Each is some hundred megabytes.
function(pellam_precompiled target kind)
  cmake_parse_arguments(ARG "" "" "HEADERS;LIBS" ${ARGN})
  set(shared pellam_precompiled_${kind})
  if(NOT TARGET ${shared})
    set(source ${PROJECT_BINARY_DIR}/${shared}.cpp)
    file(CONFIGURE OUTPUT ${source} CONTENT "")
    add_library(${shared} OBJECT ${source})
    target_include_directories(${shared} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
    target_link_libraries(${shared} PRIVATE ${ARG_LIBS})
    if(NOT kind STREQUAL PlainTests)
      target_compile_definitions(${shared} PRIVATE QT_NO_KEYWORDS QT_NO_CAST_FROM_ASCII)
    endif()
    target_precompile_headers(${shared} PRIVATE ${ARG_HEADERS})
    pellam_compile_options(${shared})
  endif()
  target_precompile_headers(${target} REUSE_FROM ${shared})
endfunction()

# pellam_library(NAME [QT Core|Gui|Widgets] [PUBLIC libs ...] [PRIVATE libs ...]): one static library of
# this folder's sources. Headers are included by their path below src/. Without QT it can't include Qt.
function(pellam_library name)
  cmake_parse_arguments(ARG "" "QT" "PUBLIC;PRIVATE" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp ${CMAKE_CURRENT_SOURCE_DIR}/*.h
       ${CMAKE_CURRENT_SOURCE_DIR}/*.qrc)
  list(FILTER sources EXCLUDE REGEX "/main\\.cpp$")
  if(NOT sources)
    file(WRITE ${CMAKE_CURRENT_BINARY_DIR}/empty.cpp "")
    set(sources ${CMAKE_CURRENT_BINARY_DIR}/empty.cpp)
  endif()
  add_library(${name} STATIC ${sources})
  set_target_properties(${name} PROPERTIES LINKER_LANGUAGE CXX)
  target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(${name} PUBLIC ${ARG_PUBLIC} PRIVATE ${ARG_PRIVATE})
  pellam_compile_options(${name})
  if(ARG_QT)
    set_target_properties(${name} PROPERTIES AUTOMOC ON AUTORCC ON)
    target_link_libraries(${name} PUBLIC Qt6::${ARG_QT})
    target_compile_definitions(${name} PUBLIC QT_NO_KEYWORDS QT_NO_CAST_FROM_ASCII)
    pellam_precompiled(${name} ${ARG_QT} HEADERS <Qt${ARG_QT}> LIBS Qt6::${ARG_QT})
  endif()
endfunction()

# pellam_test(NAME [QT] LIBS ...): one test executable of this folder's sources, registered with CTest
# case by case. A Qt test has an application object. The precompiled header has gtest, Qt
# and Table.h.
function(pellam_test name)
  cmake_parse_arguments(ARG "QT" "" "LIBS" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp ${CMAKE_CURRENT_SOURCE_DIR}/*.h)
  if(NOT sources)
    return()
  endif()
  add_executable(${name} ${sources} ${PROJECT_SOURCE_DIR}/tests/TestMain.cpp)
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  target_compile_definitions(${name} PRIVATE PELLAM_SAMPLES="${PROJECT_SOURCE_DIR}/samples")
  target_link_libraries(${name} PRIVATE ${ARG_LIBS} GTest::gtest)
  pellam_compile_options(${name})
  if(ARG_QT)
    set_target_properties(${name} PROPERTIES AUTOMOC ON)
    target_link_libraries(${name} PRIVATE Qt6::Test Qt6::Widgets)
    pellam_precompiled(${name} WidgetTests HEADERS <gtest/gtest.h> <QtTest> <QtWidgets> <Table.h>
                       LIBS GTest::gtest Qt6::Test Qt6::Widgets)
    # Qt's test library tells every target its own folders, which no header in common may differ by.
    foreach(target ${name} pellam_precompiled_WidgetTests)
      target_compile_options(${target} PRIVATE -UQT_TESTCASE_BUILDDIR -UQT_TESTCASE_SOURCEDIR)
    endforeach()
    gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 120
                         ENVIRONMENT "QT_QPA_PLATFORM=offscreen")
  else()
    pellam_precompiled(${name} PlainTests HEADERS <gtest/gtest.h> <Table.h> LIBS GTest::gtest)
    gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 120)
  endif()
endfunction()
