# TeselaCtl.ocx: the rings with their outer face, and the type library as a resource. The type library is made of
# the member tables: a program of this system writes its source, the interface compiler takes it from there.
# That program is built by a build of its own below this one, for the system that builds.

find_program(TESELA_WIDL NAMES ${CMAKE_SYSTEM_PROCESSOR}-w64-mingw32-widl x86_64-w64-mingw32-widl REQUIRED)
set(folder ${CMAKE_CURRENT_SOURCE_DIR}/activex)
set(made ${CMAKE_CURRENT_BINARY_DIR}/activex)
set(tools ${CMAKE_BINARY_DIR}/tools)
file(MAKE_DIRECTORY ${made})

add_custom_target(tesela_interface_source
    COMMAND ${CMAKE_COMMAND} -S ${CMAKE_SOURCE_DIR} -B ${tools} -G Ninja -DCMAKE_BUILD_TYPE=Release
            -DTESELA_TESTS=OFF --log-level=WARNING
    COMMAND ${CMAKE_COMMAND} --build ${tools} --target tesela-idl
    COMMAND ${tools}/apps/idl/tesela-idl ${made}/TeselaCtl.idl
    BYPRODUCTS ${made}/TeselaCtl.idl
    COMMENT "Writing the source of the type library" USES_TERMINAL VERBATIM)

# The system's own types as far as the library names them: a reference to them is all that is kept.
math(EXPR bits "8 * ${CMAKE_SIZEOF_VOID_P}")
add_custom_command(OUTPUT ${made}/stdole2.tlb
    COMMAND ${TESELA_WIDL} -t --win${bits} -o ${made}/stdole2.tlb ${folder}/stdole2.idl
    DEPENDS ${folder}/stdole2.idl VERBATIM)
add_custom_command(OUTPUT ${made}/TeselaCtl.tlb
    COMMAND ${TESELA_WIDL} -t --win${bits} -I ${folder} -L ${made} -o ${made}/TeselaCtl.tlb ${made}/TeselaCtl.idl
    DEPENDS ${made}/TeselaCtl.idl ${made}/stdole2.tlb ${folder}/automation.idl VERBATIM)

configure_file(${folder}/TeselaCtl.rc.in ${made}/TeselaCtl.rc @ONLY)
set_source_files_properties(${made}/TeselaCtl.rc PROPERTIES OBJECT_DEPENDS ${made}/TeselaCtl.tlb)

add_library(TeselaCtl SHARED ${folder}/TeselaCtl.def ${made}/TeselaCtl.rc)
set_target_properties(TeselaCtl PROPERTIES PREFIX "" SUFFIX .ocx LINKER_LANGUAGE CXX)
target_link_libraries(TeselaCtl PRIVATE tesela_activex)
# One of the exported functions brings in the others, which bring in what they need and no more.
target_link_options(TeselaCtl PRIVATE -Wl,-u,$<IF:$<EQUAL:${bits},32>,_DllCanUnloadNow@0,DllCanUnloadNow>
    -Wl,--gc-sections $<$<CONFIG:Release>:-s>)
# Memory comes from a heap of the library's own.
set(entry $<IF:$<EQUAL:${bits},32>,_LibraryEntry@12,LibraryEntry>)
target_link_options(TeselaCtl PRIVATE -Wl,-e,${entry} -Wl,-u,${entry}
    -Wl,--wrap=malloc,--wrap=calloc,--wrap=realloc,--wrap=free)
add_dependencies(TeselaCtl tesela_interface_source)
