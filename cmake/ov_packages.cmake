# What `cpack` makes: Debian packages of the library, of what is needed to build with it, and of the
# command. Included last, when everything has its install rules.
if(NOT OV_INSTALL OR NOT PROJECT_IS_TOP_LEVEL)
  return()
endif()

# ov_package(COMPONENT NAME SECTION TITLE TEXT): a component's package.
macro(ov_package component name section title text)
  string(TOUPPER ${component} upper)
  list(APPEND CPACK_COMPONENTS_ALL ${component})
  set(CPACK_DEBIAN_${upper}_PACKAGE_NAME ${name})
  set(CPACK_DEBIAN_${upper}_PACKAGE_SECTION ${section})
  set(CPACK_DEBIAN_${upper}_DESCRIPTION "${title}\n${text}")
endmacro()

set(CPACK_GENERATOR DEB)
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_PACKAGE_VENDOR ${PROJECT_NAME})
set(CPACK_PACKAGE_CONTACT "OVAddressBookSDK maintainers <maintainers@ovaddressbooksdk.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")  # or it would come above each package's own
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/cmake/debian/layout.cmake)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)

set(CPACK_COMPONENTS_ALL "")
set(runtime_package libovaddressbooksdk${PROJECT_VERSION_MAJOR})
set(about "The library keeps persons, groups and books with labelled values, takes
snapshots of whole books in one data block, and lays postal addresses
out as their country writes them.
")
ov_package(Runtime ${runtime_package} libs "data model of a contacts application (library)"
           "${about}
This package holds the shared library.")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA ${PROJECT_SOURCE_DIR}/cmake/debian/triggers)
ov_package(Development libovaddressbooksdk-dev libdevel
           "data model of a contacts application (development files)"
           "${about}
This package holds the headers, the static library, and the files by
which CMake and pkg-config find it.")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
    "${runtime_package} (= ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE}), libicu-dev, libsqlite3-dev")
set(recommended)
if(OV_BUILD_VCARD)
  list(APPEND recommended libglib2.0-dev)
endif()
if(OV_BUILD_QT)
  list(APPEND recommended qt6-base-dev)
endif()
list(JOIN recommended ", " CPACK_DEBIAN_DEVELOPMENT_PACKAGE_RECOMMENDS)
if(TARGET ovcontacts)
  ov_package(Contacts ovcontacts utils "contacts program"
             "The program shows and changes address books in data blocks and vCard
files, and those of the desktop: persons, groups and tags.")
  if(OV_BUILD_EDS)
    set(CPACK_DEBIAN_CONTACTS_PACKAGE_RECOMMENDS evolution-data-server)
  endif()
endif()
if(OV_BUILD_EDS)
  ov_package(EDSDevelopment libovaddressbookeds-dev libdevel
             "address books of evolution-data-server (development files)"
             "${about}
This package holds what programs need to be built with the address books
that evolution-data-server keeps: local ones and those of CardDAV servers.")
  set(CPACK_DEBIAN_EDSDEVELOPMENT_PACKAGE_DEPENDS
      "libovaddressbooksdk-dev (= ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE}), libebook1.2-dev, libicu-dev")
endif()
if(OV_BUILD_EDS AND OV_BUILD_TOOLS)
  ov_package(LiveTools ovbook-live utils "live address books for ovbook"
             "Lets the command ovbook list, read and fill the address books that the
desktop keeps with evolution-data-server.")
  set(CPACK_DEBIAN_LIVETOOLS_PACKAGE_DEPENDS
      "ovbook (= ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})")
  set(CPACK_DEBIAN_LIVETOOLS_PACKAGE_RECOMMENDS evolution-data-server)
endif()
if(OV_BUILD_TOOLS)
  ov_package(Tools ovbook utils "snapshots of address books on the command line"
             "The command imports contacts from vCard files, keeps them as one data
block, shows and exports them, tags persons, and lays out postal
addresses.")
endif()

include(CPack)
