# target_resources(TARGET SCRIPT) links the resources that a script lists into a program or library. The
# script is in the form of a Windows resource script, one resource a line, and may have // comments:
#
#     NAME_OR_NUMBER  ICON | CURSOR | BITMAP | RCDATA  "file beside the script"
#
# Windows gets it through the resource compiler. Elsewhere the files become tables of the program, of the
# same types and names. A static library hands its resources on to whatever links it.

if(WIN32)
    enable_language(RC)
endif()

function(target_resources TARGET SCRIPT)
    get_filename_component(script ${SCRIPT} ABSOLUTE)
    get_target_property(kind ${TARGET} TYPE)
    set(scope PRIVATE)
    if(kind STREQUAL "STATIC_LIBRARY" OR kind STREQUAL "INTERFACE_LIBRARY")
        set(scope INTERFACE)
    endif()
    resource_files(files ${script})
    if(WIN32)
        windows_script(source ${TARGET} ${script} ${scope})
    else()
        resource_tables(source ${TARGET} ${script})
    endif()
    set_source_files_properties(${source} PROPERTIES OBJECT_DEPENDS "${files}")
    add_library(${TARGET}_resources OBJECT ${source})
    target_link_libraries(${TARGET}_resources PRIVATE tesela_platform)
    if(WIN32 AND scope STREQUAL "INTERFACE")
        set_property(GLOBAL APPEND PROPERTY TESELA_LIBRARY_RESOURCES ${TARGET}_resources)
    elseif(WIN32)
        # Its script repeats those of the libraries, whose files have to be there.
        get_property(libraries GLOBAL PROPERTY TESELA_LIBRARY_RESOURCES)
        add_dependencies(${TARGET}_resources ${libraries})
    endif()
    set(objects $<TARGET_OBJECTS:${TARGET}_resources>)
    if(WIN32 AND scope STREQUAL "PRIVATE")
        # The files that the libraries' scripts name may have to be rendered first.
        get_property(libraries GLOBAL PROPERTY TESELA_LIBRARY_RESOURCES)
        add_dependencies(${TARGET}_resources ${libraries})
    elseif(WIN32)
        set_property(GLOBAL APPEND PROPERTY TESELA_LIBRARY_RESOURCES ${TARGET}_resources)
        # Who has resources of its own takes these in with them: see windows_script.
        set(objects $<$<NOT:$<BOOL:$<TARGET_PROPERTY:TESELA_RESOURCES>>>:${objects}>)
    endif()
    target_sources(${TARGET} ${scope} ${objects})
endfunction()

# The script that the resource compiler gets. It numbers the images of icons from 1 in each script, and the linker
# takes no number twice: the script of a program repeats those of the libraries that it may link.
function(windows_script OUT TARGET SCRIPT SCOPE)
    if(SCOPE STREQUAL "INTERFACE")
        set_property(GLOBAL APPEND PROPERTY TESELA_LIBRARY_SCRIPTS ${SCRIPT})
        set(${OUT} ${SCRIPT} PARENT_SCOPE)
        return()
    endif()
    get_property(scripts GLOBAL PROPERTY TESELA_LIBRARY_SCRIPTS)
    set(statements "")
    foreach(each ${SCRIPT} ${scripts})
        resource_lines(lines ${each})
        resource_files(files ${each})
        foreach(line file IN ZIP_LISTS lines files)
            string(REGEX REPLACE "\".*\"" "\"${file}\"" line "${line}")
            string(APPEND statements "${line}\n")
        endforeach()
    endforeach()
    set(joined ${CMAKE_CURRENT_BINARY_DIR}/${TARGET}_resources.rc)
    file(CONFIGURE OUTPUT ${joined} CONTENT "${statements}" @ONLY)
    set_target_properties(${TARGET} PROPERTIES TESELA_RESOURCES ON)
    set(${OUT} ${joined} PARENT_SCOPE)
endfunction()

