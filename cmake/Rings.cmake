# A ring is one static library. Its headers are seen by those that link it and by nobody else: each
# ring's folder is linked into an include root of its own, so "platform/gdi.h" is found only by the
# rings above `platform`, and a wrong #include does not compile.

if(WIN32)
    set(TESELA_OTHER_DRIVER linux)
else()
    set(TESELA_OTHER_DRIVER windows)
endif()

# tesela_sources(OUT FOLDER...) lists the sources below the folders. What lies in a folder named
# `linux` or `windows` is compiled for that system only.
function(tesela_sources OUT)
    set(found "")
    foreach(folder ${ARGN})
        file(GLOB_RECURSE here CONFIGURE_DEPENDS ${folder}/*.cpp ${folder}/*.h)
        foreach(source ${here})
            # The project itself may lie in a folder of such a name.
            file(RELATIVE_PATH inside ${CMAKE_SOURCE_DIR} ${source})
            if(NOT inside MATCHES "/${TESELA_OTHER_DRIVER}/")
                list(APPEND found ${source})
            endif()
        endforeach()
    endforeach()
    set(${OUT} ${found} PARENT_SCOPE)
endfunction()

# add_ring(NAME [FOLDERS folder...] [USES ring...]): FOLDERS default to the ring's own name.
function(add_ring NAME)
    cmake_parse_arguments(RING "" "" "FOLDERS;USES" ${ARGN})
    if(NOT RING_FOLDERS)
        set(RING_FOLDERS ${NAME})
    endif()
    set(root ${CMAKE_BINARY_DIR}/rings/${NAME})
    file(MAKE_DIRECTORY ${root})
    set(absolute "")
    foreach(folder ${RING_FOLDERS})
        if(IS_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR}/${folder})
            file(CREATE_LINK ${CMAKE_CURRENT_SOURCE_DIR}/${folder} ${root}/${folder} SYMBOLIC)
            list(APPEND absolute ${CMAKE_CURRENT_SOURCE_DIR}/${folder})
        endif()
    endforeach()
    tesela_sources(sources ${absolute})
    # A ring that has only headers so far is a library all the same.
    file(CONFIGURE OUTPUT ${CMAKE_BINARY_DIR}/rings/${NAME}.cpp CONTENT "")
    add_library(tesela_${NAME} STATIC ${sources} ${CMAKE_BINARY_DIR}/rings/${NAME}.cpp)
    target_include_directories(tesela_${NAME} PUBLIC ${root})
    target_link_libraries(tesela_${NAME} PUBLIC tesela_settings)
    foreach(used ${RING_USES})
        target_link_libraries(tesela_${NAME} PUBLIC tesela_${used})
    endforeach()
    target_precompile_headers(tesela_${NAME} PRIVATE
        <algorithm> <array> <cmath> <cstdint> <cstring> <functional> <map> <memory> <optional> <span>
        <string> <string_view> <unordered_map> <utility> <vector>)
endfunction()
