# What `./tesela package` installs: libTeselaCtl made of all rings, their headers, a CMake package and a
# pkg-config file. The library is linked only when the package is made.

include(GNUInstallDirs)

file(WRITE ${CMAKE_BINARY_DIR}/rings/TeselaCtl.cpp "// The shared library is made of the rings' archives.\n")
add_library(TeselaCtl SHARED EXCLUDE_FROM_ALL ${CMAKE_BINARY_DIR}/rings/TeselaCtl.cpp)
target_link_libraries(TeselaCtl PRIVATE
    -Wl,--whole-archive tesela_library tesela_host tesela_automation tesela_platform -Wl,--no-whole-archive)
set_target_properties(TeselaCtl PROPERTIES VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR})

set(TESELA_HEADERS ${CMAKE_INSTALL_INCLUDEDIR}/tesela)
install(TARGETS TeselaCtl LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} OPTIONAL)
foreach(folder platform automation host frame drawing data field system)
    install(DIRECTORY ${CMAKE_SOURCE_DIR}/src/${folder} DESTINATION ${TESELA_HEADERS}
            FILES_MATCHING PATTERN "*.h" PATTERN "windows" EXCLUDE PATTERN "linux" EXCLUDE)
endforeach()
# Of what is Linux's own: databases, with Recordset.
install(DIRECTORY ${CMAKE_SOURCE_DIR}/src/host/linux DESTINATION ${TESELA_HEADERS}/host FILES_MATCHING PATTERN "*.h")
install(FILES ${CMAKE_SOURCE_DIR}/src/platform/linux/database.h DESTINATION ${TESELA_HEADERS}/platform/linux)

configure_file(${CMAKE_SOURCE_DIR}/cmake/TeselaCtlConfig.cmake.in TeselaCtlConfig.cmake @ONLY)
configure_file(${CMAKE_SOURCE_DIR}/cmake/tesela.pc.in tesela.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/TeselaCtlConfig.cmake
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/TeselaCtl)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/tesela.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