# target_icons(TARGET LIST) renders the drawings of a list into icons and links them as resources: a row has the
# icon's number, its drawing beside the list, and the sizes that it is rendered in.
function(target_icons TARGET LIST)
    get_filename_component(folder ${LIST} DIRECTORY)
    set(renderer ${CMAKE_SOURCE_DIR}/resources/render-icon)
    set(rendered ${CMAKE_CURRENT_BINARY_DIR}/${TARGET}_icons)
    file(MAKE_DIRECTORY ${rendered})
    file(STRINGS ${LIST} rows REGEX "^[0-9]")
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${LIST})
    set(script "")
    foreach(row IN LISTS rows)
        string(REPLACE " " ";" row "${row}")
        list(POP_FRONT row number drawing)
        set(icon ${rendered}/${number}.ico)
        add_custom_command(OUTPUT ${icon} COMMAND ${renderer} ${folder}/${drawing} ${icon} ${row}
            DEPENDS ${renderer} ${folder}/${drawing} VERBATIM)
        string(APPEND script "${number} ICON \"${number}.ico\"\n")
    endforeach()
    file(CONFIGURE OUTPUT ${rendered}/icons.rc CONTENT "${script}" @ONLY)
    target_resources(${TARGET} ${rendered}/icons.rc)
endfunction()

# The lines of a script that state a resource.
function(resource_lines OUT SCRIPT)
    file(STRINGS ${SCRIPT} lines ENCODING UTF-8
        REGEX "^[ \t]*[A-Za-z0-9_]+[ \t]+(ICON|CURSOR|BITMAP|RCDATA)[ \t]+\".+\"")
    set(${OUT} "${lines}" PARENT_SCOPE)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${SCRIPT})
endfunction()

# The files that a script names.
function(resource_files OUT SCRIPT)
    get_filename_component(folder ${SCRIPT} DIRECTORY)
    resource_lines(lines ${SCRIPT})
    set(files "")
    foreach(line IN LISTS lines)
        string(REGEX REPLACE "^[^\"]*\"(.*)\".*$" "${folder}/\\1" file "${line}")
        list(APPEND files ${file})
    endforeach()
    set(${OUT} "${files}" PARENT_SCOPE)
endfunction()

# Writes the source of the table: the assembler takes the bytes in.
function(resource_tables OUT TARGET SCRIPT)
    set(type_ICON Icon)
    set(type_CURSOR Cursor)
    set(type_BITMAP Bitmap)
    set(type_RCDATA RawData)
    resource_lines(lines ${SCRIPT})
    resource_files(files ${SCRIPT})
    set(bytes "")
    set(declarations "")
    set(entries "")
    set(number 0)
    foreach(line file IN ZIP_LISTS lines files)
        string(REGEX MATCH "^[ \t]*([A-Za-z0-9_]+)[ \t]+([A-Z]+)" head "${line}")
        set(name ${CMAKE_MATCH_1})
        set(type ${type_${CMAKE_MATCH_2}})
        set(label ${TARGET}_resource_${number})
        string(APPEND bytes
            "__asm__(\".section .rodata\\n.global ${label}, ${label}_end\\n${label}:\\n\"\n"
            "        \".incbin \\\"${file}\\\"\\n${label}_end:\\n.byte 0\\n.text\\n\");\n")
        string(APPEND declarations "extern \"C\" const unsigned char ${label}[], ${label}_end[];\n")
        if(name MATCHES "^[0-9]+$")
            set(named "${name}, nullptr")
        else()
            string(TOUPPER ${name} name)
            set(named "0, u\"${name}\"")
        endif()
        string(APPEND entries
            "    {platform::ResourceType::${type}, ${named}, ${label}, ${label}_end},\n")
        math(EXPR number "${number} + 1")
    endforeach()
    set(source ${CMAKE_CURRENT_BINARY_DIR}/${TARGET}_resources.cpp)
    file(CONFIGURE OUTPUT ${source} @ONLY CONTENT
"#include \"platform/linux/resource_table.h\"

@bytes@
@declarations@
static const platform::driver::ResourceEntry entries[] = {
@entries@};
static const platform::driver::ResourceTable table(entries);
")
    set(${OUT} ${source} PARENT_SCOPE)
endfunction()
