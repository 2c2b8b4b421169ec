# Tests of the window and COM code: they run under Wine, in the prefix that tests/with-wine has made.

add_library(test_support STATIC support/main.cpp support/ChildProcess.cpp support/HandleCount.cpp support/TempFolder.cpp)
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

# The automation object is tested in the registered module, with doubles of the host's objects.
file(GLOB control_support CONFIGURE_DEPENDS control/*.cpp)
list(FILTER control_support EXCLUDE REGEX "Test\\.cpp$")
target_sources(control_tests PRIVATE ${control_support})
add_dependencies(control_tests nuxStdPartsAX)

# The dimension chooser, in its own program: it brings the component's resources along, as the module does. It runs
# once with a decimal point, once with a decimal comma, and once with a code page of double-byte characters.
file(GLOB chooser_sources CONFIGURE_DEPENDS chooser/*.cpp)
add_executable(chooser_tests ${chooser_sources} ${PROJECT_SOURCE_DIR}/resources/nuxStdPartsAX.rc)
get_property(resource_properties SOURCE ${PROJECT_SOURCE_DIR}/resources/nuxStdPartsAX.rc
    DIRECTORY ${PROJECT_SOURCE_DIR} PROPERTY INCLUDE_DIRECTORIES)
set_source_files_properties(${PROJECT_SOURCE_DIR}/resources/nuxStdPartsAX.rc PROPERTIES
    INCLUDE_DIRECTORIES "${resource_properties}")
target_link_libraries(chooser_tests PRIVATE test_support driver)
foreach(locale en_US de_DE ja_JP)
    add_test(NAME chooser_tests_${locale} COMMAND chooser_tests)
    # Pointer, keyboard and registry are those of the whole desktop.
    set_tests_properties(chooser_tests_${locale} PROPERTIES
        TIMEOUT 600 RUN_SERIAL TRUE ENVIRONMENT "LC_ALL=${locale}.UTF-8")
endforeach()

# What the tests of the environment run in a process of its own.
add_executable(fresh_process environment/fresh_process.cpp)
target_link_libraries(fresh_process PRIVATE component decisions platform)
add_dependencies(environment_tests fresh_process resource_german)

nux_windows_test(huge_files_tests environment/huge/HugeFilesTest.cpp)
