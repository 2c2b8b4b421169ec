# nux_layer(<name> [USES <layer or library>...] [DECISIONS <source>...] [SOURCES <source>...])
#
# A layer: a folder, and a target of its name. Its sources see its own headers, as "<name>/...", and those of the layers
# that it uses, and no others: an include of a higher layer finds no file. DECISIONS need no window and no COM call and
# are compiled for the build machine too; SOURCES are for Windows alone.
function(nux_layer name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "USES;DECISIONS;SOURCES")
    # The root of the layer's includes, in which nothing else lies.
    set(root ${PROJECT_BINARY_DIR}/layers/${name})
    file(MAKE_DIRECTORY ${root})
    file(CREATE_LINK ${CMAKE_CURRENT_SOURCE_DIR} ${root}/${name} SYMBOLIC)
    set(sources ${arg_DECISIONS})
    if(WIN32)
        list(APPEND sources ${arg_SOURCES})
    endif()
    if(sources)
        add_library(${name} STATIC ${sources})
        set(scope PUBLIC)
    else()
        add_library(${name} INTERFACE)
        set(scope INTERFACE)
    endif()
    target_include_directories(${name} ${scope} ${root})
    target_link_libraries(${name} ${scope} ${arg_USES})
    set_property(GLOBAL APPEND PROPERTY NUX_LAYERS ${name})
    set_property(GLOBAL PROPERTY NUX_USES_${name} ${arg_USES})
endfunction()
