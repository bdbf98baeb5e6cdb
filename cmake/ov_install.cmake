# What `cmake --install` puts where, and how other projects find it. Included last, when every
# target is known.
if(NOT OV_INSTALL)
  return()
endif()

include(CMakePackageConfigHelpers)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/OVAddressBookSDK)
set(generated_dir ${CMAKE_CURRENT_BINARY_DIR}/package)

# ov_install_library(SET TARGET): installs a library. Each has an export set of its own, so that a project
# that uses one library needs the dependencies of that one only.
function(ov_install_library set target)
  install(TARGETS ${target} EXPORT OVAddressBookSDK${set})
  install(EXPORT OVAddressBookSDK${set} NAMESPACE OVAddressBookSDK:: DESTINATION ${package_dir})
endfunction()

ov_install_library(Shared OVAddressBookSDK)
ov_install_library(Static OVAddressBookSDK_static)
install(DIRECTORY include/OVAddressBookSDK DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
        FILES_MATCHING PATTERN "*.h")
install(FILES LICENSE DESTINATION ${CMAKE_INSTALL_DOCDIR})

foreach(host VCard Qt EDS)
  string(TOUPPER ${host} option)
  string(TOLOWER ${host} folder)
  if(OV_BUILD_${option})
    ov_install_library(${host} OVAddressBook${host})
    ov_install_library(${host}Static OVAddressBook${host}_static)
    install(DIRECTORY hosts/${folder}/include/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
            FILES_MATCHING PATTERN "*.h")
  endif()
endforeach()
if(OV_BUILD_EDS AND OV_BUILD_TOOLS)
  install(TARGETS ovbook-live RUNTIME DESTINATION ${CMAKE_INSTALL_LIBEXECDIR}/ovbook)
endif()
if(TARGET ovcontacts)
  install(TARGETS ovcontacts)
  install(FILES tools/ovcontacts/ovcontacts.desktop
          DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
  install(FILES tools/ovcontacts/ovcontacts.svg
          DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
  install(FILES tools/ovcontacts/ovcontacts.metainfo.xml
          DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
  install(FILES man/ovcontacts.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
endif()
if(OV_BUILD_TOOLS)
  install(TARGETS ovbook)
  install(FILES man/ovbook.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
  install(FILES completions/ovbook.bash RENAME ovbook
          DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
  install(FILES completions/_ovbook DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/site-functions)
endif()

configure_package_config_file(
  cmake/OVAddressBookSDKConfig.cmake.in ${generated_dir}/OVAddressBookSDKConfig.cmake
  INSTALL_DESTINATION ${package_dir} NO_SET_AND_CHECK_MACRO NO_CHECK_REQUIRED_COMPONENTS_MACRO)
write_basic_package_version_file(${generated_dir}/OVAddressBookSDKConfigVersion.cmake
                                 COMPATIBILITY SameMajorVersion)
install(FILES ${generated_dir}/OVAddressBookSDKConfig.cmake
              ${generated_dir}/OVAddressBookSDKConfigVersion.cmake
        DESTINATION ${package_dir})

# Relative to the file itself, so that the prefix can be chosen at install time.
set(pkgconfig_dir ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig)
file(RELATIVE_PATH pkgconfig_prefix ${pkgconfig_dir} ${CMAKE_INSTALL_PREFIX})
set(pkgconfig_names OVAddressBookSDK)
if(OV_BUILD_QT)
  list(APPEND pkgconfig_names OVAddressBookQt)
endif()
if(OV_BUILD_EDS)
  list(APPEND pkgconfig_names OVAddressBookEDS)
endif()
foreach(name ${pkgconfig_names})
  configure_file(cmake/${name}.pc.in ${generated_dir}/${name}.pc @ONLY)
  install(FILES ${generated_dir}/${name}.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
endforeach()
