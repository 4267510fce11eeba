# Objective-C and Objective-C++ for the GCC runtime and GNUstep's Foundation, as Debian packages them, built by clang.
# The runtime's headers live in GCC's own include folder, which must come last: clang has its own intrinsics.
file(GLOB ZELKA_OBJC_INCLUDE ${CMAKE_SYSROOT}/usr/lib/gcc/${CMAKE_LIBRARY_ARCHITECTURE}/*/include/objc)
list(SORT ZELKA_OBJC_INCLUDE COMPARE NATURAL ORDER DESCENDING)
list(GET ZELKA_OBJC_INCLUDE 0 ZELKA_OBJC_INCLUDE)
cmake_path(GET ZELKA_OBJC_INCLUDE PARENT_PATH ZELKA_OBJC_INCLUDE)

set(ZELKA_OBJC_FLAGS
    -fobjc-runtime=gcc
    -fobjc-exceptions
    -fexceptions
    -fno-strict-aliasing
    -fconstant-string-class=NSConstantString
    -isystem${CMAKE_SYSROOT}/usr/include/GNUstep
    -idirafter${ZELKA_OBJC_INCLUDE}
    -D_NATIVE_OBJC_EXCEPTIONS
    -DGNUSTEP
    -DGNUSTEP_BASE_LIBRARY=1
    -DGNU_RUNTIME=1)

add_library(foundation INTERFACE)
target_compile_options(foundation INTERFACE "$<$<COMPILE_LANGUAGE:OBJC,OBJCXX>:${ZELKA_OBJC_FLAGS}>")
# A pure C++ program would drop Foundation without this.
target_link_options(foundation INTERFACE LINKER:--no-as-needed)
target_link_libraries(foundation INTERFACE gnustep-base objc)
