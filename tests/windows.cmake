# Tests of the window and COM code: they run under Wine, each in a prefix of its own.

file(GLOB support CONFIGURE_DEPENDS support/*.cpp)
list(FILTER support EXCLUDE REGEX "/(main)\\.cpp$")
add_library(test_support STATIC support/main.cpp ${support})
target_link_libraries(test_support PUBLIC gtest control driver psapi version)
# What nearly every test includes is compiled once.
target_precompile_headers(test_support PRIVATE <windows.h> <gtest/gtest.h>)

# nux_windows_program(<name> <source>...): a program of the tests.
function(nux_windows_program name)
    add_executable(${name} ${ARGN})
    target_link_libraries(${name} PRIVATE test_support)
    target_precompile_headers(${name} REUSE_FROM test_support)
endfunction()

# nux_windows_test(<name> <source>...): a program that is one test of the test runner.
function(nux_windows_test name)
    nux_windows_program(${name} ${ARGN})
    add_test(NAME ${name} COMMAND ${name})
    set_tests_properties(${name} PROPERTIES TIMEOUT 300)
endfunction()

# nux_layer_tests(<layer> [EXCEPT <regular expression>]): all tests of a layer in one program, <layer>_tests.
function(nux_layer_tests layer)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "EXCEPT" "")
    file(GLOB sources RELATIVE ${CMAKE_CURRENT_SOURCE_DIR} CONFIGURE_DEPENDS ${layer}/*Test.cpp)
    list(REMOVE_ITEM sources ${decision_tests})
    if(arg_EXCEPT)
        list(FILTER sources EXCLUDE REGEX ${arg_EXCEPT})
    endif()
    nux_windows_test(${layer}_tests ${sources})
endfunction()

nux_layer_tests(driver)

# The framework is tested with a type library, registry scripts and a dialog of the test program's own.
nux_layer_tests(framework)
compile_idl(framework_tests framework/Sample.idl HEADER Sample.h TYPELIB Sample.tlb)
target_sources(framework_tests PRIVATE framework/SampleGuids.cpp framework/framework_tests.rc)
set_source_files_properties(framework/framework_tests.rc PROPERTIES
    INCLUDE_DIRECTORIES "${PROJECT_SOURCE_DIR};${CMAKE_CURRENT_SOURCE_DIR}/framework;${PROJECT_BINARY_DIR}/generated/framework_tests"
    OBJECT_DEPENDS "${PROJECT_BINARY_DIR}/generated/framework_tests/Sample.tlb;${CMAKE_CURRENT_SOURCE_DIR}/framework/sample.rgs")

nux_layer_tests(environment EXCEPT "/(HugeFiles|InterfaceLanguage|DoubleByte)Test\\.cpp$")
# In this time zone a stamp of the system's clock differs from one of the local clock.
set_tests_properties(environment_tests PROPERTIES ENVIRONMENT "NUX_TIME_ZONE=XYZ-5:30")
# What the tests of the environment run in a process of its own.
add_executable(fresh_process environment/fresh_process.cpp)
target_link_libraries(fresh_process PRIVATE environment)
add_dependencies(environment_tests fresh_process resource_german)
nux_windows_test(huge_files_tests environment/HugeFilesTest.cpp)
set_tests_properties(huge_files_tests PROPERTIES LABELS once)

# The language comes from the locale of the process.
nux_windows_program(language_tests environment/InterfaceLanguageTest.cpp)
foreach(locale de_AT de_CH de_DE en_US ja_JP cy_GB gl_ES)
    add_test(NAME language_tests_${locale} COMMAND language_tests ${locale})
    set_tests_properties(language_tests_${locale} PROPERTIES
        TIMEOUT 300 LABELS once ENVIRONMENT "NUX_LOCALE=${locale}.UTF-8")
endforeach()
set_tests_properties(language_tests_en_US PROPERTIES LABELS "")
nux_windows_test(double_byte_tests environment/DoubleByteTest.cpp)
set_tests_properties(double_byte_tests PROPERTIES LABELS once ENVIRONMENT "NUX_LOCALE=ja_JP.UTF-8")

# Pages in a real Chromium. The program brings the module's resources along, as the module does.
nux_layer_tests(webbrowser EXCEPT "/(Page|Control)EnduranceTest\\.cpp$")
nux_windows_test(page_endurance_tests webbrowser/PageEnduranceTest.cpp webbrowser/ControlEnduranceTest.cpp)
set_tests_properties(page_endurance_tests PROPERTIES TIMEOUT 900 LABELS once)
foreach(program webbrowser_tests page_endurance_tests)
    target_sources(${program} PRIVATE webbrowser/OpenedPage.cpp)
    target_link_libraries(${program} PRIVATE webbrowser webbrowser_resources)
endforeach()
target_sources(webbrowser_tests PRIVATE webbrowser/HtmlPage.cpp)
target_link_libraries(webbrowser_tests PRIVATE ws2_32)
target_compile_definitions(webbrowser_tests PRIVATE NUX_WEB_BROWSER="Z:$<TARGET_FILE:nuxWebBrowser>")
add_dependencies(webbrowser_tests nuxWebBrowser)

nux_layer_tests(dialogs)
# What the tests of errors run in a process of its own.
add_executable(show_error dialogs/show_error.cpp)
target_link_libraries(show_error PRIVATE dialogs)
add_dependencies(dialogs_tests show_error)

# The automation object is tested in the registered module: from C++ with doubles of the host's objects, and from
# scripts.
nux_layer_tests(control)
target_sources(control_tests PRIVATE control/Component.cpp control/FileDialogs.cpp control/HostedComponent.cpp
    control/LifterWizardClass.cpp control/control_tests.rc)
# The sample host's objects take their type library from the program that they are in.
target_link_libraries(control_tests PRIVATE host)
set_source_files_properties(control/control_tests.rc PROPERTIES
    INCLUDE_DIRECTORIES "${PROJECT_BINARY_DIR}/layers/host;${PROJECT_BINARY_DIR}/generated/host"
    OBJECT_DEPENDS "${PROJECT_BINARY_DIR}/generated/host/SampleHost.tlb")
add_dependencies(control_tests nuxStdPartsAX started fail_with_log)
# Names of double-byte characters.
add_test(NAME control_tests_ja_JP COMMAND control_tests --gtest_filter=DoubleByte*)
set_tests_properties(control_tests_ja_JP PROPERTIES TIMEOUT 300 LABELS once ENVIRONMENT "NUX_LOCALE=ja_JP.UTF-8")
# What the tests run in a process of its own.
add_executable(started control/started.cpp)
add_executable(fail_with_log control/fail_with_log.cpp)
target_link_libraries(fail_with_log PRIVATE control)
# The shared run-time library of the compiler, which ExceptionTest loads beside the module, and what that needs itself.
if(CMAKE_SIZEOF_VOID_P EQUAL 4)
    set(shared_run_time libgcc_s_dw2-1.dll libwinpthread-1.dll)
else()
    set(shared_run_time libgcc_s_seh-1.dll libwinpthread-1.dll)
endif()
foreach(library ${shared_run_time})
    execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${library}
        OUTPUT_VARIABLE path OUTPUT_STRIP_TRAILING_WHITESPACE)
    file(COPY ${path} DESTINATION ${CMAKE_CURRENT_BINARY_DIR})
endforeach()

add_test(NAME module_imports_and_exports
    COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/control/check-module ${CMAKE_OBJDUMP} $<TARGET_FILE:nuxStdPartsAX>)
add_test(NAME language_module_is_data COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/resources/check-language-module
    ${CMAKE_OBJDUMP} $<TARGET_FILE:resource_german>)
set_tests_properties(module_imports_and_exports language_module_is_data PROPERTIES LABELS "module;once")

# The sample host as a program.
nux_layer_tests(host)
target_link_libraries(host_tests PRIVATE host)
target_compile_definitions(host_tests PRIVATE NUX_SAMPLE_HOST="Z:$<TARGET_FILE:SampleHostProgram>"
    NUX_SCRIPTS="Z:${CMAKE_CURRENT_SOURCE_DIR}/host" NUX_WEB_BROWSER="Z:$<TARGET_FILE:nuxWebBrowser>")
add_dependencies(host_tests nuxWebBrowser SampleHostProgram SampleHost nuxStdPartsAX)

file(GLOB scripts CONFIGURE_DEPENDS scripts/*_test.js scripts/*_test.vbs)
foreach(script ${scripts})
    get_filename_component(name ${script} NAME)
    string(REPLACE "." "_" name ${name})
    add_test(NAME script_${name}
        COMMAND ${CMAKE_CROSSCOMPILING_EMULATOR} ${CMAKE_CURRENT_SOURCE_DIR}/scripts/run-script ${script})
    set_tests_properties(script_${name} PROPERTIES TIMEOUT 120)
endforeach()

# The sample's script clients tell of an error.
add_test(NAME script_clients
    COMMAND ${CMAKE_CROSSCOMPILING_EMULATOR} ${CMAKE_CURRENT_SOURCE_DIR}/scripts/run-clients)
set_tests_properties(script_clients PROPERTIES TIMEOUT 120)

# What a person on Windows can try, with both modules.
add_test(NAME sample_smoke
    COMMAND ${CMAKE_CROSSCOMPILING_EMULATOR} ${PROJECT_SOURCE_DIR}/sample/smoke/try)
set_tests_properties(sample_smoke PROPERTIES TIMEOUT 300 LABELS once)

# What a host's developer builds against.
add_test(NAME sdk COMMAND ${CMAKE_CROSSCOMPILING_EMULATOR} ${PROJECT_SOURCE_DIR}/sample/sdk/try)
set_tests_properties(sdk PROPERTIES TIMEOUT 120 LABELS once)

# The dimension chooser. Its programs bring the component's resources along, as the module does.
add_library(chooser_support STATIC dimensions/DimensionChooser.cpp dimensions/DimensionChooserFixture.cpp)
target_link_libraries(chooser_support PUBLIC test_support)
target_precompile_headers(chooser_support REUSE_FROM test_support)

# nux_chooser_program(<name> <source>...): a program that opens dimension choosers.
function(nux_chooser_program name)
    nux_windows_program(${name} ${ARGN})
    target_link_libraries(${name} PRIVATE chooser_support module_resources)
endfunction()

file(GLOB chooser_tests RELATIVE ${CMAKE_CURRENT_SOURCE_DIR} CONFIGURE_DEPENDS dimensions/*Test.cpp)
list(REMOVE_ITEM chooser_tests ${decision_tests})
list(FILTER chooser_tests EXCLUDE REGEX "/(CommonMessages|Endurance)Test\\.cpp$")
nux_chooser_program(dimensions_tests ${chooser_tests})
add_dependencies(dimensions_tests nuxStdPartsAX resource_german)
target_compile_definitions(dimensions_tests PRIVATE NUX_SCRIPTS="Z:${CMAKE_CURRENT_SOURCE_DIR}/dimensions")
nux_chooser_program(common_messages_tests dimensions/CommonMessagesTest.cpp)
nux_chooser_program(endurance_tests dimensions/EnduranceTest.cpp)
nux_chooser_program(chooser_pictures dimensions/pictures.cpp)

add_test(NAME endurance_tests COMMAND endurance_tests)
set_tests_properties(endurance_tests PROPERTIES TIMEOUT 600 LABELS once)
# A decimal point, a decimal comma, double-byte texts.
foreach(program dimensions_tests common_messages_tests)
    foreach(locale en_US de_DE ja_JP)
        add_test(NAME ${program}_${locale} COMMAND ${program})
        set_tests_properties(${program}_${locale} PROPERTIES TIMEOUT 300 ENVIRONMENT "NUX_LOCALE=${locale}.UTF-8")
    endforeach()
    set_tests_properties(${program}_de_DE ${program}_ja_JP PROPERTIES LABELS once)
endforeach()

# Mutated files, registry values and script arguments for all that reads them: a short run here, a million with
# tests/mutations/run. It brings the component's resources along, as the module does.
file(GLOB mutation_sources RELATIVE ${CMAKE_CURRENT_SOURCE_DIR} CONFIGURE_DEPENDS mutations/*.cpp)
nux_windows_program(mutation_tests ${mutation_sources})
target_link_libraries(mutation_tests PRIVATE module_resources)
target_compile_definitions(mutation_tests PRIVATE NUX_SAMPLE="Z:${PROJECT_SOURCE_DIR}/sample/installation")
add_test(NAME mutation_tests COMMAND mutation_tests --count=10000 --seed=1)
set_tests_properties(mutation_tests PROPERTIES TIMEOUT 300)

# The prefix that each test gets a copy of.
get_property(tests DIRECTORY PROPERTY TESTS)
list(REMOVE_ITEM tests module_imports_and_exports language_module_is_data)
set_tests_properties(${tests} PROPERTIES FIXTURES_REQUIRED prefix)
add_test(NAME prefix
    COMMAND ${PROJECT_SOURCE_DIR}/wine/make-prefix ${PROJECT_BINARY_DIR}/prefix
        $<TARGET_FILE:nuxStdPartsAX> $<TARGET_FILE:SampleHost>)
set_tests_properties(prefix PROPERTIES FIXTURES_SETUP prefix TIMEOUT 120)
