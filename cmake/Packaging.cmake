# What is installed beside the programs, and the Debian packages that script/package makes: quillon, quillon-browser and
# quillon-cli. The version is the project's; the release notes are the change log's, the manual pages the programs' help.
set(packaging ${PROJECT_SOURCE_DIR}/packaging)
set(made ${CMAKE_BINARY_DIR}/packaging)
file(MAKE_DIRECTORY ${made})
string(TIMESTAMP packaging_day "%Y-%m-%d" UTC)

# All that is installed.
add_custom_target(quillon_files DEPENDS quillon-cli)

# quillon_man_page(PROGRAM COMPONENT)
function(quillon_man_page program component)
    add_custom_command(
        OUTPUT ${made}/${program}.1.gz
        COMMAND ${packaging}/make_man_page $<TARGET_FILE:${program}> ${PROJECT_VERSION} ${packaging_day} > ${made}/${program}.1
        COMMAND gzip --best --no-name --force --keep ${made}/${program}.1
        DEPENDS ${program} ${packaging}/make_man_page
        VERBATIM)
    add_custom_target(${program}_man_page ALL DEPENDS ${made}/${program}.1.gz)
    add_dependencies(quillon_files ${program}_man_page)
    install(FILES ${made}/${program}.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT ${component})
endfunction()

# quillon_package(COMPONENT DESCRIPTION): what every package tells of itself.
function(quillon_package component description)
    if(component STREQUAL gui)
        set(name quillon)
    else()
        set(name quillon-${component})
    endif()
    string(TOUPPER ${component} upper)
    set(CPACK_DEBIAN_${upper}_PACKAGE_NAME ${name} PARENT_SCOPE)
    set(CPACK_DEBIAN_${upper}_DESCRIPTION ${description} PARENT_SCOPE)
    install(FILES ${packaging}/copyright DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${name} COMPONENT ${component})
    install(FILES ${made}/changelog.gz DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${name} COMPONENT ${component})
endfunction()

string(TIMESTAMP packaging_time "%a, %d %b %Y 00:00:00 +0000" UTC)
set(release_notes ${packaging}/make_release_notes)
set(change_log ${PROJECT_SOURCE_DIR}/CHANGELOG.md)
add_custom_command(
    OUTPUT ${made}/changelog.gz
    COMMAND ${release_notes} debian ${change_log} ${PROJECT_VERSION} ${packaging_time} > ${made}/changelog
    COMMAND gzip --best --no-name --force --keep ${made}/changelog
    DEPENDS ${release_notes} ${change_log}
    VERBATIM)
add_custom_target(quillon_changelog ALL DEPENDS ${made}/changelog.gz)
add_dependencies(quillon_files quillon_changelog)

quillon_man_page(quillon-cli cli)
quillon_package(cli "This package has the command line: it does from a shell and in scripts what
Quillon does in its windows, and it needs no screen.")
if(QUILLON_BUILD_GUI)
    quillon_man_page(quillon gui)
    add_executable(quillon-icon-maker ${packaging}/icon_maker.cpp)
    target_link_libraries(quillon-icon-maker PRIVATE quillon_options Qt6::Svg)
    set(icon ${PROJECT_SOURCE_DIR}/resources/icons/quillon.svg)
    add_custom_command(
        OUTPUT ${made}/icons.stamp
        COMMAND ${CMAKE_COMMAND} -E env QT_QPA_PLATFORM=offscreen $<TARGET_FILE:quillon-icon-maker> ${icon} ${made}/icons
        COMMAND ${CMAKE_COMMAND} -E touch ${made}/icons.stamp
        DEPENDS quillon-icon-maker ${icon}
        VERBATIM)
    # script/pictures builds it, and nothing else needs it.
    add_executable(quillon-picture-maker EXCLUDE_FROM_ALL ${packaging}/pictures/picture_maker.cpp)
    target_link_libraries(quillon-picture-maker PRIVATE quillon_gui quillon_icons Qt6::Network)
    add_dependencies(quillon-picture-maker quillon_browser)
    set(metainfo example.quillon.Quillon.metainfo.xml)
    set(metainfo_template ${packaging}/quillon.metainfo.xml)
    add_custom_command(
        OUTPUT ${made}/${metainfo}
        COMMAND ${release_notes} metainfo ${metainfo_template} ${change_log} ${PROJECT_VERSION} > ${made}/${metainfo}
        DEPENDS ${release_notes} ${metainfo_template} ${change_log}
        VERBATIM)
    add_custom_target(quillon_desktop_files ALL DEPENDS ${made}/icons.stamp ${made}/${metainfo})
    add_dependencies(quillon_files quillon quillon_browser quillon_manual quillon_desktop_files)
    install(DIRECTORY ${made}/icons/ DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor COMPONENT gui)
    install(FILES ${icon} DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps COMPONENT gui)
    install(FILES ${packaging}/quillon.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications COMPONENT gui)
    install(FILES ${made}/${metainfo} DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo COMPONENT gui)
    quillon_package(gui "Quillon is for people who publish downloadable software. It keeps a list of
titles, each with one PAD file, judges every field as it is typed, and stores
every change at once.")
    quillon_package(browser "This package has the embedded browser of the submission window, which takes
authors from download site to download site, and pastes a title's values into
each site's form.")
endif()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_CONTACT "The Quillon developers <developers@quillon.example>")
set(CPACK_PACKAGE_DIRECTORY ${CMAKE_BINARY_DIR}/packages)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
get_cmake_property(CPACK_COMPONENTS_ALL COMPONENTS)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE https://quillon.example/)
set(CPACK_DEBIAN_PACKAGE_SECTION devel)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# What the library loads while it runs, no dependency of its own names.
set(CPACK_DEBIAN_GUI_PACKAGE_DEPENDS "libqt6svg6")
set(CPACK_DEBIAN_GUI_PACKAGE_RECOMMENDS "quillon-browser, qt6-wayland, xdg-utils")
set(CPACK_DEBIAN_GUI_PACKAGE_SUGGESTS quillon-cli)
set(CPACK_DEBIAN_BROWSER_PACKAGE_DEPENDS "quillon (= ${PROJECT_VERSION})")
include(CPack)
