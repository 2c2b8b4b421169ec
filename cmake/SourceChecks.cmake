# What is checked of the sources beside what the compiler says.
if(NOT WIN32)
    return()
endif()

# Includes point one way.
get_property(layers GLOBAL PROPERTY NUX_LAYERS)
set(arrows)
foreach(layer ${layers})
    get_property(used GLOBAL PROPERTY NUX_USES_${layer})
    list(FILTER used EXCLUDE REGEX "^\\$<") # a library of the platform
    list(JOIN used "," used)
    list(APPEND arrows ${layer}:${used})
endforeach()
add_test(NAME layers COMMAND ${PROJECT_SOURCE_DIR}/tests/check_layers.py ${PROJECT_BINARY_DIR} ${arrows})
set_tests_properties(layers PROPERTIES LABELS once)

# The target source_checks: the sources as a second compiler reads them, with the warnings that the first one
# has as errors, and what clang-tidy finds in them. Each source is read once, for both, and again when its object is
# made again: a source that compiles no more has one message, and what hasn't changed costs nothing.
find_program(CLANG_TIDY clang-tidy REQUIRED)

# The same standard library as the first compiler's; the compiler's own headers are Clang's.
set(arguments --quiet -p ${PROJECT_BINARY_DIR} --extra-arg-before=--target=${nux_triple})
foreach(folder ${CMAKE_CXX_IMPLICIT_INCLUDE_DIRECTORIES})
    if(folder MATCHES "/c\\+\\+")
        list(APPEND arguments --extra-arg=-isystem${folder})
    endif()
endforeach()

# All layers of the product that have sources, the module itself, and the sample host.
set(checked ${layers} nuxStdPartsAX host SampleHost SampleHostProgram)
list(REMOVE_ITEM checked driver bench)
set(stamps)
foreach(target ${checked})
    get_target_property(type ${target} TYPE)
    if(type STREQUAL "INTERFACE_LIBRARY")
        continue()
    endif()
    get_target_property(sources ${target} SOURCES)
    get_target_property(folder ${target} SOURCE_DIR)
    list(FILTER sources INCLUDE REGEX "\\.cpp$")
    foreach(source ${sources})
        cmake_path(GET source FILENAME name)
        set(stamp ${PROJECT_BINARY_DIR}/checked/${target}/${name})
        add_custom_command(OUTPUT ${stamp}
            COMMAND ${PROJECT_SOURCE_DIR}/tests/check-source ${stamp} ${CLANG_TIDY} ${arguments} ${folder}/${source}
            DEPENDS ${PROJECT_SOURCE_DIR}/.clang-tidy ${PROJECT_SOURCE_DIR}/tests/check-source
                "$<FILTER:$<TARGET_OBJECTS:${target}>,INCLUDE,/${name}\\.obj$>"
            COMMENT "Checking ${target}/${name}" VERBATIM)
        list(APPEND stamps ${stamp})
    endforeach()
endforeach()
add_custom_target(source_checks DEPENDS ${stamps})
