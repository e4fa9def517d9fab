# Run by CPack after it built the package. Its Debian generator adds postinst and postrm scripts that
# call ldconfig for every shared object under /usr/lib, but a plug-in is loaded by its host with
# dlopen, never looked up by the dynamic linker: rebuild the package without those two scripts.
find_program(DPKG_DEB dpkg-deb REQUIRED)
foreach(deb IN LISTS CPACK_PACKAGE_FILES)
    set(tree "${deb}.tree")
    file(REMOVE_RECURSE "${tree}")
    execute_process(COMMAND "${DPKG_DEB}" --raw-extract "${deb}" "${tree}" COMMAND_ERROR_IS_FATAL ANY)
    file(REMOVE "${tree}/DEBIAN/postinst" "${tree}/DEBIAN/postrm")
    execute_process(COMMAND "${DPKG_DEB}" --root-owner-group --build "${tree}" "${deb}"
                    OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
    file(REMOVE_RECURSE "${tree}")
endforeach()
