# Precompiled headers that an upgrade of the system's headers makes anew.
#
# Upgraded headers bear the dates of their packages, which are older than what was built yesterday. So the build tool sees
# nothing to do, and the compiler, which notes the dates of all that it reads, refuses the precompiled header from then
# on. Here the compiler notes no dates (to have it compare contents where dates differ is no help: clang 14 then reads
# headers with `#pragma once` or `#import` twice), and the precompiled headers depend on the versions of the packages
# that hold headers: by Debian's rules, those whose names end in -dev.

set(ZELKA_PACKAGE_FOLDER /var/lib/dpkg CACHE PATH "Where the system notes its packages")
mark_as_advanced(ZELKA_PACKAGE_FOLDER)

# zelka_follow_installed_headers(TARGET): adds that to a target with precompiled headers, before they are named.
function(zelka_follow_installed_headers target)
  set(list ${CMAKE_CURRENT_BINARY_DIR}/${target}_installed.h)
  # The list is written anew only if it differs, and only then is more to do.
  add_custom_command(
    OUTPUT ${list}.checked
    BYPRODUCTS ${list}
    COMMAND dpkg-query --admindir=${ZELKA_PACKAGE_FOLDER} --show "--showformat=// \${Package} \${Version}\\n" "*-dev" >
            ${list}.new
    COMMAND ${CMAKE_COMMAND} -E copy_if_different ${list}.new ${list}
    COMMAND ${CMAKE_COMMAND} -E touch ${list}.checked
    DEPENDS ${ZELKA_PACKAGE_FOLDER}/status
    COMMENT "Looking whether the system's headers are what they were"
    VERBATIM)
  target_sources(${target} PRIVATE ${list}.checked)
  target_precompile_headers(${target} PRIVATE ${list})
endfunction()

add_compile_options("$<$<COMPILE_LANGUAGE:CXX,OBJCXX>:SHELL:-Xclang -fno-pch-timestamp>")
