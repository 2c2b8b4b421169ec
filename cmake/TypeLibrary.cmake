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

# compile_idl(<idl file> HEADER <file name> [TYPELIB <file name>])
function(compile_idl idl)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "HEADER;TYPELIB" "")
    set(header ${PROJECT_BINARY_DIR}/include/${arg_HEADER})
    add_custom_command(OUTPUT ${header}
        COMMAND ${WIDL} ${WIDL_OPTIONS} -h -H ${header} ${CMAKE_CURRENT_SOURCE_DIR}/${idl}
        DEPENDS ${idl} COMMENT "Interface header ${arg_HEADER}" VERBATIM)
    set(outputs ${header})
    if(arg_TYPELIB)
        set(typelib ${PROJECT_BINARY_DIR}/include/${arg_TYPELIB})
        add_custom_command(OUTPUT ${typelib}
            COMMAND ${WIDL} ${WIDL_OPTIONS} -t -T ${typelib} ${CMAKE_CURRENT_SOURCE_DIR}/${idl}
            DEPENDS ${idl} COMMENT "Type library ${arg_TYPELIB}" VERBATIM)
        list(APPEND outputs ${typelib})
    endif()
    get_filename_component(name ${idl} NAME_WE)
    add_custom_target(idl_${name} DEPENDS ${outputs})
endfunction()
