# Objective-C++ for the GCC runtime and GNUstep's Foundation, as Debian packages them, built by clang.
# The runtime's headers live in GCC's own include folder, which must come last: clang has its own intrinsics.
file(GLOB ZELKA_OBJC_INCLUDE /usr/lib/gcc/${CMAKE_LIBRARY_ARCHITECTURE}/*/include/objc)
list(SORT ZELKA_OBJC_INCLUDE COMPARE NATURAL ORDER DESCENDING)
list(GET ZELKA_OBJC_INCLUDE 0 ZELKA_OBJC_INCLUDE)
cmake_path(GET ZELKA_OBJC_INCLUDE PARENT_PATH ZELKA_OBJC_INCLUDE)

add_library(foundation INTERFACE)
target_compile_options(
  foundation
  INTERFACE
    $<$<COMPILE_LANGUAGE:OBJCXX>:-fobjc-runtime=gcc>
    $<$<COMPILE_LANGUAGE:OBJCXX>:-fobjc-exceptions>
    $<$<COMPILE_LANGUAGE:OBJCXX>:-fexceptions>
    $<$<COMPILE_LANGUAGE:OBJCXX>:-fno-strict-aliasing>
    $<$<COMPILE_LANGUAGE:OBJCXX>:-fconstant-string-class=NSConstantString>
    "$<$<COMPILE_LANGUAGE:OBJCXX>:SHELL:-isystem /usr/include/GNUstep>"
    "$<$<COMPILE_LANGUAGE:OBJCXX>:SHELL:-idirafter ${ZELKA_OBJC_INCLUDE}>")
target_compile_definitions(
  foundation INTERFACE $<$<COMPILE_LANGUAGE:OBJCXX>:_NATIVE_OBJC_EXCEPTIONS> $<$<COMPILE_LANGUAGE:OBJCXX>:GNUSTEP>
                       $<$<COMPILE_LANGUAGE:OBJCXX>:GNUSTEP_BASE_LIBRARY=1> $<$<COMPILE_LANGUAGE:OBJCXX>:GNU_RUNTIME=1>)
# A pure C++ program would drop Foundation without this.
target_link_options(foundation INTERFACE LINKER:--no-as-needed)
target_link_libraries(foundation INTERFACE gnustep-base objc)
