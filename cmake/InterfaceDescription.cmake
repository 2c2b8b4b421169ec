# Interface descriptions to C++ headers and type libraries.

find_program(WIDL ${nux_triple}-widl REQUIRED)

# The cross compiler's packages hold neither the base interface descriptions nor stdole2.tlb; Wine's do.
set(WINE_INCLUDE /usr/include/wine/wine/windows)
set(WINE_TYPELIBS /usr/lib/x86_64-linux-gnu/wine/x86_64-windows)
set(WIDL_OPTIONS -I${WINE_INCLUDE} -L${WINE_TYPELIBS})
if(CMAKE_SIZEOF_VOID_P EQUAL 8)
    list(APPEND WIDL_OPTIONS -m64)
else()
    list(APPEND WIDL_OPTIONS -m32)
endif()

# compile_idl(<target> <idl file> HEADER <file name> [TYPELIB <file name>] [INCLUDES <folder>...])
# The target and those that use it can include the header. The type library lies beside it, for resources.
function(compile_idl target idl)
    cmake_parse_arguments(PARSE_ARGV 2 arg "" "HEADER;TYPELIB" "INCLUDES")
    list(TRANSFORM arg_INCLUDES PREPEND -I)
    set(folder ${PROJECT_BINARY_DIR}/generated/${target})
    file(MAKE_DIRECTORY ${folder})
    set(outputs ${folder}/${arg_HEADER})
    add_custom_command(OUTPUT ${folder}/${arg_HEADER}
        COMMAND ${WIDL} ${WIDL_OPTIONS} ${arg_INCLUDES} -h -H ${folder}/${arg_HEADER} ${CMAKE_CURRENT_SOURCE_DIR}/${idl}
        DEPENDS ${idl} COMMENT "Interface header ${arg_HEADER}" VERBATIM)
    if(arg_TYPELIB)
        list(APPEND outputs ${folder}/${arg_TYPELIB})
        add_custom_command(OUTPUT ${folder}/${arg_TYPELIB}
            COMMAND ${WIDL} ${WIDL_OPTIONS} ${arg_INCLUDES} -t -T ${folder}/${arg_TYPELIB} ${CMAKE_CURRENT_SOURCE_DIR}/${idl}
            DEPENDS ${idl} COMMENT "Type library ${arg_TYPELIB}" VERBATIM)
    endif()
    add_custom_target(${target}_interfaces DEPENDS ${outputs})
    add_dependencies(${target} ${target}_interfaces)
    target_include_directories(${target} SYSTEM PUBLIC ${folder})
endfunction()
