# Tests of the window and COM code: they run under Wine, in the prefix that tests/with-wine has made.

add_library(test_support STATIC support/main.cpp)
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
