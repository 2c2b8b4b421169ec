# The automation object is tested in the registered module: from C++ with doubles of the host's objects, and from
# scripts.

file(GLOB control_support CONFIGURE_DEPENDS control/*.cpp)
list(FILTER control_support EXCLUDE REGEX "Test\\.cpp$")
target_sources(control_tests PRIVATE ${control_support})
target_link_libraries(control_tests PRIVATE version)
add_dependencies(control_tests nuxStdPartsAX)

add_test(NAME module_imports_and_exports
    COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/control/check-module ${CMAKE_OBJDUMP} $<TARGET_FILE:nuxStdPartsAX>)
set_tests_properties(module_imports_and_exports PROPERTIES LABELS "module;once")

file(GLOB scripts CONFIGURE_DEPENDS scripts/*_test.js scripts/*_test.vbs)
foreach(script ${scripts})
    get_filename_component(name ${script} NAME)
    string(REPLACE "." "_" name ${name})
    add_test(NAME script_${name}
        COMMAND ${CMAKE_CROSSCOMPILING_EMULATOR} ${CMAKE_CURRENT_SOURCE_DIR}/scripts/run-script ${script})
    set_tests_properties(script_${name} PROPERTIES TIMEOUT 120)
endforeach()
