# Tests of the window and COM code: they run under Wine, each in a prefix of its own.

add_library(test_support STATIC support/main.cpp support/ChildProcess.cpp support/HandleCount.cpp support/PrivateMemory.cpp
    support/TempFolder.cpp)
target_link_libraries(test_support PUBLIC gtest component decisions platform)

# nux_windows_test(<name> <source>...): a test program that links the component's layers.
function(nux_windows_test name)
    nux_test(${name} ${ARGN})
    target_link_libraries(${name} PRIVATE test_support)
endfunction()

foreach(layer framework environment control)
    file(GLOB sources CONFIGURE_DEPENDS ${layer}/*Test.cpp)
    list(FILTER sources EXCLUDE REGEX LanguageTableTest)
    if(sources)
        nux_windows_test(${layer}_tests ${sources})
    endif()
endforeach()

# The driver that works dialogs as a user does; every test of a dialog links it.
file(GLOB driver_sources CONFIGURE_DEPENDS driver/*.cpp)
list(FILTER driver_sources EXCLUDE REGEX "Test\\.cpp$")
add_library(driver STATIC ${driver_sources})
target_link_libraries(driver PUBLIC gtest comctl32 gdi32 user32)

file(GLOB driver_tests CONFIGURE_DEPENDS driver/*Test.cpp)
nux_windows_test(driver_tests ${driver_tests})
target_link_libraries(driver_tests PRIVATE driver)

# The framework is tested with a type library, registry scripts and a dialog of the test program's own.
compile_idl(framework/Sample.idl HEADER Sample.h TYPELIB Sample.tlb)
target_sources(framework_tests PRIVATE framework/SampleGuids.cpp framework/framework_tests.rc)
set_source_files_properties(framework/framework_tests.rc PROPERTIES
    INCLUDE_DIRECTORIES "${CMAKE_CURRENT_SOURCE_DIR}/framework;${PROJECT_BINARY_DIR}/include"
    OBJECT_DEPENDS "${PROJECT_BINARY_DIR}/include/Sample.tlb;${CMAKE_CURRENT_SOURCE_DIR}/framework/sample.rgs")
add_dependencies(framework_tests idl_Sample)

include(control.cmake)

# The dimension chooser. Its programs bring the component's resources along, as the module does.
add_library(component_resources OBJECT ${PROJECT_SOURCE_DIR}/resources/nuxStdPartsAX.rc)
get_property(resource_folders SOURCE ${PROJECT_SOURCE_DIR}/resources/nuxStdPartsAX.rc
    DIRECTORY ${PROJECT_SOURCE_DIR} PROPERTY INCLUDE_DIRECTORIES)
get_property(resource_files SOURCE ${PROJECT_SOURCE_DIR}/resources/nuxStdPartsAX.rc
    DIRECTORY ${PROJECT_SOURCE_DIR} PROPERTY OBJECT_DEPENDS)
set_source_files_properties(${PROJECT_SOURCE_DIR}/resources/nuxStdPartsAX.rc PROPERTIES
    INCLUDE_DIRECTORIES "${resource_folders}" OBJECT_DEPENDS "${resource_files}")
add_dependencies(component_resources idl_nuxStdPartsAX)

add_library(chooser_support STATIC
    chooser/Chooser.cpp chooser/ChooserTest.cpp chooser/Dom.cpp chooser/TestedThreadWindow.cpp)
target_link_libraries(chooser_support PUBLIC test_support driver)

file(GLOB chooser_tests CONFIGURE_DEPENDS chooser/*Test.cpp)
list(FILTER chooser_tests EXCLUDE REGEX "/(Chooser|CommonMessages|Endurance)Test\\.cpp$")
add_executable(chooser_tests ${chooser_tests} control/FailingAllocations.cpp control/HostDoubles.cpp
    control/ImportPatch.cpp)
add_dependencies(chooser_tests nuxStdPartsAX resource_german)
target_compile_definitions(chooser_tests PRIVATE NUX_SCRIPTS="Z:${CMAKE_CURRENT_SOURCE_DIR}/chooser")
target_link_libraries(chooser_tests PRIVATE chooser_support component_resources)
add_executable(chooser_messages_tests chooser/CommonMessagesTest.cpp)
target_link_libraries(chooser_messages_tests PRIVATE chooser_support component_resources)
add_executable(chooser_endurance_tests chooser/EnduranceTest.cpp)
target_link_libraries(chooser_endurance_tests PRIVATE chooser_support component_resources psapi)

add_test(NAME chooser_endurance_tests COMMAND chooser_endurance_tests)
set_tests_properties(chooser_endurance_tests PROPERTIES TIMEOUT 600 LABELS once)

# A decimal point, a decimal comma, double-byte texts.
foreach(program chooser_tests chooser_messages_tests)
    foreach(locale en_US de_DE ja_JP)
        add_test(NAME ${program}_${locale} COMMAND ${program})
        set_tests_properties(${program}_${locale} PROPERTIES TIMEOUT 300 ENVIRONMENT "NUX_LOCALE=${locale}.UTF-8")
    endforeach()
    set_tests_properties(${program}_de_DE ${program}_ja_JP PROPERTIES LABELS once)
endforeach()

add_executable(chooser_pictures chooser/pictures.cpp)
target_link_libraries(chooser_pictures PRIVATE chooser_support component_resources)

# What the tests of the environment run in a process of its own.
add_executable(fresh_process environment/fresh_process.cpp)
target_link_libraries(fresh_process PRIVATE component decisions platform)
add_dependencies(environment_tests fresh_process resource_german)
target_sources(environment_tests PRIVATE control/ImportPatch.cpp)

nux_windows_test(huge_files_tests environment/huge/HugeFilesTest.cpp)
set_tests_properties(huge_files_tests PROPERTIES LABELS once)

# The language comes from the locale of the process.
add_executable(language_tests languages/InterfaceLanguageTest.cpp)
target_link_libraries(language_tests PRIVATE test_support)
foreach(locale de_AT de_CH de_DE en_US ja_JP cy_GB gl_ES)
    add_test(NAME language_tests_${locale} COMMAND language_tests ${locale})
    set_tests_properties(language_tests_${locale} PROPERTIES TIMEOUT 300 LABELS once ENVIRONMENT "NUX_LOCALE=${locale}.UTF-8")
endforeach()
set_tests_properties(language_tests_en_US PROPERTIES LABELS "")
nux_windows_test(double_byte_tests languages/DoubleByteTest.cpp)
set_tests_properties(double_byte_tests PROPERTIES LABELS once ENVIRONMENT "NUX_LOCALE=ja_JP.UTF-8")
# In this time zone a stamp of the system's clock differs from one of the local clock.
set_tests_properties(environment_tests PROPERTIES ENVIRONMENT "NUX_TIME_ZONE=XYZ-5:30")

# The prefix that each of them gets a copy of.
get_property(tests DIRECTORY PROPERTY TESTS)
list(REMOVE_ITEM tests module_imports_and_exports)
set_tests_properties(${tests} PROPERTIES FIXTURES_REQUIRED prefix)
add_test(NAME prefix COMMAND ${PROJECT_SOURCE_DIR}/wine/make-prefix
    ${PROJECT_BINARY_DIR}/prefix $<TARGET_FILE:nuxStdPartsAX>)
set_tests_properties(prefix PROPERTIES FIXTURES_SETUP prefix TIMEOUT 120)

# What nearly every test includes is compiled once.
target_precompile_headers(test_support PRIVATE <windows.h> <gtest/gtest.h>)
foreach(target framework_tests environment_tests control_tests driver driver_tests chooser_support chooser_tests
        chooser_endurance_tests chooser_messages_tests chooser_pictures huge_files_tests language_tests double_byte_tests)
    target_precompile_headers(${target} REUSE_FROM test_support)
endforeach()
