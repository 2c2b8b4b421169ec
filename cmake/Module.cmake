# The component for Windows: its layers as one object library, the module made of them, the language modules.

add_compile_definitions(_WIN32_WINNT=0x0601 WINVER=0x0601 STRICT)
# All calls come on one thread. A guard of a local static would take memory that it can't do without, and leave two
# handles of the thread behind whenever the module is unloaded.
add_compile_options(-fstack-protector-strong -fno-threadsafe-statics)
# Static run-time libraries: Windows has none of the compiler's.
add_link_options(-static -s -fstack-protector-strong -Wl,--nxcompat -Wl,--dynamicbase -Wl,--enable-stdcall-fixup)
include_directories(SYSTEM ${PROJECT_BINARY_DIR}/include)

file(MAKE_DIRECTORY ${PROJECT_BINARY_DIR}/include)
# The public definitions of the platform's script registrar and control host, which the compiler's headers lack.
configure_file(${WINE_INCLUDE}/atliface.h ${PROJECT_BINARY_DIR}/include/atliface.h COPYONLY)
compile_idl(control/nuxStdPartsAX.idl HEADER nuxStdPartsAX.h TYPELIB nuxStdPartsAX.tlb)
compile_idl(environment/Inux3D.idl HEADER Inux3D.h)

add_library(decisions OBJECT ${decision_sources})
add_library(component OBJECT
    control/BrowserEventSink.cpp
    control/DimensionServices.cpp
    control/DispatchProperty.cpp
    control/Guids.cpp
    control/InstallationServices.cpp
    control/ScriptServices.cpp
    control/nuxDataManager.cpp
    control/nuxStdParts.cpp
    dimensions/CMenuExImpl.cpp
    dimensions/ChooserList.cpp
    dimensions/ChooserSettings.cpp
    dimensions/DimensionDocument.cpp
    dimensions/DimensionRows.cpp
    dimensions/DimensionTable.cpp
    dimensions/RowValues.cpp
    dimensions/nuxChooseStdDims.cpp
    dimensions/nuxDefineDimFilter.cpp
    dimensions/nuxLVSort.cpp
    dimensions/nuxQFWindow.cpp
    environment/DiagnosticLog.cpp
    environment/InstallationPaths.cpp
    environment/Localisation.cpp
    environment/MessageTable.cpp
    environment/PathTests.cpp
    environment/ProductVersion.cpp
    environment/Registry.cpp
    environment/RegistryValue.cpp
    environment/XMLAccess.cpp
    framework/Automation.cpp
    framework/ConnectionPoints.cpp
    framework/ControlInformation.cpp
    framework/ControlPersistence.cpp
    framework/ControlView.cpp
    framework/Guids.cpp
    framework/HResult.cpp
    framework/Icons.cpp
    framework/Module.cpp
    framework/OleControl.cpp
    framework/RegistryScript.cpp
    framework/TypeLibrary.cpp
    framework/Window.cpp)
add_dependencies(component idl_nuxStdPartsAX idl_Inux3D)

# What programs that link the layers directly need.
add_library(platform INTERFACE)
target_link_libraries(platform INTERFACE comctl32 ole32 oleaut32 uuid gdi32 advapi32 shell32)

add_library(nuxStdPartsAX SHARED
    control/module.cpp control/nuxStdPartsAX.def framework/ExceptionState.cpp resources/nuxStdPartsAX.rc)
target_link_libraries(nuxStdPartsAX PRIVATE component decisions platform)
set_target_properties(nuxStdPartsAX PROPERTIES PREFIX "" LINK_DEPENDS ${PROJECT_SOURCE_DIR}/control/nuxStdPartsAX.def)
add_dependencies(nuxStdPartsAX idl_nuxStdPartsAX)
file(GLOB icons ${PROJECT_SOURCE_DIR}/resources/icons/*.ico ${PROJECT_SOURCE_DIR}/resources/icons/*.bmp)
file(GLOB dialog_sources ${PROJECT_SOURCE_DIR}/resources/*.h ${PROJECT_SOURCE_DIR}/resources/*.rc
    ${PROJECT_SOURCE_DIR}/resources/german/*.rc ${PROJECT_SOURCE_DIR}/dimensions/*Controls.h)
set_source_files_properties(resources/nuxStdPartsAX.rc PROPERTIES
    INCLUDE_DIRECTORIES "${PROJECT_SOURCE_DIR}/resources;${PROJECT_BINARY_DIR}/include"
    OBJECT_DEPENDS "${PROJECT_BINARY_DIR}/include/nuxStdPartsAX.tlb;${PROJECT_SOURCE_DIR}/control/nuxStdParts.rgs;${icons};${dialog_sources}")

# A language's resources; a module without code.
add_library(resource_german SHARED resources/german/resource.rc)
set_source_files_properties(resources/german/resource.rc PROPERTIES
    INCLUDE_DIRECTORIES "${PROJECT_SOURCE_DIR}/resources" OBJECT_DEPENDS "${icons};${dialog_sources}")
set_target_properties(resource_german PROPERTIES PREFIX "" OUTPUT_NAME resource LINKER_LANGUAGE CXX
    LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/locale/German
    RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/locale/German
    LINK_OPTIONS "-nostdlib;-Wl,--entry=0")
