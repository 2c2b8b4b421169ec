# The automation object is tested in the registered module: from C++ with doubles of the host's objects, and from
# scripts.

file(GLOB control_support CONFIGURE_DEPENDS control/*.cpp)
list(FILTER control_support EXCLUDE REGEX "Test\\.cpp$")
target_sources(control_tests PRIVATE ${control_support})
target_link_libraries(control_tests PRIVATE version)
add_dependencies(control_tests nuxStdPartsAX)
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
# They register the component anew and use the desktop's focus.
set_tests_properties(control_tests PROPERTIES RUN_SERIAL TRUE)

add_test(NAME module_imports_and_exports
    COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/control/check-module
        $<TARGET_FILE:nuxStdPartsAX> ${PROJECT_SOURCE_DIR}/out/x86/nuxStdPartsAX.dll)

file(GLOB scripts CONFIGURE_DEPENDS scripts/*_test.js scripts/*_test.vbs)
foreach(script ${scripts})
    get_filename_component(name ${script} NAME)
    string(REPLACE "." "_" name ${name})
    add_test(NAME script_${name} COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/scripts/run-script ${script})
    set_tests_properties(script_${name} PROPERTIES RUN_SERIAL TRUE TIMEOUT 120)
endforeach()
