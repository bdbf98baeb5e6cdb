# Run by cpack between the installation into its folder and the making of the packages: brings each
# package into the shape that Debian asks for.
function(compress file)
  execute_process(COMMAND gzip -9n ${file} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

set(version ${CPACK_PACKAGE_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})
foreach(component IN LISTS CPACK_COMPONENTS_ALL)
  string(TOUPPER ${component} upper)
  set(package ${CPACK_DEBIAN_${upper}_PACKAGE_NAME})
  set(root ${CPACK_TEMPORARY_DIRECTORY}/${component}/usr)

  # The licence is one of those that every Debian system has.
  file(REMOVE_RECURSE ${root}/share/doc)
  set(documents ${root}/share/doc/${package})
  file(COPY ${CMAKE_CURRENT_LIST_DIR}/copyright DESTINATION ${documents})
  configure_file(${CMAKE_CURRENT_LIST_DIR}/changelog.in ${documents}/changelog.Debian @ONLY)
  compress(${documents}/changelog.Debian)
  file(COPY_FILE ${CMAKE_CURRENT_LIST_DIR}/../../CHANGELOG.md ${documents}/changelog)
  compress(${documents}/changelog)

  file(GLOB pages ${root}/share/man/man*/*)
  foreach(page IN LISTS pages)
    compress(${page})
  endforeach()

  if(EXISTS ${root}/share/zsh/site-functions)
    file(RENAME ${root}/share/zsh/site-functions ${root}/share/zsh/vendor-completions)
  endif()

  file(GLOB_RECURSE archives ${root}/lib/*.a)
  foreach(archive IN LISTS archives)
    execute_process(COMMAND strip --strip-debug --enable-deterministic-archives ${archive}
                    COMMAND_ERROR_IS_FATAL ANY)
  endforeach()
endforeach()
